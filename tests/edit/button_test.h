#pragma once

#include <sstream>

#include "base/numbers.h"
#include "edit/edit_run.h"
#include "music/items.h"
#include "music/mus_writer.h"
#include "support/test.h"

namespace tul::edit {

/// The general edit tool's panel over a page of items, which are written as what they have other than 0, with
/// a bar between them: "1=16 2=1 12=5 '_00ab".
class ButtonTest : public PanelTest {
  protected:
    ButtonTest() { identity.DeveloperMode = true; }

    static std::string bytesOf(const std::string& items) {
        std::istringstream all(items);
        PageBytes page;
        page.begin();
        for (std::string item; std::getline(all, item, '|');) {
            ItemRow row;
            const SplitText text = splitAtFirst(item, '\'');
            row.text = text.behind;
            std::istringstream pars{std::string(text.before)};
            for (std::string par; pars >> par;) {
                const SplitText parts = splitAtFirst(par, '=');
                row.pars[static_cast<int>(numericValue(parts.before))] = numberOf(parts.behind);
            }
            if (isText(row)) row.pars[par::textLength] = static_cast<float>(row.text.size());
            page.item(row);
        }
        page.end(false);
        return page.bytes;
    }
    /// Makes the page, selects it, and opens the panel.
    void select(const std::string& items) {
        host.write("page.mus", bytesOf(items));
        writeNames({"page.mus"});
        host.forget();
        open("edit");
        panel.set("chkEditBackup", "0");
    }
    /// Presses a button over the page; what is said, but for the questions before it.
    std::string press(const std::string& button, const std::string& items) {
        select(items);
        EXPECT_EQ(panel.press(button), PanelAnswer::done);
        return host.messages.empty() ? "" : host.messages.back();
    }
    /// For EXPECT_TRUE: the page has become this; otherwise tells what the table has.
    ::testing::AssertionResult holds(const std::string& items) {
        if (host.read("page.mus") == bytesOf(items)) return ::testing::AssertionSuccess();
        std::string table;
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            table += "\n" + musItemTable[item].text;
            for (int par = 1; par <= Parameters::count; ++par) table += str(musItemTable[item].pars[par]);
        }
        return ::testing::AssertionFailure() << table;
    }
    void expectChange(const std::string& button, const std::string& items, const std::string& changed,
                      const std::string& message) {
        EXPECT_EQ(press(button, items), message);
        EXPECT_TRUE(holds(changed)) << items;
    }
};

}  // namespace tul::edit
