#pragma once

#include <cstdint>
#include <string>

#include "music/item_table.h"

/// The bytes of a music file as this program writes it: trailing zero parameters dropped, text padded with
/// blanks, a trailer of six words with this program's stamp.
namespace tul {

/// What stands in the trailer of every file written, whatever stamp the file had before: 24 bits.
inline constexpr std::int32_t MusWriterStamp = 80200;

/// A header and 32767 words: the word count tells no more.
inline constexpr std::size_t mostPageBytes = 2 + 4 * 32767;

/// Appends one word of a page.
void appendWord(std::string& bytes, float value);

/// One page as it grows: begin, items, end.
struct PageBytes {
    std::string bytes;
    std::int16_t words = 0;  // behind the header; wraps as the file's own count does

    /// Starts anew, with a place for the word count.
    void begin();
    /// Appends a row of the table. Codes 11, 15 and 16 are written with 13 parameters and their text, all
    /// others up to the last parameter that is not 0.
    void item(const ItemRow& row);
    /// Appends the trailer and fills in the word count.
    void end(bool metric);
};

/// True when the reader comes through the row as it is written, with its parameters and what Par 12 counts of
/// its text. Par 1 alone and a text item without text are too short for it, a text that does not end with a
/// word moves all that follows, and 16.5 is a text to the reader but none to the writer.
[[nodiscard]] bool canBeReadAgain(const ItemRow& row);

}  // namespace tul
