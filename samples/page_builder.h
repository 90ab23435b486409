#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tul::samples {

enum class Units { inches, metric };
enum class Trailer { sixWords, fiveWords, none };

// Items in, file bytes out: writes the pages of the sample scores and of the tests, sound or damaged on
// purpose.
//
//     PageBuilder page;
//     page.item({8, 1, 0, 0, 1, 200}).text(16, {1, 20, 15, 0, 1}, "_00Allegro");
//     std::string bytes = page.bytes();
class PageBuilder {
  public:
    // An item without text, from Par 1 on. Zeros at its end are dropped, Par 1 and Par 2 always stay.
    PageBuilder& item(std::span<const double> pars);
    PageBuilder& item(std::initializer_list<double> pars);
    // The same with every parameter kept as given, be it one or thirty.
    PageBuilder& itemAsGiven(std::initializer_list<double> pars);
    // An item of code 11, 15 or 16. `pars` starts at Par 2; Par 12 of code 16 is the count of characters,
    // unless `pars` reaches to Par 12. The text is padded with blanks to whole words, and to the least length
    // of the code.
    PageBuilder& text(int code, std::initializer_list<double> pars, std::string_view text);
    PageBuilder& text(int code, std::span<const double> pars, std::string_view text);

    // The next item says this in its length word, whatever its true length is.
    PageBuilder& lengthWord(double value);
    // One word, as a number or as the four bytes of `bits`, where the next item would begin.
    PageBuilder& word(double value);
    PageBuilder& rawWord(std::uint32_t bits);
    PageBuilder& raw(std::string_view bytes);

    PageBuilder& trailer(Trailer kind);
    PageBuilder& stamp(std::uint32_t value);  // 24 bits
    PageBuilder& units(Units value);
    // Writes this word count into the header instead of the true one.
    PageBuilder& headerWords(int value);

    std::size_t items() const { return items_; }
    // Whole words after the header, the trailer among them.
    std::size_t words() const;
    // The file. Throws std::length_error above 32767 words, unless the header's count was given.
    std::string bytes() const;

  private:
    void appendLength(std::size_t trueLength);
    std::string trailerBytes() const;

    std::string body_;
    std::size_t items_ = 0;
    std::optional<double> nextLength_;
    std::optional<int> headerWords_;
    Trailer trailer_ = Trailer::sixWords;
    std::uint32_t stamp_ = 40113;
    Units units_ = Units::inches;
};

}  // namespace tul::samples
