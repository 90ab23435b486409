#pragma once

#include <string>

/// Takes the bar numbers off each selected page, or hands over to the bar numbering workbench, which sets new
/// ones. A bar number is a number in the font and size that the project settings have for bar numbers.
namespace tul::renumber {

/// Numbers are texts that begin with one.
struct BarOptions {
    bool optRenumBarNone = false;  // take off only
    bool optRenumBarFirst = true;  // number the first bar of a system
    bool optRenumBarEach = false;
    bool optRenumBarEvery = false;
    std::string txtRenumBarEvery = "10";      // bars
    std::string txtRenumBarStart = "1";       // a pickup bar is 0
    std::string txtRenumBarVertDispl = "12";  // Par 4, staff steps; "B": between piano staves
    std::string txtRenumBarHorzDispl = "0";   // Par 15

    bool chkBarCountInvisible = false;
    bool chkBarCountDashed = false;
    bool chkBarMulti = false;
    bool chkBarAfterEnding = false;
    bool chkBarAfterRepeat = false;
    bool chkBarAfterPageMark = false;
    bool chkBarNumberGen1 = false;

    bool chkRenumBarContour = false;
    bool optBarCircle = true;
    bool optBarBox = false;
    std::string txtBarContourThickness = "1";
    bool chkBarCM = false;
    bool chkBarSystemPt1 = false;
};
extern BarOptions barOptions;

/// The removal, with its report, or the workbench.
void RenumberBar();
/// Lists what the removal would do.
void previewBarNumbers();

/// Which bars the project settings want numbered.
void fillBarOptions();

// What the fields keep of a typed text; `present` is what they have. What is refused is told.

std::string keepStep(const std::string& typed);
std::string keepStart(const std::string& typed, const std::string& present);
std::string keepVertical(const std::string& typed, const std::string& present);
std::string keepHorizontal(const std::string& typed, const std::string& present);
std::string keepThickness(const std::string& typed, const std::string& present);

}  // namespace tul::renumber
