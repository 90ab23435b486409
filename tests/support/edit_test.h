#pragma once

#include <tuple>

#include "edit/edit_run.h"
#include "support/page_text.h"

namespace tul::edit {

/// Families of edits on one page, in the table or, by their buttons, on the disk.
class EditTest : public PanelTest {
  protected:
    EditTest() { identity.DeveloperMode = true; }

    static void fill(const std::string& page) {
        musItemTable.itemCount = 0;
        for (const ItemRow& row : itemsOf(page)) musItemTable[++musItemTable.itemCount] = row;
    }
    /// For EXPECT_TRUE: the table is this page. A deleted item has code 999.
    static ::testing::AssertionResult becomes(const std::string& page) {
        std::vector<ItemRow> rows;
        for (int item = 1; item <= musItemTable.itemCount; ++item) rows.push_back(musItemTable[item]);
        if (textOf(rows) == textOf(itemsOf(page))) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << textOf(rows) << "\nis not\n" << textOf(itemsOf(page));
    }
    /// The lines and counters of a run over the table.
    std::string reportOf(const Family& family, const std::string& path = "C:\\PAGE.MUS") {
        Report report(host.path("RUN.PRN"));
        pipeline.page = {.path = path};
        const auto run = family.begin();
        run->updateFile({1, pipeline.page, report});
        run->writeCounters(report, {});
        std::ignore = report.close();
        return host.read("RUN.PRN");
    }
    static std::int64_t changes() { return pipeline.page.changes; }
    std::string reportOn(const std::string& page, const Family& family) {
        fill(page);
        return reportOf(family);
    }
    void expectChanged(const Family& family, const std::string& page, const std::string& changed, int count) {
        reportOn(page, family);
        EXPECT_TRUE(becomes(changed));
        EXPECT_EQ(changes(), count) << page;
    }
    /// What is said instead of a run with these options.
    Texts refusal(int tab) {
        editing.tabEdit = tab;
        host.forget();
        cmdEditRun();
        return host.shown.empty() ? host.messages : host.shown;
    }

    /// Makes the page, selects it, and opens the panel.
    void select(const std::string& page) {
        host.write("page.mus", bytesOf(page));
        writeNames({"page.mus"});
        host.forget();
        open("edit");
        panel.set("chkEditBackup", "0");
    }
    /// Presses a button over the page; what is said, but for the questions before it.
    std::string press(const std::string& button, const std::string& page) {
        select(page);
        EXPECT_EQ(panel.press(button), PanelAnswer::done);
        return host.messages.empty() ? "" : host.messages.back();
    }
    /// For EXPECT_TRUE: the file is this page; otherwise tells what the table has.
    ::testing::AssertionResult isWritten(const std::string& page) {
        if (host.read("page.mus") == bytesOf(page)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << becomes(page).message();
    }
    void expectPressed(const std::string& button, const std::string& page, const std::string& changed,
                       const std::string& message) {
        EXPECT_EQ(press(button, page), message);
        EXPECT_TRUE(isWritten(changed));
    }
};

}  // namespace tul::edit
