#pragma once

#include <cstdlib>
#include <tuple>

#include "edit/edit_run.h"
#include "music/items.h"
#include "support/test.h"

namespace tul::edit {

/// Families of edits on one page: rows in, rows and report out. A page is written as its rows, with bars
/// between them: parameters up to the last that is not 0, then the text, which begins with a font. A deleted
/// row is one of code 999.
class EditTest : public HostTest {
  protected:
    static void fill(const std::string& page) {
        musItemTable.itemCount = 0;
        for (std::size_t from = 0, end = 0; end < page.size(); from = end + 1) {
            end = std::min(page.find('|', from), page.size());
            const std::string row = page.substr(from, end - from);
            const std::size_t text = std::min(row.find('_'), row.size());
            addItem({}, row.substr(text));
            int par = 0;
            for (const char* next = row.c_str(); next < row.c_str() + text;) {
                char* behind = nullptr;
                musItemTable[musItemTable.itemCount].pars[++par] = std::strtof(next, &behind);
                next = behind;
            }
        }
    }
    static std::string table() {
        std::string page;
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            const ItemRow& row = musItemTable[item];
            for (int par = 1; par <= lastUsedPar(row); ++par)
                page += (par > 1 ? " " : item > 1 ? "|" : "") + plain(row.pars[par]);
            page += row.text;
        }
        return page;
    }
    /// The lines and counters of a run.
    std::string reportOf(const Family& family, const std::string& path = "C:\\PAGE.MUS") {
        Report report(host.path("RUN.PRN"));
        pipeline.page = {.path = path};
        const auto run = family.begin();
        run->updateFile({1, pipeline.page, report});
        run->writeCounters(report, {});
        std::ignore = report.close();
        return host.read("RUN.PRN");
    }
    /// The page behind a run.
    std::string changed(const Family& family, const std::string& page) {
        fill(page);
        reportOf(family);
        return table();
    }
    static std::int64_t changes() { return pipeline.page.changes; }
    /// What is said instead of a run with these options.
    Texts refusal(int tab) {
        editing.tabEdit = tab;
        host.forget();
        cmdEditRun();
        return host.shown.empty() ? host.messages : host.shown;
    }
};

}  // namespace tul::edit
