#include "host/linux/linux_profile.h"

#include <vector>

#include "host/linux/temporary_folder.h"

namespace tul {
namespace {

class LinuxProfileTest : public testing::Test {
  protected:
    TemporaryFolder folder;
    const EnvironmentVariable home{"HOME", folder.native().c_str()};
    const EnvironmentVariable settings{"XDG_CONFIG_HOME", nullptr};
    const std::string file = ".config/tul/win.ini";
    LinuxProfile profile;
};

TEST_F(LinuxProfileTest, AValueIsFoundAgainInAnyCaseAndInItsOwnSectionOnly) {
    EXPECT_EQ(profile.read("TUL", "TOP"), "");
    profile.write("TUL", "TOP", "100");
    profile.write("Other", "TOP", "200");
    profile.write("tul", "Left", "30=3");
    profile.write("TUL", "top", "-5");
    EXPECT_EQ(LinuxProfile().read("Tul", "Top"), "-5");
    EXPECT_EQ(profile.read("OTHER", "TOP"), "200");
    EXPECT_EQ(profile.read("TUL", "LEFT"), "30=3");
    EXPECT_EQ(profile.read("Other", "Left"), "");

    const EnvironmentVariable elsewhere("XDG_CONFIG_HOME", folder.native("else").c_str());
    EXPECT_EQ(profile.read("TUL", "TOP"), "");
    profile.write("TUL", "TOP", "7");
    EXPECT_EQ(folder.get("else/tul/win.ini"), "[TUL]\nTOP=7\n");
}

TEST_F(LinuxProfileTest, WhatElseStandsInTheFileStaysWhereItIs) {
    folder.makeFolder(".config/tul");
    folder.put("kept.ini", "; mine\n\n[TUL]\n TOP = 1 \nnot a pair\n\n[Other]\nTOP=2");
    std::filesystem::create_symlink(folder.native("kept.ini"), folder.native(file));
    EXPECT_EQ(profile.read("TUL", "TOP"), "1");
    profile.write("TUL", "TOP", "3");
    profile.write("TUL", "LEFT", "4\r\n[Other]\nTOP=5");
    profile.write("TUL", "a=b", "5");
    profile.write("TUL", "a\nb", "5");
    profile.write("T]", "a", "5");
    EXPECT_EQ(folder.get("kept.ini"), "; mine\n\n[TUL]\nTOP=3\nnot a pair\nLEFT=4\n\n[Other]\nTOP=2\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.native(file)));
}

TEST_F(LinuxProfileTest, WithoutAPlaceForItNothingIsStoredAndNothingBreaks) {
    {
        const EnvironmentVariable nowhere("HOME", nullptr);
        profile.write("TUL", "TOP", "1");
        EXPECT_EQ(profile.read("TUL", "TOP"), "");
    }
    folder.put(".config", "a file in the place of the folder");
    profile.write("TUL", "TOP", "1");
    EXPECT_EQ(profile.read("TUL", "TOP"), "");
    EXPECT_EQ(folder.names(), std::set<std::string>{".config"});
}

}  // namespace
}  // namespace tul
