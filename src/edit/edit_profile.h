#pragma once

#include <string>

/// TULEDIT.PRO: what the general edit tool keeps from one use to the next.
namespace tul::edit {

/// Where brackets of Renaissance vocal music stand beside their notes. Numbers as texts.
struct BracketSettings {
    std::string txtRVBheightLine = "14.0";
    std::string txtRVBheight = "-1.0";
    std::string txtRVBdotCorr = "0.6";
    std::string txtRVBwidth = "1.0";
    std::string txtRVBhalfOffsetLeft = "-2.0";
    std::string txtRVBhalfOffsetRite = "4.0";
    std::string txtRVBwholeOffsetLeft = "-.5";
    std::string txtRVBwholeOffsetRite = "2.5";
};
extern BracketSettings bracketSettings;

/// Writes the profile. Ends the program when that fails.
void saveTulEditProfile();
/// Fills the settings from the profile, which is first written where there is none. Values are taken as they
/// stand, and those that it lacks are the first ones. Ends the program when it cannot be read.
void loadTulEditProfile();
/// Shows the profile in the editor.
void viewTulEditProfile();

}  // namespace tul::edit
