// A fresh folder under the system's temporary folder, removed with its
// contents when the object dies.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "vmc_platform_XXXXXX").string();
        if (mkdtemp(pattern.data())) path_ = pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};
