#pragma once

namespace tul {

/// Runs when there is no control file: writes one in which no music program is linked. The questions that
/// link them come with the settings; until then the user enters their paths into TULCNTRL.INI. Ends the
/// program when the file cannot be written.
void FirstUse();

}  // namespace tul
