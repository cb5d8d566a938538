#include "platform/user_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "scoped_env.h"
#include "temp_dir.h"

using namespace vmc::platform;

namespace {

constexpr const char* kKey = "SOFTWARE\\VELMORA\\VWR\\GETHLIB";

std::string Contents(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// Every test runs with its own home and configuration folder.
class UserStoreTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(home.path().empty()); }

    // The value, or -1 when the read fails.
    static int64_t Read(const char* name) {
        uint32_t value = 0;
        return UserStoreRead(kKey, name, &value) ? int64_t{value} : -1;
    }
    void WriteFile(const std::string& text) {
        const std::string path = UserStorePath(kKey);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path) << text;
    }

    TempDir home;
    ScopedEnv homeVar{"HOME", home.path()};
    ScopedEnv configVar{"XDG_CONFIG_HOME", home.path() + "/config"};
};

}  // namespace

TEST_F(UserStoreTest, KeyFileLiesUnderTheConfigurationFolder) {
    EXPECT_EQ(UserStorePath(kKey), home.path() + "/config/vmc/registry/SOFTWARE/VELMORA/VWR/GETHLIB");
    {
        ScopedEnv unset("XDG_CONFIG_HOME", nullptr);
        EXPECT_EQ(UserStorePath(kKey), home.path() + "/.config/vmc/registry/SOFTWARE/VELMORA/VWR/GETHLIB");
    }
    {
        ScopedEnv empty("XDG_CONFIG_HOME", "");
        EXPECT_EQ(UserStorePath(kKey), home.path() + "/.config/vmc/registry/SOFTWARE/VELMORA/VWR/GETHLIB");
    }
    {
        ScopedEnv relative("XDG_CONFIG_HOME", "relative/config");
        EXPECT_EQ(UserStorePath(kKey), home.path() + "/.config/vmc/registry/SOFTWARE/VELMORA/VWR/GETHLIB");
    }
}

TEST_F(UserStoreTest, KeyThatLeavesTheStoreHasNoFile) {
    EXPECT_EQ(UserStorePath("SOFTWARE\\..\\..\\escape"), "");
    EXPECT_EQ(UserStorePath(""), "");
    EXPECT_EQ(UserStorePath(nullptr), "");
    EXPECT_FALSE(UserStoreWrite("..\\escape", {{"A", 1}}));
}

TEST_F(UserStoreTest, WrittenValuesReadBack) {
    EXPECT_EQ(Read("PacketSize"), -1) << "no key yet";

    ASSERT_TRUE(UserStoreWrite(kKey, {{"PacketSize", 8994}, {"SendPort", 0}, {"Largest", 4294967295u}}));
    EXPECT_EQ(Read("PacketSize"), 8994);
    EXPECT_EQ(Read("SendPort"), 0);
    EXPECT_EQ(Read("Largest"), 4294967295);
    EXPECT_EQ(Read("ReceivePort"), -1) << "a value never written";

    struct stat info;
    ASSERT_EQ(stat((home.path() + "/config/vmc/registry/SOFTWARE/VELMORA/VWR").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0077, 0u) << "created folders are private to the user";
}

TEST_F(UserStoreTest, WriteKeepsOtherValuesAndReplacesItsOwn) {
    ASSERT_TRUE(UserStoreWrite(kKey, {{"A", 1}, {"B", 2}}));
    ASSERT_TRUE(UserStoreWrite(kKey, {{"B", 3}, {"C", 4}}));
    EXPECT_EQ(Read("A"), 1);
    EXPECT_EQ(Read("B"), 3);
    EXPECT_EQ(Read("C"), 4);
    EXPECT_EQ(Contents(UserStorePath(kKey)), "A=1\nB=3\nC=4\n");
}

TEST_F(UserStoreTest, UnreadableLinesAreIgnoredAndKept) {
    WriteFile("# written by hand\n"
              "garbage without an equals sign\n"
              "Good=17\r\n"
              "  Spaced  =  21  \n"
              "Word=abc\n"
              "Negative=-1\n"
              "Hex=0x10\n"
              "TooLarge=4294967296\n"
              "Trailing=12abc\n"
              "Empty=\n"
              "=5\n"
              "Twice=1\n"
              "Twice=2");
    EXPECT_EQ(Read("Good"), 17);
    EXPECT_EQ(Read("Spaced"), 21);
    for (const char* bad : {"Word", "Negative", "Hex", "TooLarge", "Trailing", "Empty", ""})
        EXPECT_EQ(Read(bad), -1) << bad;
    EXPECT_EQ(Read("Twice"), 2) << "the last line of a name counts";

    ASSERT_TRUE(UserStoreWrite(kKey, {{"Word", 8}, {"Twice", 3}, {"New", 9}}));
    EXPECT_EQ(Read("Word"), 8);
    EXPECT_EQ(Read("Twice"), 3);
    EXPECT_EQ(Read("Good"), 17);
    const std::string text = Contents(UserStorePath(kKey));
    EXPECT_NE(text.find("# written by hand\n"), std::string::npos);
    EXPECT_NE(text.find("garbage without an equals sign\n"), std::string::npos);
    EXPECT_EQ(text.find("Twice=2"), std::string::npos) << "a replaced name keeps one line";
}

TEST_F(UserStoreTest, WriteReplacesTheFileInOneStep) {
    ASSERT_TRUE(UserStoreWrite(kKey, {{"A", 1}}));
    // A reader that opened the key before the write keeps a whole old file.
    std::ifstream before(UserStorePath(kKey));
    ASSERT_TRUE(UserStoreWrite(kKey, {{"A", 2}, {"B", 3}}));
    std::stringstream old;
    old << before.rdbuf();
    EXPECT_EQ(old.str(), "A=1\n");
    EXPECT_EQ(Contents(UserStorePath(kKey)), "A=2\nB=3\n");

    // And no temporary file is left beside it.
    const auto folder = std::filesystem::path(UserStorePath(kKey)).parent_path();
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++files;
    EXPECT_EQ(files, 1u);
}

TEST_F(UserStoreTest, FailedWriteLeavesTheStoreAsItWas) {
    ASSERT_TRUE(UserStoreWrite(kKey, {{"A", 1}}));
    EXPECT_FALSE(UserStoreWrite(kKey, {{"B=C", 2}}));
    EXPECT_FALSE(UserStoreWrite(kKey, {{"Line\nBreak", 2}}));
    EXPECT_FALSE(UserStoreWrite(kKey, {{" Padded", 2}}));
    EXPECT_FALSE(UserStoreWrite(kKey, {{"", 2}}));
    EXPECT_FALSE(UserStoreWrite(kKey, {{"Fine", 2}, {"Bad=", 3}})) << "all or nothing";
    EXPECT_EQ(Contents(UserStorePath(kKey)), "A=1\n");
}

TEST_F(UserStoreTest, FolderInTheWayFailsQuietly) {
    // A plain file where a folder of the key should be.
    std::filesystem::create_directories(home.path() + "/config/vmc");
    std::ofstream(home.path() + "/config/vmc/registry") << "in the way";
    EXPECT_FALSE(UserStoreWrite(kKey, {{"A", 1}}));
    EXPECT_EQ(Read("A"), -1);
}
