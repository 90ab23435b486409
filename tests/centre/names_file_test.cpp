#include "centre/names_file.h"

#include "centre/launching.h"
#include "support/test.h"

namespace tul {
namespace {

class NamesFile : public HostTest {
  protected:
    NamesFile() {
        for (const char* page : {"one.mus", "second.mus", "three.mus"}) host.write(page, "page");
    }

    void readNames(const std::string& text) {
        host.write("NAMES.TUL", text);
        ReadNamesFile();
    }
    void expectDiscarded(const std::string& text, const std::string& start) {
        host.forget();
        readNames(text);
        ASSERT_EQ(host.messages.size(), 1U);
        EXPECT_TRUE(host.messages[0].starts_with(start)) << host.messages[0];
        EXPECT_EQ(host.shown.size(), 1U);
        EXPECT_FALSE(host.exists("NAMES.TUL"));
        EXPECT_EQ(selection.SelectionCount, 0);
        EXPECT_FALSE(selection.SelectionValid);
    }
};

TEST_F(NamesFile, IsReadWhateverItsLineEndsAndLetterCase) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        readNames("* a comment" + end + end + " another" + end + host.path("One.Mus") + "   1  " + end +
                  host.path("SECOND.mus") + " 1" + end + host.path("three.MUS") + " 1");
        EXPECT_TRUE(selection.SelectionValid);
        ASSERT_EQ(selection.SelectionCount, 3);
        EXPECT_EQ(selection.SelectionNames[1], upper("ONE.MUS"));
        EXPECT_EQ(selection.SelectionNames[3], upper("THREE.MUS"));
        EXPECT_EQ(selection.LongestName, upper("SECOND.MUS"));
        EXPECT_EQ(selection.SelectionPrefix, upper(""));
        EXPECT_TRUE(host.messages.empty());
    }
}

TEST_F(NamesFile, WithoutNamesIsNoSelectionAndNoMessage) {
    ReadNamesFile();
    EXPECT_FALSE(selection.SelectionValid);
    for (const char* text : {"", "* only\r\n comments\r\n", "\r\n\r\n"}) {
        readNames(text);
        EXPECT_FALSE(selection.SelectionValid);
        EXPECT_EQ(selection.SelectionCount, 0);
        EXPECT_TRUE(host.exists("NAMES.TUL"));
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(NamesFile, WithoutTheTerminatorIsToldAndTaken) {
    readNames(host.path("one.mus") + "\r\n" + host.path("three.mus") + " 1\r\n");
    EXPECT_EQ(selection.SelectionCount, 2);
    EXPECT_TRUE(selection.SelectionValid);
    EXPECT_EQ(host.messages,
              Texts{"Filename [" + upper("ONE.MUS") +
                    "] in Names file not terminated by ' 1'. Hit enter to continue (Assumed correct)."});
}

TEST_F(NamesFile, ThatCannotBeASelectionIsDiscarded) {
    host.makeFolder("sub");
    host.write("sub/one.mus", "page");
    const std::string one = host.path("one.mus") + " 1";
    expectDiscarded(crlf({one, host.path("sub\\one.mus") + " 1"}),
                    "Names in Names file do not all have the same path prefix.");
    expectDiscarded("one.mus 1\r\n", "Invalid record format in Names file.");
    expectDiscarded(crlf({one, host.path("gone.mus") + " 1"}),
                    "Name in Names file [" + upper("GONE.MUS") + "] refers to non-existing");
    expectDiscarded("a:\\gone.mus 1\r\n", "Name in names file [A:\\GONE.MUS] refers to non-existing");
    expectDiscarded(host.path("sub") + " 1\r\n", "Name in Names file [");
    expectDiscarded(host.path(std::string("one\0.mus", 8)) + " 1\r\n", "Name in Names file [");
}

TEST_F(NamesFile, StatusCountsAllThreeListsAndDeletesStaleOnes) {
    host.write("one.eps", "eps");
    writeNames({"one.mus"});
    host.write("NAMESEPS.TUL", crlf({host.path("one.eps") + "   1"}));
    host.write("NAMESXML.TUL", crlf({host.path("one.xml") + " 1", host.path("one.eps") + " 1"}));
    showNamesStatus();
    EXPECT_EQ(host.messages, Texts{crlf({"1 name(s) in " + host.path("NAMES.TUL"),
                                         "1 name(s) in " + host.path("NAMESEPS.TUL"),
                                         "1 name(s) in " + host.path("NAMESXML.TUL")})});
    EXPECT_TRUE(host.exists("NAMESEPS.TUL"));
    EXPECT_FALSE(host.exists("NAMESXML.TUL"));
}

TEST_F(NamesFile, ComesFromTheSelectionProgram) {
    std::string tip = "as before";
    SelectFiles("Select Score music file(s)", tip);
    EXPECT_TRUE(host.launches.empty()) << "a missing program is not started";
    EXPECT_EQ(tip, "as before") << "nothing selected leaves the tip";

    projectSettings.PreferedSuffix = "MUS";
    projectSettings.MusDirectory = "Z:\\MUSIC";
    host.write("TULNAMES.EXE", "x");
    host.mayRun("TULNAMES.EXE", [this] { writeNames({"one.mus"}); });
    SelectFiles("Select Score music file(s)", tip);
    EXPECT_EQ(host.events, (Texts{"hide", "launch " + host.path("TULNAMES.EXE"), "show"}));
    EXPECT_EQ(host.launches.at(0),
              host.path("TULNAMES.EXE") + " STARTDIR=" + host.folder() +
                  ",SUFFIX=MUS,MUSFOLDER=Z:\\MUSIC,NAMESFILE=NAMES.TUL,DEBUG=NO,MSG=Select Score "
                  "music file(s)");
    EXPECT_EQ(tip, "Names file NAMES.TUL has one filename: " + upper("ONE.MUS"));
    SelectFiles("", tip);
    EXPECT_TRUE(host.launches[1].ends_with(",DEBUG=NO"));
}

TEST_F(NamesFile, ComesFromDroppedFiles) {
    host.write("TULOLE.EXE", "x");
    host.mayRun("TULOLE.EXE", [this] { writeNames({"one.mus", "three.mus"}); });
    std::string tip;
    DropFiles({"Z:\\B.MUS", "Z:\\A.MUS"}, tip);
    ASSERT_EQ(host.launches.size(), 1U);
    EXPECT_EQ(host.launches[0], "TULOLE.EXE STARTDIR=" + host.folder() +
                                    ",NAMESFILE=NAMES.TUL,DEBUG=NO,TYPE=MUS,LIST=Z:\\B.MUS,Z:\\A.MUS,");
    EXPECT_EQ(tip, "Names file NAMES.TUL has 2 filenames, the first: " + upper("ONE.MUS"));
    host.programs.clear();  // found, but it does not start
    DropFiles({"Z:\\A.MUS"}, tip);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_TRUE(contains(host.messages[0], "Call to TULOLE.EXE causes error: not found\r\nUsually this"));
    EXPECT_EQ(selection.SelectionCount, 2) << "the selection stays";
}

TEST_F(NamesFile, IsShownAndReadAgain) {
    std::string tip;
    EXPECT_EQ(testing::endOf([&] { ViewNamesFile(tip); }), 1);
    EXPECT_EQ(host.messages.back(),
              host.path("NAMES.TUL") + " creation failed. Programming error. Hit OK to abort");
    writeNames({"one.mus"});
    ViewNamesFile(tip);
    EXPECT_EQ(host.shown.size(), 1U);
    EXPECT_EQ(selection.SelectionCount, 1);
}

TEST_F(NamesFile, AFolderIsTheLastLineThatIsNoComment) {
    EXPECT_EQ(SelectFolder("Select AFM folder"), "");
    host.write("TULFOLDR.TUL", "* chosen\r\nZ:\\ONE\r\n\r\nZ:\\TWO  \r\n* end\r\n");
    host.write("TULFOLDR.EXE", "x");
    host.mayRun("TULFOLDR.EXE");
    EXPECT_EQ(SelectFolder("Select AFM folder"), "Z:\\TWO");
    EXPECT_EQ(host.events, (Texts{"wait", "hide", "launch TULFOLDR.EXE", "show", "ready"}));
    EXPECT_EQ(host.launches.back(), "TULFOLDR.EXE REMARK=Select AFM folder,STARTDIR=" + host.folder() +
                                        ",FILE=TULFOLDR.TUL,DEBUG=NO");
}

}  // namespace
}  // namespace tul
