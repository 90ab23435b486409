#pragma once

#include <sstream>

#include "command/arguments.h"
#include "command/command_run.h"
#include "samples/page_builder.h"
#include "support/test.h"

namespace tul::testing {

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

/// What tulcmd does with these words in the test's folder. `typed` is its input, from a terminal or not.
inline Outcome runTulcmd(const ScriptedHost& host, const Texts& words, const std::string& typed = {},
                         bool terminal = false) {
    command::Arguments arguments;
    const command::ParseResult parsed = command::parseArguments(words, arguments);
    if (!parsed.goOn) return {static_cast<int>(parsed.exitStatus), {}, parsed.text};
    std::ostringstream out;
    std::ostringstream err;
    std::istringstream in(typed);
    const Host machine{.files = &files(),
                       .processes = &processes(),
                       .profile = &profile(),
                       .clock = &clock(),
                       .platform = &platform(),
                       .face = nullptr};
    const int status =
        command::runCommand(arguments, machine, host.folder(),
                            {.out = out, .err = err, .in = in, .canAsk = terminal, .showsProgress = false});
    return {status, out.str(), err.str()};
}

/// An installation behind its first use, and three pages: a good one, one with an item to be asked about, and
/// one that is damaged.
class TulcmdTest : public HostTest {
  protected:
    TulcmdTest() {
        host.install();
        run({"logo", "--press", "mnuNotepad"});  // the settings of first use
        samples::PageBuilder page;
        page.item({8, 1, 0, 0, 1, 200}).item({14, 1, 200, 1});
        host.write("good.mus", page.bytes());
        page.item({13, 1, 0});
        host.write("odd.mus", page.bytes());
        host.write("bad.mus", std::string("\x09\x00\x00\x00", 4));
    }

    Outcome run(const Texts& words, const std::string& typed = {}, bool terminal = false) {
        return runTulcmd(host, words, typed, terminal);
    }
    std::string page(const std::string& name) const { return (host.nativeFolder() / name).string(); }
};

}  // namespace tul::testing
