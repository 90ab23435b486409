#pragma once

#include <string>

/// Takes the page number off each selected page and sets a new one, counted or taken from the file's name. A
/// page number is a number in the font and size that the project settings have for page numbers.
namespace tul::renumber {

/// Numbers are texts that begin with one.
struct PageOptions {
    bool optRenumBegin = true;  // count on from `txtRenumBeginPage`
    std::string txtRenumBeginPage = "1";
    bool optRenumFromFile = false;       // the digits at the end of the file's name
    std::string txtRenumModified = "0";  // added to either

    bool optRenumTop = true;  // the highest staff carries the number
    bool optRenumBottom = false;
    bool chkStaff1 = false;                       // the lowest staff carries it, but as at the top
    std::string txtRenumPageDisplacement = "15";  // Par 4, staff steps

    bool optRenumCenter = false;
    std::string txtRenumHorzCenter = "100";  // Par 3, as all positions here
    bool optRenumSide = true;
    std::string txtRenumHorzLeft = "4";   // of even numbers
    std::string txtRenumHorzRite = "HS";  // of odd ones; "HS": by the number of digits
};
extern PageOptions pageOptions;

/// The run over the selection with its report.
void RenumberPage();
/// Lists what the run would do.
void previewPageNumbers();

/// Where the project settings want page numbers.
void fillPageOptions();

// What the fields keep of a typed text. What is refused is told.

std::string keepBeginPage(const std::string& typed);
std::string keepCenter(const std::string& typed);
std::string keepLeft(const std::string& typed);
std::string keepRight(const std::string& typed);

}  // namespace tul::renumber
