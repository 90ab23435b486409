#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>

#include "base/date_time.h"
#include "base/text.h"
#include "centre/project_options.h"
#include "music/item_table.h"
#include "panels/panel_list.h"
#include "shared/records.h"
#include "support/mus_bytes.h"
#include "support/scripted_host.h"

/// What tests of every room need, under short names.
namespace tul {

namespace fs = std::filesystem;
using testing::crlf;
using testing::endOf;
using testing::header;
using testing::pageOf;
using testing::ScriptedHost;
using testing::trailer;
using testing::words;
using Texts = std::vector<std::string>;

inline constexpr float infinity = std::numeric_limits<float>::infinity();
inline constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

inline const std::string structuralError =
    "Structural error in MUS file. Try to recover with TulValid/TulRecover.";

/// An item: its parameters from Par 1 on.
inline ItemRow itemRow(const std::vector<float>& pars, const std::string& text = {}) {
    ItemRow row{.pars = {}, .text = text};
    int par = 0;
    for (const float value : pars) row.pars[++par] = value;
    return row;
}
inline void addItem(const std::vector<float>& pars, const std::string& text = {}) {
    musItemTable[++musItemTable.itemCount] = itemRow(pars, text);
}
inline void onlyItem(const std::vector<float>& pars, const std::string& text = {}) {
    musItemTable.itemCount = 0;
    addItem(pars, text);
}

/// Lines ended by CR LF, from one text in which a bar separates them.
inline std::string lines(std::string_view barred) {
    std::string text;
    for (const char letter : barred) text += letter == '|' ? "\r\n" : std::string(1, letter);
    return text + "\r\n";
}

/// The lines of a text.
inline Texts linesIn(const std::string& text) {
    const auto found = linesOf(text);
    return {found.begin(), found.end()};
}

/// For EXPECT_TRUE: tells the text that lacks the part.
inline ::testing::AssertionResult contains(const std::string& text, std::string_view part) {
    if (text.find(part) != std::string::npos) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "no \"" << part << "\" in\n" << text;
}

/// A test on a scripted machine.
class HostTest : public ::testing::Test {
  protected:
    /// A file of the test's folder as the selection has it.
    std::string upper(const std::string& name) const { return upperCase(host.path(name)); }
    std::string stamp(const std::string& name) const {
        return stampText(files().info(host.path(name))->stamp);
    }
    /// What a field keeps of each text that is typed into it, and what it tells each time.
    void expectKept(const std::function<std::string(const std::string&)>& keep,
                    const std::map<std::string, std::string>& kept, const Texts& told = {}) {
        for (const auto& [typed, value] : kept) {
            host.messages.clear();
            EXPECT_EQ(keep(typed), value) << typed;
            EXPECT_EQ(host.messages, told) << typed;
        }
    }
    /// The project settings of a new installation.
    static void takeDefaultOptions() {
        for (const OptionLine& line : defaultOptions()) storeProjectOption(line.key, line.value);
    }
    /// Names files of the test's folder in the names file, which is not read yet.
    void writeNames(const Texts& names) {
        std::string text;
        for (const std::string& name : names) text += host.path(name) + " 1\r\n";
        host.write("NAMES.TUL", text);
    }

    ScriptedHost host;
};

/// A panel on a scripted machine.
class PanelTest : public HostTest {
  protected:
    PanelTest() { host.install(); }
    void open(const std::string& name) {
        panel = findPanel(name)->make();
        if (panel.load) panel.load();
    }
    std::string shown(const std::string& field) { return panel.field(field)->text(); }
    /// Of a field or a command.
    bool isEnabled(const std::string& name) {
        if (const Field* const field = panel.field(name)) return panel.isEnabled(*field);
        return panel.isEnabled(*panel.command(name));
    }

    Panel panel;
};

}  // namespace tul
