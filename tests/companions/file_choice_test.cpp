#include "companions/file_choice.h"

#include "companions/names_request.h"
#include "support/test.h"

namespace tul::companion {
namespace {

TEST(NameOrder, CountsNumbersByTheirValue) {
    const Texts ordered = {"10A.MUS",     "page1.MUS",  "PAGE1A.MUS", "PAGE2.MUS",
                           "PAGE002.MUS", "PAGE10.MUS", "PAGE10.PMX", "PAGE100.MUS",
                           "PAGEA.MUS",   "V2-12.MUS",  "V10-2.MUS",  "\xC4.MUS"};
    Texts names = ordered;
    std::reverse(names.begin(), names.end());
    std::sort(names.begin(), names.end(), standsBefore);
    EXPECT_EQ(names[3], "PAGE002.MUS") << "of equal numbers the bytes decide";
    std::swap(names[3], names[4]);
    EXPECT_EQ(names, ordered);
    EXPECT_TRUE(standsBefore("P99999999999999999998", "P99999999999999999999")) << "beyond any number type";
    EXPECT_FALSE(standsBefore("P1", "P1"));
}

class Choosing : public HostTest {
  protected:
    Choosing() {
        for (const char* name : {"PAGE10.MUS", "Page2.mus", "page1.MUS", "NOTES.TXT", "PAGE1.PMX"})
            host.write(name, "1");
    }
    Texts shownNames(const FileChoice& choice) {
        Texts names;
        for (std::size_t row = 0; row < choice.rows(); ++row) names.push_back(choice.name(row));
        return names;
    }
};

TEST_F(Choosing, TakesWhatTheListShowsInItsOrder) {
    FileChoice choice({});
    choice.setSuffix("Mus");
    ASSERT_TRUE(choice.open(host.folder()));
    EXPECT_EQ(shownNames(choice), (Texts{"page1.MUS", "Page2.mus", "PAGE10.MUS"}));
    EXPECT_EQ(choice.chosen(), 0U);
    choice.choose(2, true);
    choice.choose(0, true);
    EXPECT_EQ(choice.chosenPaths(), (Texts{host.path("page1.MUS"), host.path("PAGE10.MUS")}));
    EXPECT_EQ(choice.longestPath(), host.path("PAGE10.MUS"));

    choice.setPart("e1.");
    EXPECT_EQ(choice.chosenPaths(), Texts{host.path("page1.MUS")});
    EXPECT_EQ(choice.hidden(), 1U);
    choice.setPart("mus");
    EXPECT_EQ(choice.rows(), 0U) << "all of them end in it";
    choice.setPart("e1.m");
    EXPECT_EQ(choice.rows(), 1U);
    choice.setPart("e1.");
    choice.setSuffix("");
    EXPECT_EQ(shownNames(choice), (Texts{"page1.MUS", "PAGE1.PMX"}));
    choice.setPart("");
    EXPECT_EQ(choice.chosenPaths(), (Texts{host.path("page1.MUS"), host.path("PAGE10.MUS")}));
    EXPECT_FALSE(choice.open(host.path("none")));
    EXPECT_EQ(choice.rows() + choice.chosen() + choice.hidden(), 0U);
}

TEST_F(Choosing, BeginsWithThePresentSelectionOfItsFolder) {
    host.makeFolder("other");
    host.write("other/PAGE2.MUS", "1");
    host.write("PAGE2.MUS", "differs in letter case only");
    host.write("NAMES.TUL",
               "* mine\r\n\r\n" + crlf({host.path("Page2.mus") + " 1", host.path("PAGE1.PMX") + " 1",
                                        host.path("PAGE10.mus"), host.path("GONE.MUS") + " 1"}));
    FileChoice choice(readNames(host.path("NAMES.TUL")));
    choice.setSuffix("MUS");
    choice.open(host.folder());
    EXPECT_EQ(choice.chosenPaths(), (Texts{host.path("Page2.mus"), host.path("PAGE10.MUS")}));
    EXPECT_EQ(choice.hidden(), 0U) << "what the list does not show at first is not chosen behind it";
    choice.open(host.path("other"));
    EXPECT_EQ(choice.chosen(), 0U);
    EXPECT_EQ(folderAbove(host.path("other")), host.folder());
    EXPECT_EQ(folderAbove("Z:\\other"), "Z:\\");
    EXPECT_EQ(folderAbove("Z:\\"), "");
}

TEST_F(Choosing, LooksFirstWhereItIsToldThenAtTheSelection) {
    const auto folderFor = [&](const std::string& folder) {
        return NamesRequest(ArgumentPairs("STARTDIR=" + host.folder() + ",MUSFOLDER=" + folder +
                                          ",NAMESFILE=NAMES.TUL"))
            .folder;
    };
    EXPECT_EQ(folderFor(""), host.folder());
    host.makeFolder("other");
    writeNames({"other\\A.MUS"});
    EXPECT_EQ(folderFor(""), host.path("other"));
    EXPECT_EQ(folderFor(host.path("none")), host.path("other"));
    EXPECT_EQ(folderFor(host.folder()), host.path("other")) << "nobody has set it";
    EXPECT_EQ(folderFor("Z:\\"), "Z:\\");
}

TEST_F(Choosing, WarnsOfPathsThatTheProjectFindsTooLong) {
    EXPECT_EQ(pathWarning("C:\\SCORES\\SONATA\\PAGE1.M"), "");  // 24
    EXPECT_EQ(pathWarning("C:\\SCORES\\SONATA\\PAGE1.MU"),
              "A path has 25 characters, more than 24: C:\\SCORES\\SONATA\\PAGE1.MU");
    EXPECT_FALSE(warnsOfLongPaths(host.folder()));
    host.write("TULPROJ.PRO", "WarnOnPathLength=1\r\n");
    EXPECT_TRUE(warnsOfLongPaths(host.folder()));
    host.write("TULPROJ.PRO", "WarnOnPathLength=0\r\n");
    EXPECT_FALSE(warnsOfLongPaths(host.folder()));
}

}  // namespace
}  // namespace tul::companion
