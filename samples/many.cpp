#include "samples/many.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>

#include "samples/page_builder.h"

namespace tul::samples {

namespace {

constexpr int systemStaves = 4;
constexpr double musicBegins = 12;
constexpr double musicEnds = 198;
constexpr std::size_t trailerWords = 6;
constexpr std::size_t largestBeat = 70;  // words that one beat with all its ornaments can take

// The same numbers on every machine, unlike the distributions of the standard library.
class Dice {
  public:
    explicit Dice(int seed) : state_(static_cast<std::uint32_t>(seed) * 2654435761U + 1U) {}
    int below(int sides) {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<int>((state_ >> 16) % static_cast<std::uint32_t>(sides));
    }

  private:
    std::uint32_t state_;
};

// Fills one staff with beats that wander up and down the staff.
class StaffFiller {
  public:
    StaffFiller(PageBuilder& page, Dice& dice, int staff) : page_(page), dice_(dice), staff_(staff) {}

    void beat(double x, double width) {
        const int kind = dice_.below(10);
        if (kind == 0) {
            page_.item({2, staff_, x, 0, 0, 0, 1});
        } else if (kind == 1) {
            twoVoices(x);
        } else if (kind < 4) {
            note(x, 1, 0);
        } else {
            pair(x, x + width / 2);
        }
        if (dice_.below(3) == 0)
            page_.item({5, staff_, x, step_ + 2, step_ + 3, x + width, 1.2, 0, -1, 0, 0, 0, 1});
        if (dice_.below(4) == 0) words(x);
    }

  private:
    void note(double x, double duration, double stemExtension) {
        step_ = std::clamp(step_ + dice_.below(5) - 2.0, -1.0, 14.0);
        const double stem = step_ < 7 ? 10 : 20;
        const double accidental = dice_.below(8) == 0 ? 2 : 0;
        const double dots = duration == 1 && dice_.below(4) == 0 ? 10 : 0;
        page_.item({1, staff_, x, step_, stem + accidental, 0, duration, stemExtension, dots});
    }
    // The lower voice may reach above the upper one.
    void twoVoices(double x) {
        page_.item({1, staff_, x, step_, 10, 0, 1, 0, dice_.below(3) == 0 ? 10.0 : 0.0});
        page_.item({1, staff_, x, step_ - 3 + dice_.below(5), 20, 0, 1});
    }
    void pair(double x, double next) {
        const double left = step_;
        note(x, 0.5, 0.5);
        note(next, 0.5, 0.5);
        page_.item({6, staff_, x, left, step_, next, step_ < 7 ? 11.0 : 21.0});
    }
    void words(double x) {
        static constexpr std::array<const char*, 8> syllables{
            "_00glo", "_00ri", "_00a", "_00in", "_03p", "_01cantabile", "_01dolce", "_00excelsis"};
        page_.text(16, {staff_, x, -4, 0, 1}, syllables[static_cast<std::size_t>(dice_.below(8))]);
    }

    PageBuilder& page_;
    Dice& dice_;
    double staff_;
    double step_ = 7;
};

void head(PageBuilder& page, int staff, int staves) {
    const double number = staff;
    const double clef = (staff - 1) % systemStaves == 0 ? 1 : 0;
    page.item(
        {8, number, 0, double((staff - 1) / systemStaves * 4), 0.7, 200, 0, 0, double(staves + 1 - staff)});
    page.item({3, number, 1.5, 0, clef}).item({17, number, 6, 0, 1, clef}).item({18, number, 9, 0, 4, 4});
    if (clef == 0) return;
    const double reach = std::min(systemStaves, staves + 1 - staff);
    page.item({14, number, 0, reach}).item({14, number, 0, reach, 9}).item({14, number, 200, reach});
    for (int bar = 1; bar < 5; ++bar) page.item({14, number, musicBegins + 37.2 * bar - 1.5, reach});
}

}  // namespace

std::string manyPage(int number, std::size_t bytes) {
    if (bytes > mostPageBytes) throw std::length_error("a page holds at most 32767 words");
    const std::size_t budget = std::max<std::size_t>(bytes / 4, trailerWords + largestBeat) - trailerWords;
    const int staves = std::clamp(static_cast<int>(budget / 400), 1, 16);
    PageBuilder page;
    Dice dice(number);
    for (int staff = staves; staff >= 1; --staff) head(page, staff, staves);
    page.item({10, double(staves), 197, 24, double(number), 201.1});

    const std::size_t begun = page.words() - trailerWords;
    const std::size_t room = budget > begun ? budget - begun : 0;
    for (int staff = staves; staff >= 1; --staff) {
        const auto done = static_cast<std::size_t>(staves - staff);
        const std::size_t from = page.words() - trailerWords;
        const std::size_t to = begun + room * (done + 1) / static_cast<std::size_t>(staves);
        StaffFiller filler(page, dice, staff);
        // The place of a beat follows from the share of the words that is used up, so that every staff is
        // filled.
        const double unit = (musicEnds - musicBegins) / static_cast<double>(to > from ? to - from : 1);
        for (std::size_t now = from; now + largestBeat <= to; now = page.words() - trailerWords)
            filler.beat(musicBegins + unit * static_cast<double>(now - from), 30 * unit);
    }
    return page.bytes();
}

}  // namespace tul::samples
