#include "platform/module_loader.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace vmc::platform {
namespace {

constexpr int kOpenFlags = RTLD_NOW | RTLD_LOCAL;

bool FileExists(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0;
}

// The file of the object this code is linked into: libvmc.so in the product,
// the test program when the platform library is linked into one.
std::string ThisObjectFile() {
    Dl_info info{};
    link_map* map = nullptr;
    if (dladdr1(reinterpret_cast<void*>(&ThisObjectFile), &info, reinterpret_cast<void**>(&map),
                RTLD_DL_LINKMAP) != 0 &&
        map && map->l_name && map->l_name[0] != '\0')
        return map->l_name;
    // The main program has no name in its link map.
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length <= 0) return {};
    return std::string(path, static_cast<std::size_t>(length));
}

// The first candidate file that exists decides: nullopt when folder has none,
// else what loading it gives. A file that is there but does not load gives
// null rather than a silent fall-through to another copy of the module further
// on, which would hide a broken install behind an older one.
std::optional<void*> LoadFromFolder(const std::string& folder, const std::string& fileName) {
    const std::string path = folder + '/' + fileName;
    if (!FileExists(path)) return std::nullopt;
    return dlopen(path.c_str(), kOpenFlags);
}

}  // namespace

std::string DefaultModuleFolder() {
    try {
        std::string file = ThisObjectFile();
        if (file.empty()) return {};
        // Resolved, so that the modules installed beside the real file are
        // found whichever link or relative path the library was loaded by.
        if (char* resolved = realpath(file.c_str(), nullptr)) {
            file = resolved;
            std::free(resolved);
        }
        const std::size_t slash = file.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash);
        return folder + "/vmc/modules";
    } catch (...) {
        return {};
    }
}

void* LoadModule(const char* baseName) {
    // A base name, not a path: a slash would bypass the search.
    if (!baseName || !*baseName || std::strchr(baseName, '/')) return nullptr;
    try {
        const std::string fileName = std::string(baseName) + ".so";
        if (const char* list = std::getenv("VMC_MODULE_PATH")) {
            const std::string folders = list;
            std::size_t begin = 0;
            while (begin <= folders.size()) {
                std::size_t end = folders.find(':', begin);
                if (end == std::string::npos) end = folders.size();
                if (end > begin) {
                    if (auto module = LoadFromFolder(folders.substr(begin, end - begin), fileName)) return *module;
                }
                begin = end + 1;
            }
        }

        const std::string folder = DefaultModuleFolder();
        if (!folder.empty()) {
            if (auto module = LoadFromFolder(folder, fileName)) return *module;
        }

        return dlopen(fileName.c_str(), kOpenFlags);
    } catch (...) {
        return nullptr;
    }
}

void* ModuleSymbol(void* module, const char* name) {
    if (!module || !name) return nullptr;
    return dlsym(module, name);
}

bool FreeModule(void* module) {
    return module && dlclose(module) == 0;
}

}  // namespace vmc::platform
