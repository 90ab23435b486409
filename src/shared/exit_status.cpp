#include "shared/exit_status.h"

#include <algorithm>
#include <array>

namespace tul {

std::span<const ExitStatusEntry> exitStatuses() {
    static constexpr std::array<ExitStatusEntry, 7> all = {{
        {ExitStatus::done, "the run ended and every page was done"},
        {ExitStatus::fatal, "the program ended at a fatal message"},
        {ExitStatus::usage, "wrong usage"},
        {ExitStatus::damaged, "a page is damaged or could not be read whole"},
        {ExitStatus::refused, "the run was refused before it began"},
        {ExitStatus::notAllDone, "some pages were not done, or done without the backup that was asked for"},
        {ExitStatus::stopped, "stopped by Cancel or an interrupt, after the page in work"},
    }};
    return all;
}

ExitStatus graver(ExitStatus one, ExitStatus other) {
    static constexpr std::array order = {ExitStatus::usage,   ExitStatus::fatal,      ExitStatus::stopped,
                                         ExitStatus::damaged, ExitStatus::notAllDone, ExitStatus::refused,
                                         ExitStatus::done};
    return std::min(one, other, [](ExitStatus a, ExitStatus b) {
        return std::find(order.begin(), order.end(), a) < std::find(order.begin(), order.end(), b);
    });
}

}  // namespace tul
