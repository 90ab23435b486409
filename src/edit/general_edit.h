#pragma once

#include <array>
#include <string>
#include <vector>

#include "edit/edit_family.h"
#include "shared/panel.h"

/// Selects items by up to three conditions on their parameters, and reports them or sets a parameter of each.
namespace tul::edit {

/// A list with a choice. The edit works on the text of the last click, which is empty before one.
struct ChoiceList {
    /// `initial` is the entry that is selected before a click, from 0; -1 none.
    ChoiceList(std::vector<std::string> entries, int initial);

    ListBox list;
    std::string text;

    /// A click on an entry; an empty text takes all clicks back.
    void choose(const std::string& entry);

  private:
    int initial_;
};

ChoiceList relationList();
ChoiceList logicList();

struct GeneralEdit {
    bool optOptionChange = true;
    bool optEditGeneralLocate = false;  // report only
    std::string txtGeneralMargin = ".001";

    // The first condition; the second and the third with the logic that joins them to what stands before.
    std::array<std::string, 3> txtp;  // parameter
    std::array<std::string, 3> txtv;  // value
    std::array<ChoiceList, 3> lstr = {relationList(), relationList(), relationList()};
    std::array<ChoiceList, 2> lstl = {logicList(), logicList()};

    std::string txtGeneralEdit;  // what the first condition compares texts or symbol libraries with
    std::string txtp4;           // the parameter that is set
    std::string txtv4;           // its value, or the new text
};
extern GeneralEdit generalEdit;

extern const Family generalFamily;

/// What the margin keeps of what was typed into it; anything but a number is told.
std::string keepGeneralMargin(const std::string& typed);

/// The step of "Report only": nothing is changed, so no backups are needed.
void reportOnly();

/// The symbol library that Par 5 of a symbol leads to, such as LIBRA.
std::string setSymbolLibe(float par5);

}  // namespace tul::edit
