#pragma once

#include <string>

/// The numbers of a PMX line. Each procedure appends one number to `line`. They write what the general forms
/// of `base/numbers.h` write, but a page has ten thousand numbers: the usual ones are written without those.
namespace tul::pmx {

/// Aligned columns: Par 1, and Par 2 of all items but text, in two; Par 2 of a text in three; Par 3 and on in
/// ten, with four places behind the point. A number that needs more columns takes them.
void appendTabCode(std::string& line, float value);
void appendTabTextStaff(std::string& line, float value);
void appendTabNumber(std::string& line, float value);

/// The general form.
void appendGeneral(std::string& line, float value);
/// The same for Par 3 and on: a number that would have an exponent loses what lies behind its sixth decimal
/// first (toward minus infinity), and keeps the exponent only where it still needs one.
void appendCondensedNumber(std::string& line, float value);

}  // namespace tul::pmx
