#pragma once

#include "support/test.h"

namespace tul::testing {

/// The built programs in an installation folder of their own, to be run as processes without a display.
class InstallationTest : public HostTest {
  protected:
    InstallationTest() {
        for (const char* name : {"TULOLE.EXE", "TULMONIT.EXE", "TULNAMES.EXE", "TULFOLDR.EXE", "TULRECOV.EXE",
                                 "TULSCORE.EXE", "TULSKORE.EXE"})
            fs::create_symlink(fs::path(TUL_COMPANION_FOLDER) / name, home / name);
        // A copy: the program takes the folder in which it truly lies for its installation.
        fs::copy(fs::path(TUL_PROGRAM_FOLDER) / "TULCMD.EXE", home / "TULCMD.EXE");
        host.write("TULCNTRL.HLP", "help");
        setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "TUL_TALK"})
            unsetenv(display);
    }

    const fs::path home = host.nativeFolder();
};

}  // namespace tul::testing
