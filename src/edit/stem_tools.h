#pragma once

#include "edit/edit_family.h"

/// The tools for stems and for Par 99, which do nothing so far but say so.
namespace tul::edit {

struct StemTools {
    bool optSTM = false;
    bool optUnSTM = false;
};
extern StemTools stemTools;

extern const Family stemToolsFamily;

}  // namespace tul::edit
