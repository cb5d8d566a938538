#include "platform/user_store.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string_view>

namespace vmc::platform {
namespace {

// ${XDG_CONFIG_HOME:-$HOME/.config}; a relative XDG_CONFIG_HOME is ignored,
// as the XDG rules ask. Empty when no home folder can be found.
std::string ConfigHome() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    if (xdg && xdg[0] == '/') return xdg;
    const char* home = std::getenv("HOME");
    if (home && *home) return std::string(home) + "/.config";
    passwd entry;
    passwd* found = nullptr;
    char buffer[4096];
    if (getpwuid_r(getuid(), &entry, buffer, sizeof buffer, &found) == 0 && found && found->pw_dir &&
        *found->pw_dir)
        return std::string(found->pw_dir) + "/.config";
    return {};
}

// "SOFTWARE\\VELMORA\\VWR" -> "SOFTWARE/VELMORA/VWR". Empty for an empty key
// or one that would step out of the store ("." or ".." as a component).
std::string KeyToRelativePath(const char* keyPath) {
    std::string result;
    std::string_view rest = keyPath;
    while (!rest.empty()) {
        const std::size_t end = rest.find_first_of("\\/");
        const std::string_view part = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
        if (part.empty()) continue;
        if (part == "." || part == "..") return {};
        if (!result.empty()) result += '/';
        result += part;
    }
    return result;
}

std::string_view Trim(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r";
    const std::size_t begin = text.find_first_not_of(kSpace);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}

// Splits "Name=value"; false for a line without '=' or without a name.
bool SplitLine(std::string_view line, std::string_view* name, std::string_view* value) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    *name = Trim(line.substr(0, equals));
    *value = Trim(line.substr(equals + 1));
    return !name->empty();
}

// Plain decimal only: no sign, no base prefix, nothing after the digits.
bool ParseU32(std::string_view text, uint32_t* value) {
    if (text.empty()) return false;
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, *value);
    return error == std::errc{} && stop == end;
}

// A name the reader would give back unchanged: no '=', no line break, no
// surrounding blanks.
bool IsStorableName(const std::string& name) {
    return !name.empty() && name.find_first_of("=\n") == std::string::npos && Trim(name) == name;
}

// The whole file; false when it exists but cannot be read. A missing file
// reads as empty with *exists false.
bool ReadFile(const std::string& path, std::string* content, bool* exists) {
    content->clear();
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    *exists = fd >= 0;
    if (fd < 0) return errno == ENOENT;
    char buffer[4096];
    ssize_t n;
    while ((n = read(fd, buffer, sizeof buffer)) != 0) {
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) break;
        content->append(buffer, static_cast<std::size_t>(n));
    }
    close(fd);
    return n == 0;
}

bool WriteAll(int fd, const std::string& data) {
    std::size_t done = 0;
    while (done < data.size()) {
        const ssize_t n = write(fd, data.data() + done, data.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

// Creates every missing folder of path, private to the user.
bool MakeFolders(const std::string& path) {
    for (std::size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string prefix = path.substr(0, slash);
        if (mkdir(prefix.c_str(), 0700) != 0 && errno != EEXIST) return false;
        if (slash == std::string::npos) break;
    }
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// The file with the given values set: a line of a value being set is replaced
// where it stands (later lines of the same name dropped), every other line is
// kept as it was, including ones that are not values, and new values follow.
std::string MergeValues(const std::string& old, const StoreValues& values) {
    std::vector<bool> placed(values.size(), false);
    // The last setting of a name in `values` is the one that counts.
    auto lastIndexOf = [&](std::string_view name) -> std::size_t {
        for (std::size_t i = values.size(); i-- > 0;)
            if (values[i].first == name) return i;
        return values.size();
    };
    auto line = [&](std::size_t i) { return values[i].first + '=' + std::to_string(values[i].second) + '\n'; };

    std::string merged;
    std::string_view rest = old;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view text = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
        std::string_view name, value;
        const std::size_t index = SplitLine(text, &name, &value) ? lastIndexOf(name) : values.size();
        if (index == values.size()) {
            merged.append(text) += '\n';
        } else if (!placed[index]) {
            merged += line(index);
            placed[index] = true;
        }
    }
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!placed[i] && lastIndexOf(values[i].first) == i) merged += line(i);
    return merged;
}

// Writes content beside path under a temporary name and renames it over path,
// so that a reader sees either the old file or the new one, never a mix.
bool ReplaceFile(const std::string& path, const std::string& content) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = path.substr(0, slash);
    std::string temp = folder + "/." + path.substr(slash + 1) + ".XXXXXX";
    const int fd = mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) return false;
    const bool written = WriteAll(fd, content) && fsync(fd) == 0;
    const bool closed = close(fd) == 0;
    if (!written || !closed || rename(temp.c_str(), path.c_str()) != 0) {
        unlink(temp.c_str());
        return false;
    }
    // Makes the rename itself durable; the write has succeeded either way.
    const int dirFd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dirFd >= 0) {
        fsync(dirFd);
        close(dirFd);
    }
    return true;
}

// Writers in this process take turns, so that two merges do not lose each
// other's values. Between processes the last writer wins.
std::mutex& WriterMutex() {
    static std::mutex mutex;
    return mutex;
}

}  // namespace

std::string UserStorePath(const char* keyPath) {
    if (!keyPath) return {};
    try {
        const std::string key = KeyToRelativePath(keyPath);
        const std::string home = ConfigHome();
        if (key.empty() || home.empty()) return {};
        return home + "/vmc/registry/" + key;
    } catch (...) {
        return {};
    }
}

bool UserStoreRead(const char* keyPath, const char* name, uint32_t* value) {
    if (!name || !value) return false;
    try {
        const std::string path = UserStorePath(keyPath);
        if (path.empty()) return false;
        std::string content;
        bool exists;
        if (!ReadFile(path, &content, &exists) || !exists) return false;

        // Of repeated lines, the last one counts, as it would for a reader
        // that loads the lines into a table one by one.
        std::string_view found;
        bool any = false;
        std::string_view rest = content;
        while (!rest.empty()) {
            const std::size_t end = rest.find('\n');
            std::string_view lineName, lineValue;
            if (SplitLine(rest.substr(0, end), &lineName, &lineValue) && lineName == name) {
                found = lineValue;
                any = true;
            }
            rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
        }
        uint32_t parsed;
        if (!any || !ParseU32(found, &parsed)) return false;
        *value = parsed;
        return true;
    } catch (...) {
        return false;
    }
}

bool UserStoreWrite(const char* keyPath, const StoreValues& values) {
    try {
        for (const auto& entry : values)
            if (!IsStorableName(entry.first)) return false;
        const std::string path = UserStorePath(keyPath);
        if (path.empty()) return false;

        std::lock_guard lock(WriterMutex());
        if (!MakeFolders(path.substr(0, path.rfind('/')))) return false;
        std::string old;
        bool exists;
        // An unreadable file is not overwritten: its other values would be lost.
        if (!ReadFile(path, &old, &exists)) return false;
        return ReplaceFile(path, MergeValues(old, values));
    } catch (...) {
        return false;
    }
}

}  // namespace vmc::platform
