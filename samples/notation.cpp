#include "samples/notation.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace tul::samples {

namespace {

constexpr int stepsInOctave = 7;
constexpr int octaveWithoutMarks = 3;

struct BarlineName {
    std::string_view token;
    int type;
};
constexpr std::array<BarlineName, 7> barlines{
    {{"|", 0}, {"||", 1}, {"|.", 2}, {":|", 3}, {"|:", 4}, {":|:", 5}, {"|-", 7}}};

// Reads one token from left to right.
class Token {
  public:
    explicit Token(std::string_view text) : text_(text) {}

    bool ended() const { return at_ >= text_.size(); }
    char peek() const { return ended() ? '\0' : text_[at_]; }
    char next() { return ended() ? '\0' : text_[at_++]; }
    bool skip(std::string_view what) {
        if (text_.substr(at_, what.size()) != what) return false;
        at_ += what.size();
        return true;
    }
    int number() {
        if (!std::isdigit(static_cast<unsigned char>(peek()))) fail();
        int value = 0;
        while (std::isdigit(static_cast<unsigned char>(peek()))) value = value * 10 + (next() - '0');
        return value;
    }
    std::string wordUpToMark() {
        std::string word;
        while (!ended() && std::string_view("~()!-\\^").find(peek()) == std::string_view::npos)
            word += next();
        std::replace(word.begin(), word.end(), '_', ' ');
        return word;
    }
    [[noreturn]] void fail() const { throw std::invalid_argument("no such music: " + std::string(text_)); }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

Pitch readPitch(Token& token) {
    constexpr std::string_view letters = "cdefgab";
    const std::size_t letter = letters.find(token.peek());
    if (token.ended() || letter == std::string_view::npos) token.fail();
    token.next();
    Pitch pitch{octaveWithoutMarks * stepsInOctave + static_cast<int>(letter), 0};
    while (token.skip("is")) ++pitch.alter;
    while (token.skip("es")) --pitch.alter;
    while (token.skip("'")) pitch.step += stepsInOctave;
    while (token.skip(",")) pitch.step -= stepsInOctave;
    return pitch;
}

// The written value, kept from note to note.
struct Value {
    int denominator = 4;
    int dots = 0;
};

void readValue(Token& token, Value& value) {
    if (!std::isdigit(static_cast<unsigned char>(token.peek()))) return;
    value.denominator = token.number();
    value.dots = 0;
    while (token.skip(".")) ++value.dots;
}

void applyValue(Event& event, const Value& value) {
    event.dots = value.dots;
    event.duration = 4.0 / value.denominator * (2.0 - std::pow(0.5, value.dots));
    event.head = value.denominator == 1 ? 2 : value.denominator == 2 ? 1 : 0;
    for (int d = value.denominator; d > 4; d /= 2) ++event.flags;
}

void readMarks(Token& token, Event& event) {
    while (!token.ended()) {
        switch (token.next()) {
            case '~':
                event.tied = true;
                break;
            case '(':
                event.slurOpens = true;
                break;
            case ')':
                event.slurCloses = true;
                break;
            case '!':
                event.fermata = true;
                break;
            case '-':
                event.finger = token.number();
                break;
            case '\\':
                event.dynamic = token.wordUpToMark();
                break;
            case '^':
                event.words = token.wordUpToMark();
                break;
            default:
                token.fail();
        }
    }
}

Event readBarRest(Token& token, double barLength) {
    Event event;
    event.barRest = true;
    event.duration = barLength;
    if (token.skip("*")) {
        event.bars = token.number();
        if (token.skip(":-")) event.restForm = -token.number();
        if (token.skip(":")) event.restCue = token.number();
    }
    return event;
}

Event readEvent(std::string_view text, Value& value, double barLength) {
    Token token(text);
    Event event;
    if (token.skip("R")) {
        event = readBarRest(token, barLength);
    } else {
        if (token.skip("s")) {
            event.spacer = true;
        } else if (!token.skip("r")) {
            do event.pitches.push_back(readPitch(token));
            while (token.skip("+"));
        }
        readValue(token, value);
        applyValue(event, value);
    }
    readMarks(token, event);
    std::sort(event.pitches.begin(), event.pitches.end(),
              [](const Pitch& a, const Pitch& b) { return a.step < b.step; });
    return event;
}

}  // namespace

std::vector<Bar> parseMusic(std::string_view music, double barLength) {
    std::vector<Bar> bars;
    Bar bar;
    Value value;
    double onset = 0;
    for (std::size_t begin = music.find_first_not_of(' '); begin != std::string_view::npos;) {
        const std::size_t end = std::min(music.find(' ', begin), music.size());
        const std::string_view token = music.substr(begin, end - begin);
        begin = music.find_first_not_of(' ', end);
        const auto* line = std::find_if(barlines.begin(), barlines.end(),
                                        [&](const BarlineName& name) { return name.token == token; });
        if (line == barlines.end()) {
            bar.events.push_back(readEvent(token, value, barLength));
            bar.events.back().onset = onset;
            onset += bar.events.back().duration;
            continue;
        }
        if (onset > barLength + 0.001) throw std::invalid_argument("a bar is too long");
        bar.line = line->type;
        bars.push_back(std::exchange(bar, Bar{}));
        onset = 0;
    }
    if (!bar.events.empty()) throw std::invalid_argument("the last bar has no barline");
    return bars;
}

}  // namespace tul::samples
