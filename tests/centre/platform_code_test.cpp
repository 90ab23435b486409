#include "centre/platform_code.h"

#include "support/test.h"

namespace tul {
namespace {

std::string codeOf(testing::ScriptedHost& host, const PlatformVersion& version) {
    host.version = version;
    getOS();
    return identity.OsCode;
}

TEST(PlatformCode, FollowsTheVersionQuery) {
    testing::ScriptedHost host;
    EXPECT_EQ(codeOf(host, {.platformId = 0}), "32 Microsoft Win32s");
    EXPECT_EQ(codeOf(host, {.platformId = 1, .major = 4, .serviceLetter = 'C'}),
              "95 Microsoft Windows 95 OSR 2");
    EXPECT_EQ(codeOf(host, {.platformId = 1, .major = 4, .minor = 10, .serviceLetter = 'A'}),
              "98 Microsoft Windows 98 SE");
    EXPECT_EQ(codeOf(host, {.platformId = 1, .major = 4, .minor = 90}), "98 Simulated ME");
    EXPECT_EQ(codeOf(host, {.platformId = 2,
                            .major = 4,
                            .build = 1381,
                            .serviceText = "Service Pack 6",
                            .productOptions = "WINNT"}),
              "NT Microsoft Windows NT Professional (Version 4.0 Service Pack 6 Build 1381)");
    EXPECT_EQ(codeOf(host, {.platformId = 2,
                            .major = 5,
                            .minor = 1,
                            .build = 2600,
                            .serviceText = "Service Pack 3",
                            .productType = 1,
                            .suiteMask = 0x200}),
              "XP Microsoft Windows XP Personal (Version Service Pack 3 Build 2600)");
    EXPECT_EQ(codeOf(host, {.platformId = 2, .major = 5, .build = 2195, .productType = 3, .suiteMask = 0x80}),
              "SE2K Microsoft Windows 2000 DataCenter Server (Build 2195)");
    EXPECT_EQ(identity.platformCode(), "SE");
    EXPECT_EQ(codeOf(host, {.platformId = 2, .major = 10, .build = 19045, .productType = 1}),
              "Wx Microsoft Windows 10 Professional (Build 19045)");
    EXPECT_EQ(codeOf(host, {}), "00");
}

TEST(PlatformCode, TellsTheProcessorWhereThePlatformCan) {
    testing::ScriptedHost host;
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
