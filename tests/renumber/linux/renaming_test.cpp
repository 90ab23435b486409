#include "support/test.h"

namespace tul::renumber {
namespace {

/// What only a disk has that tells letter cases apart, and has links.
class RenamingOnLinux : public PanelTest {
  protected:
    std::string refusal(const Texts& names) {
        writeNames(names);
        takeDefaultOptions();
        open("renum");
        host.answers = {Answer::ok};
        panel.press("cmdRenumRun");
        EXPECT_EQ(host.read("song.mus"), "page");
        EXPECT_FALSE(host.exists("NEWNAM01.MUS"));
        return host.messages.back();
    }
};

TEST_F(RenamingOnLinux, ReachesOneFileByOneName) {
    host.write("song.mus", "page");
    fs::create_symlink("song.mus", host.nativeFolder() / "link.mus");
    EXPECT_TRUE(contains(refusal({"song.mus", "link.mus"}), upper("song.mus") + " and " + upper("link.mus") +
                                                                " lead to one and the same file."));
    fs::create_symlink("nowhere", host.nativeFolder() / "newnam01.mus");
    EXPECT_TRUE(contains(refusal({"song.mus"}), "NEWNAM01.MUS already exists."));
    host.write("SONG.MUS", "another page");
    host.remove("newnam01.mus");
    EXPECT_TRUE(contains(refusal({"song.mus"}), "There are files that differ from " + upper("song.mus")));
}

}  // namespace
}  // namespace tul::renumber
