// The per-user key-value store: registry-like keys ("SOFTWARE\\VELMORA\\...")
// of named 32-bit values, kept in
// ${XDG_CONFIG_HOME:-$HOME/.config}/vmc/registry/<key path with '/'>,
// one "Name=value" line per value. Writes replace the file atomically, so a
// reader never sees half a write. Failures are silent by design: a read that
// fails reports false, a write that fails leaves the store as it was.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vmc::platform {

using StoreValues = std::vector<std::pair<std::string, uint32_t>>;

// The file that holds a key.
std::string UserStorePath(const char* keyPath);
// False when the key or the value does not exist or cannot be read.
bool UserStoreRead(const char* keyPath, const char* name, uint32_t* value);
// Sets the given values (others of the key stay); creates the key as needed.
bool UserStoreWrite(const char* keyPath, const StoreValues& values);

}  // namespace vmc::platform
