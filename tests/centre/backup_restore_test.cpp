#include "centre/backup_restore.h"

#include "support/test.h"

namespace tul {
namespace {

class BackupRestore : public HostTest {
  protected:
    void write(const Texts& names) {
        for (const std::string& name : names) host.write(name, name);
    }
    /// As the names file has it: the folder in upper case too.
    std::string folder() const { return upperCase(host.folder()) + "\\"; }
};

TEST_F(BackupRestore, GoesOneGenerationBackEachTime) {
    write({"A.MUS", "A.BKU", "A.BKV", "b.mus", "B.BKU", "B.BKV"});
    writeNames({"A.MUS", "b.mus"});
    const std::string details = stamp("A.BKV");
    host.answers = {Answer::yes, Answer::yes};
    cmdCycle();
    ASSERT_EQ(host.messages.size(), 2U);
    EXPECT_EQ(host.messages[0],
              "The current group of selected files has 2 name(s)\r\n"
              "The most recent backup for this group appears to have suffix .BKV\r\n"
              "Do you want to replace the current group by the files with this suffix?\r\n\r\n"
              "First file's backup details:\r\n" +
                  folder() + "A.BKV - " + details);
    EXPECT_EQ(host.messages[1], "Successfully restored 2 file(s)");
    EXPECT_EQ(host.read("A.MUS"), "A.BKV");
    EXPECT_EQ(host.read("b.mus"), "B.BKV");
    EXPECT_FALSE(host.exists("A.BKV"));
    cmdCycle();
    EXPECT_EQ(host.read("b.mus"), "B.BKU");
    cmdCycle();
    EXPECT_EQ(host.messages.back(), "There is no backup for the current group of 2 file(s).");
}

TEST_F(BackupRestore, OnlyANoKeepsTheFiles) {
    write({"A.MUS", "A.BKU"});
    writeNames({"A.MUS"});
    host.answers = {Answer::no, Answer::cancel};
    cmdCycle();
    EXPECT_EQ(host.read("A.MUS"), "A.MUS");
    EXPECT_EQ(host.messages.size(), 1U);
    cmdCycle();
    EXPECT_EQ(host.read("A.MUS"), "A.BKU");
}

TEST_F(BackupRestore, RefusesGroupsThatDoNotGoTogether) {
    write({"A.MUS", "A.BKU", "A.BKV", "B.MUS", "B.BKV", "B.BKW", "C.MUS"});
    const std::string unequal =
        "Unequal number of backup generations in this group of files.\r\n"
        "Restore cannot be done automatically.";
    for (const auto& names : {Texts{"A.MUS", "B.MUS"}, {"A.MUS", "C.MUS"}}) {
        writeNames(names);
        cmdCycle();
        EXPECT_EQ(host.messages.back(), unequal);
    }
    writeNames({"A.MUS", "A.BKU"});
    cmdCycle();
    EXPECT_EQ(host.messages.back(),
              "Names file should not have backup file(s). Ignored file: " + upper("A.BKU"));
    host.write("NAMES.TUL", "");
    cmdCycle();
    EXPECT_EQ(host.messages.back(), "There is no backup for the current group of 0 file(s).");
    EXPECT_EQ(host.read("A.MUS"), "A.MUS");
}

TEST_F(BackupRestore, StopsWhereAFileCannotBeReplacedAndLosesNone) {
    write({"A.MUS", "A.BKU", "B.MUS", "B.BKU"});
    writeNames({"A.MUS", "B.MUS"});
    host.makeReadOnly("B.MUS");
    host.answers = {Answer::yes};
    cmdCycle();
    EXPECT_EQ(host.messages.back(), "An error occurred during restore (Erase). Results unpredicatable");
    EXPECT_EQ(host.read("A.MUS"), "A.BKU") << "what is done stays done";
    EXPECT_EQ(host.read("B.MUS"), "B.MUS");
    EXPECT_EQ(host.read("B.BKU"), "B.BKU");
}

TEST_F(BackupRestore, GoesThroughALinkToThePageItself) {
    host.makeFolder("scores");
    write({"scores/page", "A.BKU"});
    std::error_code failure;
    fs::create_symlink("scores/page", host.nativeFolder() / "A.MUS", failure);
    if (failure) GTEST_SKIP() << "this machine makes no symbolic links";
    writeNames({"A.MUS"});
    host.answers = {Answer::yes};
    cmdCycle();
    EXPECT_EQ(host.read("scores/page"), "A.BKU");
    EXPECT_TRUE(fs::is_symlink(host.nativeFolder() / "A.MUS"));
}

TEST_F(BackupRestore, FilesThatShareASeriesCannotBothGoBack) {
    write({"A.MUS", "A.PMX", "A.BKU"});
    writeNames({"A.MUS", "A.PMX"});
    host.answers = {Answer::yes};
    cmdCycle();
    EXPECT_EQ(host.messages.back(), "An error occurred during restore (Rename). Results unpredicatable");
    EXPECT_EQ(host.read("A.MUS"), "A.BKU");
    EXPECT_EQ(host.read("A.PMX"), "A.PMX");
}

TEST_F(BackupRestore, StatusNamesEveryGeneration) {
    write({"long.v2.mus", "LONG.BKU", "LONG.BKW", "b.mus", "B.BKZ", "c.mus"});
    writeNames({"long.v2.mus", "b.mus", "c.mus", "b.bkz"});
    cmdLogoBackupStatus();
    ASSERT_EQ(host.shown.size(), 1U);
    const std::size_t nameLength = folder().size() + 22;
    const auto count = [&](std::size_t name, const std::string& text) {
        return std::string(nameLength + name, ' ') + text;
    };
    EXPECT_EQ(
        host.shown[0],
        lines("Backup status . . . . . . . 11-21-2026 09:05:07|NAMES.TUL path  . . . . . . " +
              host.path("NAMES.TUL") + "|Creation date . . . . . . . " + stamp("NAMES.TUL") +
              "|Number of names in file . . 4 | |" + folder() + "LONG.V2.MUS - " + stamp("long.v2.mus") +
              "|" + folder() + "LONG.BKU - " + stamp("LONG.BKU") + "|" + folder() + "LONG.BKW - " +
              stamp("LONG.BKW") + "|" + count(11, "2 backups") + "| |" + folder() + "B.MUS - " +
              stamp("b.mus") + "|" + folder() + "B.BKZ - " + stamp("B.BKZ") + "|" + count(5, "1 backup") +
              "| |" + folder() + "C.MUS - " + stamp("c.mus") + "|" + count(5, "No backups") + "| |" +
              "Names file should not have backup file(s). Ignored file: " + folder() + "B.BKZ| |" +
              "Total number of backup files: 3| |"
              "To restore backed up files automatically, press the small button on the right.|"
              "The most recent backup will be taken (.BKV is assumed more recent than .BKU, etc.).| |"
              "To restore backed up files manually, erase the most recent version, then select the|"
              "*.BK? files to be restored and use TulRenum to rename/renumber them."));
    EXPECT_FALSE(host.exists("TULWORK.PRN"));
}

TEST_F(BackupRestore, StatusWithoutASelectionAndWithoutAReport) {
    cmdLogoBackupStatus();
    EXPECT_TRUE(contains(host.shown[0],
                         "\r\n(File not existing - status cannot be provided without selected filenames)"
                         "\r\n \r\nTotal number of backup files: 0\r\n"));
    host.faultyFiles().refusals["TULWORK.PRN"] = FileError::permissionDenied;
    EXPECT_EQ(host.fatal(cmdLogoBackupStatus), "Failed to open " + host.path("TULWORK.PRN") + " for output");
}

}  // namespace
}  // namespace tul
