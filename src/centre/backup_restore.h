#pragma once

/// The backup generations of the whole selection: what there is, and the way back to the most recent one.
namespace tul {

/// Puts the most recent generation of every selected file in the file's place; the generation is used up by
/// it. Asks first; refuses where the files do not all have the same generations. Where it stops in the
/// middle, the files done so far stay done.
void cmdCycle();

/// Writes which generations each selected file has into TULWORK.PRN, shows it and deletes it.
void cmdLogoBackupStatus();

}  // namespace tul
