#include "edit/stem_tools.h"

#include "host/host.h"

namespace tul::edit {

StemTools stemTools;

namespace {

void tellNotSupported() { MsgBox("Function not yet supported"); }

std::vector<Field> fields() {
    const auto never = [] { return false; };
    return {readIf(optionField("fraEditStem", "optSTM", stemTools.optSTM), never),
            readIf(optionField("fraEditStem", "optUnSTM", stemTools.optUnSTM), never)};
}

std::vector<Command> commands() {
    return {{.name = "cmdad99", .caption = "ad99", .run = tellNotSupported},
            {.name = "cmdSTM", .caption = "STM", .run = tellNotSupported}};
}

}  // namespace

const Family stemToolsFamily = {
    .tab = tabStems,
    .fields = fields,
    .commands = commands,
    .reset = [] { stemTools = {}; },
};

}  // namespace tul::edit
