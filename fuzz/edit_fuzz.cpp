#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "centre/names_file.h"
#include "memory_host.h"
#include "music/item_table.h"
#include "music/mus_writer.h"
#include "music/pipeline.h"
#include "panels/fresh_process.h"
#include "panels/panel_list.h"
#include "shared/records.h"

// Any bytes as a page, and the last of them as what is set and pressed in the general edit tool or the
// renumber tool: a page that the reader took whole is written so that it takes it whole again, and an end of
// the program leaves it as it was, if under another name.
namespace {

using namespace tul;
using fuzz::require;

constexpr std::array values = {"",
                               "0",
                               "1",
                               "1",
                               "2",
                               "3",
                               "4/21,3/22",
                               "9.5",
                               "-1",
                               "33",
                               "40000",
                               "ALL",
                               "1e30",
                               "8",
                               "nan",
                               "21,7",
                               "05",
                               "x",
                               "14",
                               "16",
                               "=",
                               ">=",
                               "AND",
                               "_05",
                               "300",
                               "_00do",
                               "5",
                               "6",
                               "10",
                               "999",
                               ".8",
                               "",
                               "-360",
                               "12",
                               "150",
                               "-5",
                               "Z:\\HOME\\PAGE.MUS",
                               "/",
                               "4/21,,3"};

/// What is chosen, by the bytes behind the page.
class Choices {
  public:
    explicit Choices(const std::string& bytes) {
        for (const char byte : bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 12)))
            state_ = state_ * 31U + static_cast<unsigned char>(byte);
    }
    std::size_t below(std::size_t sides) {
        state_ = state_ * 1664525U + 1013904223U;
        return (state_ >> 8) % sides;
    }

  private:
    std::uint32_t state_ = 1;
};

void useThePanel(Choices& choices) {
    const bool renumbers = choices.below(4) == 0;
    Panel panel = findPanel(renumbers ? "frmRenum" : "frmEdit")->make();
    ReadNamesFile();
    for (const Field& field : panel.fields)
        if (choices.below(3) == 0) panel.set(field.name, values[choices.below(values.size())]);
    const std::size_t tabs = std::get<TabKind>(panel.fields.front().kind).names.size();
    panel.set(panel.fields.front().name, std::to_string(choices.below(tabs)));
    const std::string command =
        choices.below(2) == 0 ? panel.runCommand : panel.commands[choices.below(panel.commands.size())].name;
    panel.press(command);
}

void requireReadable(const std::string& path) {
    pipeline = {};
    pipeline.page = {.path = path};
    require(attempt([] { storeFile({}); }) && pipeline.page.isWhole());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    freshProcess();
    const std::string before(reinterpret_cast<const char*>(data), size);
    const std::string path = host.layOutPage(before).front();
    paths.NamesFilePath = "Z:\\HOME\\NAMES.TUL";
    host.contents[paths.NamesFilePath] = path + " 1\r\n";
    host.refusals = before.substr(0, 4);
    projectSettings.PageNumberLength = "2";
    identity.DeveloperMode = true;
    Choices choices(before);
    try {
        useThePanel(choices);
    } catch (const fuzz::End&) {
        require(std::any_of(host.contents.begin(), host.contents.end(),
                            [&before](const auto& file) { return file.second == before; }));
    }
    if (runResults.empty() || runResults.back().pages.empty()) return 0;
    const PageResult page = runResults.back().pages.front();
    if (page.path == path && page.isWhole() && page.isWritten && page.isReadable) requireReadable(path);
    return 0;
}
