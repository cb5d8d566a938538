#include "platform/module_loader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "scoped_env.h"
#include "temp_dir.h"

using namespace vmc::platform;

// The build puts copies of one test module, each answering its own number,
// into these folders:
//   first/PLAT_A.so 1   second/PLAT_A.so 2   <program folder>/vmc/modules/PLAT_A.so 3
//   system/PLAT_A.so 4  system/PLAT_SYS.so 5
// and "system" is on the test program's library run path, standing for the
// system's own search.

namespace {

const std::string kFirst = PLATFORM_TEST_MODULES "/first";
const std::string kSecond = PLATFORM_TEST_MODULES "/second";

// The number of the copy that loads, 0 when none does.
int LoadedCopy(const char* baseName) {
    void* module = LoadModule(baseName);
    if (!module) return 0;
    using ValueFn = int (*)();
    auto value = reinterpret_cast<ValueFn>(ModuleSymbol(module, "PlatformTestModuleValue"));
    const int result = value ? value() : -1;
    EXPECT_TRUE(FreeModule(module));
    return result;
}

}  // namespace

TEST(ModuleLoader, FoldersOfTheModulePathAreTriedInOrder) {
    {
        ScopedEnv path("VMC_MODULE_PATH", kFirst + ":" + kSecond);
        EXPECT_EQ(LoadedCopy("PLAT_A"), 1);
    }
    {
        ScopedEnv path("VMC_MODULE_PATH", kSecond + ":" + kFirst);
        EXPECT_EQ(LoadedCopy("PLAT_A"), 2);
    }
    {
        TempDir empty;
        ScopedEnv path("VMC_MODULE_PATH", "::" + empty.path() + "::" + kSecond + ":");
        EXPECT_EQ(LoadedCopy("PLAT_A"), 2) << "empty entries and folders without the file are passed over";
    }
}

TEST(ModuleLoader, InstalledFolderComesAfterTheModulePathAndBeforeTheSystem) {
    {
        ScopedEnv path("VMC_MODULE_PATH", nullptr);
        EXPECT_EQ(LoadedCopy("PLAT_A"), 3);
    }
    {
        ScopedEnv path("VMC_MODULE_PATH", kSecond);
        EXPECT_EQ(LoadedCopy("PLAT_A"), 2);
    }
}

TEST(ModuleLoader, SystemSearchIsTheLastResort) {
    ScopedEnv path("VMC_MODULE_PATH", kFirst);
    EXPECT_EQ(LoadedCopy("PLAT_SYS"), 5);
}

TEST(ModuleLoader, MissingModuleGivesNull) {
    ScopedEnv path("VMC_MODULE_PATH", kFirst);
    EXPECT_EQ(LoadModule("PLAT_NOWHERE"), nullptr);
    EXPECT_EQ(LoadModule(""), nullptr);
    EXPECT_EQ(LoadModule(nullptr), nullptr);
}

TEST(ModuleLoader, BrokenFileIsNotPassedOverForALaterCopy) {
    TempDir folder;
    std::ofstream(folder.path() + "/PLAT_A.so") << "not a shared object\n";
    ScopedEnv path("VMC_MODULE_PATH", folder.path() + ":" + kFirst);
    EXPECT_EQ(LoadModule("PLAT_A"), nullptr);
}

TEST(ModuleLoader, NameWithAFolderIsRefused) {
    ScopedEnv path("VMC_MODULE_PATH", nullptr);
    EXPECT_EQ(LoadModule((kFirst + "/PLAT_A").c_str()), nullptr);
}

TEST(ModuleLoader, MissingSymbolAndNullModule) {
    ScopedEnv path("VMC_MODULE_PATH", kFirst);
    void* module = LoadModule("PLAT_A");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(ModuleSymbol(module, "NoSuchSymbol"), nullptr);
    EXPECT_EQ(ModuleSymbol(nullptr, "PlatformTestModuleValue"), nullptr);
    EXPECT_TRUE(FreeModule(module));
    EXPECT_FALSE(FreeModule(nullptr));
}
