#include "edit/plate_numbers.h"

#include <cmath>
#include <string_view>

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"
#include "shared/records.h"

namespace tul::edit {

PlateNumbers plateNumbers;

namespace {

constexpr double highestPosition = 300;
constexpr double farthestHeight = 100;
constexpr float lowestStaff = 1.0F;
constexpr int fifthPar = 5;  // 1 in all plate numbers

std::string plateText() { return projectSettings.PlateNumberFont + projectSettings.PlateNumber; }

/// By the last digit in the file's name.
bool isOddPage(const std::string& path) {
    constexpr std::string_view digits = "0123456789";
    constexpr std::string_view oddDigits = "13579";
    const std::string_view name = fileNameOf(path);
    const std::size_t last = name.find_last_of(digits);
    return last != std::string_view::npos && oddDigits.find(name[last]) != std::string_view::npos;
}

class PlateNumbersRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of plate numbers generated . . . . . ", generated_, "   " + text_);
    }

  private:
    void removePresent(const PageInRun& page) const;
    float positionOn(const std::string& path) const;

    const std::string text_ = plateText();
    const float middle_ = numberOf(plateNumbers.txtEditGeneratePlateMid);
    const float right_ = numberOf(plateNumbers.txtEditGeneratePlateRight);
    std::int32_t generated_ = 0;
};

void PlateNumbersRun::removePresent(const PageInRun& page) const {
    forEachItem([&](int, ItemRow& row) {
        if (!isText(row) || trimRight(row.text) != trimRight(text_)) return;
        page.report.line(
            "Removed existing plate number irrespective of size before generating new one. Staff=" +
            str(row.pars[par::staff]) + ", horz=" + str(row.pars[par::position]) + ", string=" + row.text);
        deleteItem(row);
        ++page.result.changes;
    });
}

float PlateNumbersRun::positionOn(const std::string& path) const {
    if (plateNumbers.optEditPlateCenter) return middle_;
    return isOddPage(path) ? right_ : 0.0F;
}

/// On a page without room the number that was there is gone all the same, as the report tells.
void PlateNumbersRun::updateFile(const PageInRun& page) {
    if (!plateNumbers.optEditPlateCenter && !plateNumbers.optEditPlateSides) return;
    if (musItemTable.itemCount == 0 && !page.result.isWhole()) return;  // nothing could be read
    removePresent(page);
    if (!hasRoom(page, "plate number")) return;
    ItemRow row{.pars = {}, .text = text_};
    row.pars[par::code] = code::text;
    row.pars[par::staff] = lowestStaff;
    row.pars[par::position] = positionOn(page.result.path);
    row.pars[par::height] = numberOf(plateNumbers.txtEditGenerateVertical);
    row.pars[fifthPar] = 1.0F;
    row.pars[par::textSize] = numberOf(projectSettings.PlateNumberSize);
    appendItem(row);
    countChange(generated_);
}

// --- The family

/// Without a plate number the texts that are nothing but a font would be taken for one, and more of them
/// would be added.
bool mayRun() {
    const PlateNumbers& plates = plateNumbers;
    if (plates.optEditPlateCenter && plates.txtEditGeneratePlateMid.empty())
        return refuse("Mid position must be specified.");
    if (plates.optEditPlateSides && plates.txtEditGeneratePlateRight.empty())
        return refuse("Right position must be specified.");
    if (trim(projectSettings.PlateNumber).empty())
        return refuse("No plate number is set. Enter it in the Global Options.");
    return true;
}

const char* const middlePrompt =
    "Enter position of centered plate numbers (usually 100 - (length of text)/2).";
const char* const rightPrompt =
    "Enter position of plate numbers for odd pages (usually 200 - length of text).";
const char* const heightPrompt = "Enter the vertical dispacement (usually negative).";

std::vector<Field> fields() {
    PlateNumbers& plates = plateNumbers;
    const auto generates = [] { return plateNumbers.optEditGeneratePlate; };
    const auto centres = [] { return plateNumbers.optEditGeneratePlate && plateNumbers.optEditPlateCenter; };
    const auto takesSides = [] {
        return plateNumbers.optEditGeneratePlate && plateNumbers.optEditPlateSides;
    };
    return {
        optionField("fraEditText", "optEditGeneratePlate", plates.optEditGeneratePlate),
        readIf(optionField("fraEditPlate", "optEditPlateCenter", plates.optEditPlateCenter), generates),
        readIf(optionField("fraEditPlate", "optEditPlateSides", plates.optEditPlateSides), generates),
        readIf(keptField("txtEditGeneratePlateMid", plates.txtEditGeneratePlateMid, middlePrompt,
                         keepPlatePosition),
               centres),
        readIf(keptField("txtEditGeneratePlateRight", plates.txtEditGeneratePlateRight, rightPrompt,
                         keepPlatePosition),
               takesSides),
        readIf(keptField("txtEditGenerateVertical", plates.txtEditGenerateVertical, heightPrompt,
                         keepPlateHeight),
               generates),
        shownField("txtCurrentPlateNr", plates.txtCurrentPlateNr),
    };
}

void load() {
    plateNumbers.txtCurrentPlateNr =
        "Current plate number=" + plateText() + ", Size=" + projectSettings.PlateNumberSize;
}

}  // namespace

const Family plateNumbersFamily = {
    .tab = tabText,
    .fields = fields,
    .reset = [] { plateNumbers = {}; },
    .load = load,
    .isChosen = [] { return plateNumbers.optEditGeneratePlate; },
    .mayRun = mayRun,
    .begin = beginRun<PlateNumbersRun>,
};

std::string keepPlatePosition(const std::string& typed, const std::string& present) {
    const double position = numericValue(typed);
    if (isPlainNumber(typed) && position >= 0 && position <= highestPosition) return typed;
    return keepInstead(present, "The horizontal position is not numeric, negative, or exceeds 300.");
}

std::string keepPlateHeight(const std::string& typed, const std::string& present) {
    if (isPlainNumber(typed) && std::fabs(numericValue(typed)) <= farthestHeight) return typed;
    return keepInstead(present, "The displacement is not numeric or exceeds +/-100.");
}

}  // namespace tul::edit
