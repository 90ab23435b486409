#include "music/backup.h"

#include "support/test.h"

namespace tul {
namespace {

TEST(BackupSeries, IsNamedUpToTheFirstFullStop) {
    EXPECT_EQ(backupSeriesOf("C:\\Music\\Foo.mus").path('U'), "C:\\Music\\FOO.BKU");
    EXPECT_EQ(backupSeriesOf("C:\\A.B\\song.v2.mus").path('Z'), "C:\\A.B\\SONG.BKZ");
    EXPECT_EQ(backupSeriesOf("C:\\A\\song.v2.mus").extension, ".V2.MUS");
    EXPECT_EQ(backupSeriesOf("C:\\A.B\\plain").path('V'), "C:\\A.B\\PLAIN.BKV");
    EXPECT_TRUE(isBackupSuffix(".BKU"));
    EXPECT_FALSE(isBackupSuffix(".BKT"));
    EXPECT_FALSE(isBackupSuffix(".BKUU"));
}

using TakingABackup = HostTest;

TEST_F(TakingABackup, FillsTheLowestFreeGeneration) {
    host.write("page.mus", "music");
    host.write("PAGE.BKU", "u");
    host.write("page.bkw", "w");
    EXPECT_TRUE(TakeBackup(host.path("page.mus")));
    EXPECT_EQ(host.read("PAGE.BKV"), "music");
    EXPECT_EQ(backupSeriesOf(host.path("page.mus")).letters(), "UVW");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(TakeBackup(host.path("page.mus")));
    EXPECT_EQ(endOf([&] { return TakeBackup(host.path("page.mus")); }), 1);
    EXPECT_EQ(host.messages, Texts{"The maximum number of backups exists. Use Explore to "
                                   "remove old generations."});
    EXPECT_EQ(host.read("PAGE.BKU"), "u");
    EXPECT_EQ(host.read("page.bkw"), "w");
}

TEST_F(TakingABackup, OfABackupEndsTheProgram) {
    host.write("page.bku", "music");
    EXPECT_EQ(host.fatal([&] { return TakeBackup(host.path("page.bku")); }),
              "Invalid suffix in filename [" + host.path("page.bku") +
                  "].\r\nBackup files may not be used as input when editing with the backup feature.");
}

TEST_F(TakingABackup, ThatFailsIsToldWithItsReason) {
    const auto expectFailure = [this](const std::string& reason) {
        EXPECT_FALSE(TakeBackup(host.path("PAGE.MUS")));
        EXPECT_EQ(host.messages.back(),
                  "Failed to take backup copy of file " + host.path("PAGE.MUS") + reason);
    };
    expectFailure(" Error code = 53");
    host.write("PAGE.MUS", "music");
    host.makeFolder("PAGE.BKU");  // there, but not to be opened: it is not overwritten
    expectFailure(" Error code = 58");
    host.faultyFiles().refusals["PAGE.BKU"] = FileError::diskFull;
    expectFailure(". Drive full.");
}

}  // namespace
}  // namespace tul
