#include "centre/platform_code.h"

#include "support/test.h"

namespace tul {
namespace {

using PlatformCode = HostTest;

TEST_F(PlatformCode, FollowsTheVersionQuery) {
    for (const auto& [version, code] : std::vector<std::pair<PlatformVersion, std::string>>{
             {{0}, "32 Microsoft Win32s"},
             {{1, 4, 0, 0, "", 'C'}, "95 Microsoft Windows 95 OSR 2"},
             {{1, 4, 10, 0, "", 'A'}, "98 Microsoft Windows 98 SE"},
             {{1, 4, 90}, "98 Simulated ME"},
             {{2, 4, 0, 1381, "Service Pack 6", ' ', 0, 0, "WINNT"},
              "NT Microsoft Windows NT Professional (Version 4.0 Service Pack 6 Build 1381)"},
             {{2, 5, 1, 2600, "Service Pack 3", ' ', 1, 0x200},
              "XP Microsoft Windows XP Personal (Version Service Pack 3 Build 2600)"},
             {{2, 10, 0, 19045, "", ' ', 1}, "Wx Microsoft Windows 10 Professional (Build 19045)"},
             {{}, "00"},
             {{2, 5, 0, 2195, "", ' ', 3, 0x80},
              "SE2K Microsoft Windows 2000 DataCenter Server (Build 2195)"}}) {
        host.version = version;
        getOS();
        EXPECT_EQ(identity.OsCode, code);
    }
    EXPECT_EQ(identity.platformCode(), "SE");
}

TEST_F(PlatformCode, TellsTheProcessorWhereThePlatformCan) {
    for (const auto& [architecture, bits] : {std::pair<std::optional<int>, std::string>{std::nullopt, "00"},
                                             {architectureX64, "64"},
                                             {architectureItanium, "64"},
                                             {0, "32"}}) {
        host.architecture = architecture;
        getOS();
        EXPECT_EQ(identity.ProcessorBits, bits);
    }
}

}  // namespace
}  // namespace tul
