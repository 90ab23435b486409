#include "music/bar_file.h"

#include <numeric>
#include <utility>

#include "base/numbers.h"
#include "host/host.h"
#include "music/items.h"
#include "music/number_look.h"
#include "music/pipeline.h"

namespace tul {

std::vector<BarText> barTexts;

namespace {

constexpr float longestBarRest = -2.0F;       // form of a rest that counts for bars
constexpr float highestTextPosition = 10.0F;  // staff steps
constexpr char sharpS = '\xDF';
constexpr float highestPlainBarline = 7.0F;
constexpr Margin leftEnd = atMost(1.0F);

void storeText() {
    const float height = musItem.MusPar[par::height];
    if (!(height > 0.0F && height < highestTextPosition)) return;
    if (musItem.MusText.find("ossia") != std::string::npos) return;
    FixQuestionEscapes();
    // A number that is no staff's belongs to none.
    barTexts.push_back({.staff = toInt16(musItem.MusPar[par::staff]).value_or(0),
                        .position = musItem.MusPar[par::position],
                        .text = musItem.MusText});
}

void storeBarItem() {
    const Parameters& pars = musItem.MusPar;
    if (isStaff(pars) || isBarline(pars) ||
        (isNumber(pars) && (barNumberLook().isOf(pars) || pageNumberLook().isOf(pars))) ||
        (isRest(pars) && pars[par::restForm] <= longestBarRest))
        MusStoreBarItem();
    if (isText(pars)) storeText();
}

bool mustBeExchanged(const ItemRow& first, const ItemRow& second) {
    if (onSameStaff(first, second)) return first.pars[par::position] > second.pars[par::position];
    return first.pars[par::staff] < second.pars[par::staff];
}

/// Marks the barlines of a staff and returns the number of staves that its system has from it upwards.
float markBarlines(const Parameters& staff) {
    float width = 0.0F;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        Parameters& barline = musItemTable[item].pars;
        if (!isBarline(barline) || !onSameStaff(barline, staff)) continue;
        const float form = barline[par::barlineForm];
        if (form <= highestPlainBarline && samePlace(staff, barline, leftEnd)) barline[par::mark] = 1.0F;
        if (form > highestPlainBarline) barline[par::mark] = -1.0F;
        if (barline[par::stavesUp] > width) width = rounded(barline[par::stavesUp]);
    }
    return width == 0.0F ? 1.0F : width;
}

}  // namespace

void MusStoreBarFile(BarReader reader) {
    musItemTable.itemCount = 0;
    barTexts.clear();
    pipeline.page.reading = Reading::broken;
    MusOpen(currentPath(), musReader.MusWordCount);
    if (!musReader.isOpen) pipeline.page.reason = "could not be read";
    for (;;) {
        MusNextItem();
        if (musReader.MusReadState == musStructuralError) tellStructuralError();
        if (musReader.MusReadState != musItemReady) break;
        if (reader != BarReader::other) showReading();
        yieldToEvents();
        storeBarItem();
    }
    pipeline.page.reading = readingSoFar();
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
            if (!isStaff(row) || row[par::staff] != static_cast<float>(staff)) continue;
            row[par::mark] = 1.0F;
            row[par::systemStaves] = markBarlines(row);
            width = row[par::systemStaves];
        }
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            Parameters& row = musItemTable[item].pars;
            if (isNumber(row) && row[par::numberValue] == 0.0F) row[par::numberValue] = 1.0F;
        }
        if (width > 0) staff += width - 1;
    }
}

}  // namespace tul
