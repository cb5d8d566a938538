// Loading module files by base name ("DMOD026", "IMOD_VIRTUAL").
//
// Search order: each folder of VMC_MODULE_PATH (colon-separated) in order,
// then <folder of libvmc.so>/vmc/modules, then the system's own search. The
// first folder that has the file decides: a file there that does not load
// gives null, and no later copy is tried.
#pragma once

#include <string>

namespace vmc::platform {

// The loaded module, or null when no file of that name loads. baseName has no
// folder and no ".so"; a name with a '/' gives null.
void* LoadModule(const char* baseName);
// Null when the module has no such symbol.
void* ModuleSymbol(void* module, const char* name);
// False when the system refuses (or module is null).
bool FreeModule(void* module);
// <folder of libvmc.so>/vmc/modules, the installed module folder.
std::string DefaultModuleFolder();

}  // namespace vmc::platform
