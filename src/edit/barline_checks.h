#pragma once

#include <cstdint>

#include "shared/report.h"

/// What may be wrong with the barlines of a page.
namespace tul::edit {

/// A line for each finding on the page in the table, which the bar tools have read, sorted and marked; how
/// many there are.
std::int32_t VerifyBarlines(Report& report);

}  // namespace tul::edit
