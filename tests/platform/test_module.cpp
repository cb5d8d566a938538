// A module that says which copy of it was loaded: the build gives each copy
// its own TEST_MODULE_VALUE and folder, under one file name.
extern "C" __attribute__((visibility("default"))) int PlatformTestModuleValue() { return TEST_MODULE_VALUE; }
