#include "samples/page_builder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <stdexcept>
#include <vector>

namespace tul::samples {

namespace {

constexpr std::size_t mostWords = 32767;
constexpr std::size_t wordSize = 4;
constexpr std::size_t textParameters = 13;

void appendBits(std::string& bytes, std::uint32_t bits) {
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>((bits >> shift) & 0xFFU);
}

void appendFloat(std::string& bytes, double value) {
    appendBits(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(value)));
}

std::size_t leastTextLength(int code) {
    if (code == 11) return 8;
    if (code == 15) return 24;
    return wordSize;
}

}  // namespace

void PageBuilder::appendLength(std::size_t trueLength) {
    appendFloat(body_, nextLength_.value_or(static_cast<double>(trueLength)));
    nextLength_.reset();
    ++items_;
}

PageBuilder& PageBuilder::item(std::span<const double> pars) {
    std::size_t length = pars.size();
    while (length > 2 && pars[length - 1] == 0.0) --length;
    appendLength(std::max<std::size_t>(length, 2));
    for (std::size_t i = 0; i < length; ++i) appendFloat(body_, pars[i]);
    for (std::size_t i = length; i < 2; ++i) appendFloat(body_, 0.0);
    return *this;
}

PageBuilder& PageBuilder::item(std::initializer_list<double> pars) {
    return item(std::span(pars.begin(), pars.size()));
}

PageBuilder& PageBuilder::itemAsGiven(std::initializer_list<double> pars) {
    appendLength(pars.size());
    for (double par : pars) appendFloat(body_, par);
    return *this;
}

PageBuilder& PageBuilder::text(int code, std::span<const double> pars, std::string_view text) {
    if (pars.size() >= textParameters) throw std::length_error("a text item has its text after Par 13");
    std::array<double, textParameters> all{};
    all[0] = code;
    std::copy(pars.begin(), pars.end(), all.begin() + 1);
    if (code == 16 && pars.size() < 11) all[11] = static_cast<double>(text.size());

    std::size_t stored = std::max(text.size(), leastTextLength(code));
    stored = (stored + wordSize - 1) / wordSize * wordSize;
    appendLength(textParameters + stored / wordSize);
    for (double par : all) appendFloat(body_, par);
    body_ += text;
    body_.append(stored - text.size(), ' ');
    return *this;
}

PageBuilder& PageBuilder::text(int code, std::initializer_list<double> pars, std::string_view chars) {
    return text(code, std::span(pars.begin(), pars.size()), chars);
}

PageBuilder& PageBuilder::lengthWord(double value) {
    nextLength_ = value;
    return *this;
}

PageBuilder& PageBuilder::word(double value) {
    appendFloat(body_, value);
    return *this;
}

PageBuilder& PageBuilder::rawWord(std::uint32_t bits) {
    appendBits(body_, bits);
    return *this;
}

PageBuilder& PageBuilder::raw(std::string_view bytes) {
    body_ += bytes;
    return *this;
}

PageBuilder& PageBuilder::trailer(Trailer kind) {
    trailer_ = kind;
    return *this;
}

PageBuilder& PageBuilder::stamp(std::uint32_t value) {
    stamp_ = value & 0xFFFFFFU;
    return *this;
}

PageBuilder& PageBuilder::units(Units value) {
    units_ = value;
    return *this;
}

PageBuilder& PageBuilder::headerWords(int value) {
    headerWords_ = value;
    return *this;
}

std::string PageBuilder::trailerBytes() const {
    std::string bytes;
    if (trailer_ == Trailer::none) return bytes;
    appendBits(bytes, 0x00002020U);
    appendBits(bytes, stamp_);
    appendFloat(bytes, 3.0);
    // The pages of the early versions end without the word for the units.
    if (trailer_ == Trailer::sixWords) appendFloat(bytes, units_ == Units::metric ? 1.0 : 0.0);
    appendFloat(bytes, 5.0);
    appendFloat(bytes, -9999.0);
    return bytes;
}

std::size_t PageBuilder::words() const { return (body_.size() + trailerBytes().size()) / wordSize; }

std::string PageBuilder::bytes() const {
    if (!headerWords_ && words() > mostWords) throw std::length_error("a page holds at most 32767 words");
    const auto count = static_cast<std::uint32_t>(headerWords_.value_or(static_cast<int>(words())));
    std::string file;
    file += static_cast<char>(count & 0xFFU);
    file += static_cast<char>((count >> 8) & 0xFFU);
    return file + body_ + trailerBytes();
}

}  // namespace tul::samples
