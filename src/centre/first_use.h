#pragma once

namespace tul {

/// Runs when there is no control file: a fixed series of questions that finds the music programs of this
/// machine, and then writes the file. It either returns with the file written or ends the program with
/// nothing written and the old selection in its place, so that the next start asks again.
void FirstUse();

/// Shows the warranty text.
void showDisclaimer();

}  // namespace tul
