#include "music/bar_file.h"

#include <cmath>
#include <numeric>
#include <utility>

#include "base/numbers.h"
#include "host/host.h"
#include "music/item_table.h"
#include "music/pipeline.h"
#include "shared/records.h"

namespace tul {

std::vector<BarText> barTexts;

namespace {

constexpr float longestBarRest = -2.0F;       // Par 5 of a rest that counts for bars
constexpr float highestTextPosition = 10.0F;  // staff steps
constexpr char sharpS = '\xDF';
constexpr int highestStaff = 32;
constexpr float highestPlainBarline = 7.0F;
constexpr float leftEndMargin = 1.0F;  // SCORE's horizontal units

bool hasSizeAndFont(const std::string& size, const std::string& font) {
    return musItem.MusPar[6] == static_cast<float>(numericValue(size)) &&
           musItem.MusPar[7] == static_cast<float>(numericValue(font));
}

bool isPageOrBarNumber() {
    return hasSizeAndFont(projectSettings.BarNumberSize, projectSettings.BarNumberFont) ||
           hasSizeAndFont(projectSettings.PageNumberSize, projectSettings.PageNumberFont);
}

void storeText() {
    const float height = musItem.MusPar[4];
    if (!(height > 0.0F && height < highestTextPosition)) return;
    if (musItem.MusText.find("ossia") != std::string::npos) return;
    FixQuestionEscapes();
    // A number that is no staff's belongs to none.
    barTexts.push_back({.staff = toInt16(musItem.MusPar[2]).value_or(0),
                        .position = musItem.MusPar[3],
                        .text = musItem.MusText});
}

void storeBarItem() {
    const float code = musItem.MusPar[1];
    if (code == 8.0F || code == 14.0F || (code == 10.0F && isPageOrBarNumber()) ||
        (code == 2.0F && musItem.MusPar[5] <= longestBarRest))
        MusStoreBarItem();
    if (code == 16.0F) storeText();
}

bool mustBeExchanged(const ItemRow& first, const ItemRow& second) {
    if (first.pars[2] == second.pars[2]) return first.pars[3] > second.pars[3];
    return first.pars[2] < second.pars[2];
}

/// Marks the barlines of a staff and returns the number of staves that its system has from it upwards.
float markBarlines(const Parameters& staff) {
    float width = 0.0F;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        Parameters& barline = musItemTable[item].pars;
        if (barline[1] != 14.0F || barline[2] != staff[2]) continue;
        if (barline[5] <= highestPlainBarline && std::fabs(staff[3] - barline[3]) <= leftEndMargin)
            barline[20] = 1.0F;
        if (barline[5] > highestPlainBarline) barline[20] = -1.0F;
        if (barline[4] > width) width = static_cast<float>(roundToEven(barline[4]));
    }
    return width == 0.0F ? 1.0F : width;
}

}  // namespace

void MusStoreBarFile(BarReader reader) {
    musItemTable.itemCount = 0;
    barTexts.clear();
    MusOpen(currentPath(), musReader.MusWordCount);
    for (;;) {
        MusNextItem();
        if (musReader.MusReadState == musStructuralError) tellStructuralError();
        if (musReader.MusReadState != musItemReady) break;
        if (reader != BarReader::other) showReading();
        yieldToEvents();
        storeBarItem();
    }
    MusClose();
}

void FixQuestionEscapes() {
    std::string fixed;
    for (const char character : musItem.MusText) {
        const bool isEscaped = fixed.ends_with('?');
        if (character == 's' && isEscaped) {
            fixed.back() = sharpS;
            continue;
        }
        // The hyphen that comes out may be escaped in its turn.
        if (character == '-')
            while (fixed.ends_with('?')) fixed.pop_back();
        fixed += character;
    }
    musItem.MusText = std::move(fixed);
}

void SortItemTable() {
    // Neighbours are exchanged, and not merged, so that rows without a number for a position stay where they
    // keep their neighbours apart; what moves are the rows' numbers only.
    std::vector<int> order(static_cast<std::size_t>(musItemTable.itemCount));
    std::iota(order.begin(), order.end(), 1);
    bool exchanged = true;
    while (exchanged) {
        exchanged = false;
        for (std::size_t i = 1; i < order.size(); ++i) {
            if (!mustBeExchanged(musItemTable[order[i - 1]], musItemTable[order[i]])) continue;
            std::swap(order[i - 1], order[i]);
            exchanged = true;
        }
    }
    std::vector<ItemRow> sorted;
    sorted.reserve(order.size());
    for (const int item : order) sorted.push_back(std::move(musItemTable[item]));
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        musItemTable[item] = std::move(sorted[static_cast<std::size_t>(item - 1)]);
}

void MarkStaffBarlines() {
    for (double staff = 1; staff <= highestStaff; ++staff) {
        double width = 0;
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            Parameters& row = musItemTable[item].pars;
            if (row[1] != 8.0F || row[2] != static_cast<float>(staff)) continue;
            row[20] = 1.0F;
            row[19] = markBarlines(row);
            width = row[19];
        }
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            Parameters& row = musItemTable[item].pars;
            if (row[1] == 10.0F && row[5] == 0.0F) row[5] = 1.0F;
        }
        if (width > 0) staff += width - 1;
    }
}

}  // namespace tul
