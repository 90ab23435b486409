#pragma once

/// Renames all selected files into one series.
namespace tul::renumber {

/// The run over the selection, which it reads anew. Whatever can be seen beforehand refuses it before the
/// first file has its new name, and no file is ever written over.
void RenumberFile();

}  // namespace tul::renumber
