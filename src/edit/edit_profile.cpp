#include "edit/edit_profile.h"

#include <array>

#include "base/text.h"
#include "centre/installation.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul::edit {

BracketSettings bracketSettings;

namespace {

struct Entry {
    const char* key;
    std::string BracketSettings::*value;
};

constexpr std::array<Entry, 8> entries = {{
    {"RVBheightLine", &BracketSettings::txtRVBheightLine},
    {"RVBheight", &BracketSettings::txtRVBheight},
    {"RVBdotCorr", &BracketSettings::txtRVBdotCorr},
    {"RVBwidth", &BracketSettings::txtRVBwidth},
    {"RVBhalfOffsetLeft", &BracketSettings::txtRVBhalfOffsetLeft},
    {"RVBhalfOffsetRite", &BracketSettings::txtRVBhalfOffsetRite},
    {"RVBwholeOffsetLeft", &BracketSettings::txtRVBwholeOffsetLeft},
    {"RVBwholeOffsetRite", &BracketSettings::txtRVBwholeOffsetRite},
}};

std::string profilePath() { return inProgramFolder("TULEDIT.PRO"); }

}  // namespace

void saveTulEditProfile() {
    std::string text = "* TulEdit profile created " + dateAndTime(" at ") + std::string(CrLf);
    for (const Entry& entry : entries)
        text += entry.key + ("=" + bracketSettings.*entry.value) + std::string(CrLf);
    if (files().replace(profilePath(), text) != FileError::none) endWith("Failed to create TulEdit profile");
}

void loadTulEditProfile() {
    bracketSettings = {};
    if (!FileExists(profilePath())) saveTulEditProfile();
    const auto lines = readKeyValues(profilePath());
    if (!lines) endWith(profilePath() + " could not be opened for input");
    for (const KeyValue& line : *lines)
        for (const Entry& entry : entries)
            if (line.key == upperCase(entry.key)) bracketSettings.*entry.value = line.value;
}

void viewTulEditProfile() { ViewWithEditor(profilePath()); }

}  // namespace tul::edit
