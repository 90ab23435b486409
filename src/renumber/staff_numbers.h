#pragma once

/// Closes the gaps in the staff numbers of each selected page, and numbers its instrument ids from the top.
namespace tul::renumber {

/// The staves that a page has staff items for become 1, 2, 3 and so on. What stands on another staff is
/// deleted, and all vertical staff distances become 0.
void RenumberStaff();
/// Lists what that would do.
void previewStaffNumbers();

/// The last staff item of a page gets instrument id 1, the one before it 2, and so on.
void cmdRenumberParts();

}  // namespace tul::renumber
