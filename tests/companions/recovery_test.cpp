#include "companions/recovery.h"

#include <cstring>
#include <functional>
#include <optional>
#include <random>

#include "check/validation.h"
#include "music/mus_reader.h"
#include "music/pipeline.h"
#include "samples/many.h"
#include "samples/scores.h"
#include "support/test.h"

namespace tul::recovery {
namespace {

float wordIn(const std::string& bytes, std::size_t at) {
    float value = 0;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// The items of a sound page with the long trailer, as they stand in the file.
Texts itemsOf(const std::string& page) {
    Texts items;
    for (std::size_t at = 2; at + 24 < page.size();) {
        const auto length = (static_cast<std::size_t>(wordIn(page, at)) + 1) * 4;
        items.push_back(page.substr(at, length));
        at += length;
    }
    return items;
}

struct Difference {
    int missing = 0;  // items of the first page that the second has not
    int strange = 0;  // and the other way round
};

/// Both in their order. Equal items are common; one far ahead is taken for another.
Difference differenceOf(const Texts& original, const Texts& recovered) {
    constexpr std::ptrdiff_t farAhead = 40;
    Difference difference;
    auto at = original.begin();
    for (const std::string& item : recovered) {
        const auto same = std::find(at, original.end(), item);
        if (same == original.end() || same - at > farAhead) {
            ++difference.strange;
        } else {
            difference.missing += static_cast<int>(same - at);
            at = same + 1;
        }
    }
    difference.missing += static_cast<int>(original.end() - at);
    return difference;
}

/// A sound page with bytes changed from one place to another.
struct Damage {
    std::string bytes;
    std::size_t from = 0;
    std::size_t to = 0;
};

class Recovering : public HostTest {
  protected:
    Recovering() {
        for (const samples::Sample& sample : samples::scores()) pages.push_back(sample.bytes);
        pages.push_back(samples::manyPage(1, 50000));
    }

    /// The items that validation offers to recover when every question is answered with Yes; nothing when it
    /// finds no damage.
    std::optional<int> promiseOf(const std::string& bytes) {
        host.write("PAGE.MUS", bytes);
        host.messages.clear();
        host.answers.assign(3000, Answer::yes);
        pipeline.page = {.path = host.path("PAGE.MUS")};
        Report report(host.path("TULVALID.PRN"));
        valid::inputValidate(report);
        constexpr std::string_view start = "(the first ";
        for (const std::string& message : host.messages) {
            const std::size_t at = message.find(start);
            if (at != std::string::npos) return std::stoi(message.substr(at + start.size()));
        }
        return std::nullopt;
    }

    /// The number of items that the tools read, to the end of the page.
    int readWhole(const std::string& page) {
        host.write("PAGE.MUS", page);
        MusOpen(host.path("PAGE.MUS"), musReader.MusWordCount);
        do MusNextItem();
        while (musReader.MusReadState == musItemReady);
        MusClose();
        EXPECT_EQ(musReader.MusReadState, musEndOfItems);
        EXPECT_EQ(static_cast<std::size_t>(musReader.MusWordCount) * 4 + 2, page.size());
        return musItem.MusItemNumber;
    }

    /// Damages every page at many places and recovers it. What stands before the damage is the same again;
    /// behind it at most `more` items are missing beside the damaged ones, and as many misread.
    void recoverAll(int more, const std::function<Damage(const std::string& page, std::size_t at)>& damage) {
        std::mt19937 dice(20);
        for (const std::string& page : pages) {
            const Texts original = itemsOf(page);
            for (int i = 0; i < 40; ++i) {
                const Damage damaged = damage(page, 2 + dice() % (page.size() - 26));
                SCOPED_TRACE("page of " + std::to_string(page.size()) + " bytes, damaged at " +
                             std::to_string(damaged.from));
                recoverOne(original, damaged, more);
            }
        }
    }

    void recoverOne(const Texts& original, const Damage& damaged, int more) {
        std::size_t sound = 0;
        int hit = 0;
        std::size_t at = 2;
        for (const std::string& item : original) {
            if (at + item.size() <= damaged.from) ++sound;
            if (at < damaged.to && at + item.size() > damaged.from) ++hit;
            at += item.size();
        }
        const std::optional<int> promise = promiseOf(damaged.bytes);
        const Recovery result = recover(damaged.bytes, promise.value_or(static_cast<int>(sound)));
        ASSERT_EQ(readWhole(result.page), result.items());
        // After a wrong code validation counts on in words that it read before.
        const bool stale =
            !host.messages.empty() && host.messages.front().find("Invalid item type") != std::string::npos;
        EXPECT_GE(result.items(), stale ? 0 : promise.value_or(0));
        const Texts items = itemsOf(result.page);
        ASSERT_GE(items.size(), sound);
        EXPECT_TRUE(
            std::equal(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(sound), original.begin()));
        const Difference difference = differenceOf(original, items);
        EXPECT_LE(difference.missing, hit + more);
        EXPECT_LE(difference.strange, more);
        missing += difference.missing;
        damagedItems += hit;
        EXPECT_FALSE(promise && result.sound);
    }

    Texts pages;
    int missing = 0;  // over all that was recovered
    int damagedItems = 0;
};

TEST_F(Recovering, ACutPageKeepsWhatIsThere) {
    recoverAll(1, [](const std::string& page, std::size_t at) {
        return Damage{page.substr(0, at), at, page.size()};
    });
}

TEST_F(Recovering, AnInsertedOrRemovedByteCostsAnItem) {
    recoverAll(3, [](std::string page, std::size_t at) {
        page.insert(at, 1, static_cast<char>(at * 37));
        return Damage{page, at, at + 1};
    });
    recoverAll(5, [](std::string page, std::size_t at) {
        page.erase(at, 1);
        return Damage{page, at, at + 1};
    });
    EXPECT_LT(missing, damagedItems * 11 / 10);
}

TEST_F(Recovering, AZeroedSectorCostsItsItems) {
    recoverAll(4, [](std::string page, std::size_t at) {
        const std::size_t from = std::max<std::size_t>(at / 512 * 512, 2);
        const std::size_t to = std::min(at / 512 * 512 + 512, page.size());
        std::fill(page.begin() + static_cast<std::ptrdiff_t>(from),
                  page.begin() + static_cast<std::ptrdiff_t>(to), '\0');
        return Damage{page, from, to};
    });
}

TEST_F(Recovering, AWrongLengthWordCostsFewItems) {
    recoverAll(4, [](std::string page, std::size_t at) {
        std::size_t item = 2;
        std::size_t next = 2;
        while (next <= at) {
            item = next;
            next += (static_cast<std::size_t>(wordIn(page, item)) + 1) * 4;
        }
        const float old = wordIn(page, item);
        const float change = at % 2 == 0 ? static_cast<float>(1 + at % 600) : -1.0F;
        page.replace(item, 4, words({old + change}));
        return Damage{page, item, item + 4};
    });
    EXPECT_LT(missing, damagedItems * 3 / 4);
}

TEST_F(Recovering, AWrongWordCountCostsNothing) {
    for (const std::string& page : pages) {
        const int count = static_cast<int>((page.size() - 2) / 4);
        for (const int wrong : {-count, -1, 0, 5, 100, count / 2, count - 2, count + 1, count + 900, 32767}) {
            const std::string bytes = testing::header(wrong) + page.substr(2);
            const Recovery result = recover(bytes, promiseOf(bytes).value_or(3));
            EXPECT_EQ(itemsOf(result.page), itemsOf(page)) << wrong << " for " << count;
            EXPECT_EQ(result.lost, 0);
            EXPECT_FALSE(result.sound);
            readWhole(result.page);
        }
    }
}

TEST_F(Recovering, ASoundPageNeedsNothing) {
    for (const std::string& page : pages) {
        const Recovery result = recover(page, 0);
        EXPECT_TRUE(result.sound);
        EXPECT_EQ(itemsOf(result.page), itemsOf(page));
    }
    EXPECT_TRUE(recover(pageOf(""), 0).sound);
    EXPECT_TRUE(recover(pageOf(words({2, 14, 1}), words({0, 0, 3, 5, -9999})), 0).sound);
}

TEST_F(Recovering, GarbageHoldsNoItems) {
    std::mt19937 dice(7);
    for (const std::size_t length : {0, 1, 2, 5, 400, 50000}) {
        std::string bytes(length, '\0');
        EXPECT_EQ(recover(bytes, 100).items(), 0);
        for (char& byte : bytes) byte = static_cast<char>(dice());
        EXPECT_EQ(recover(bytes, promiseOf(bytes).value_or(0)).items(), 0);
        std::fill(bytes.begin(), bytes.end(), '\xEE');
        EXPECT_EQ(recover(bytes, 100).items(), 0);
    }
}

const std::string note = words({7, 1, 3, 50, 7, 10, 0, 1});
const std::string blanks(24, ' ');

TEST_F(Recovering, ShortOrCutItemsAreCompleted) {
    const std::string head = words({15, 15, 1, 60, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    const Recovery picture = recover(pageOf(note + words({3, 15, 1, 60}) + note), 3);
    EXPECT_EQ(picture.page, pageOf(note + words({19}) + head.substr(4) + blanks + note));
    EXPECT_EQ(picture.kept, 3);

    const std::string text = words({15, 16, 1, 60, 0, 0, 0, 0, 0, 0, 0, 0, 5, 0});
    const Recovery cutText = recover(testing::header(40) + note + text + "_0", 2);
    EXPECT_EQ(cutText.page, pageOf(note + text + "_0      "));
    EXPECT_TRUE(cutText.lastIsCut);
    const Recovery cutNote = recover(testing::header(14) + note + note.substr(0, 18), 2);
    EXPECT_EQ(cutNote.page, pageOf(note + words({3, 1, 3, 50})));
    EXPECT_EQ(cutNote.lost, 0) << "the header tells that no other item followed";

    const Recovery intoTrailer = recover(pageOf(note + words({11}) + note.substr(4)), 2);
    EXPECT_EQ(intoTrailer.page, pageOf(note + note)) << "the trailer tells where the item ends";
}

TEST_F(Recovering, WhatIsLostIsTold) {
    const std::string junk(100, '\xEE');
    const Recovery result =
        recover(pageOf(note + junk + note + note + note + junk + note + note, trailer(true)), 1);
    EXPECT_EQ(result.page, pageOf(note + note + note + note + note + note, trailer(true)));
    EXPECT_EQ(result.kept, 1);
    EXPECT_EQ(result.found, 5) << "two items are a run when the trailer follows";
    EXPECT_EQ(result.lost, 2);
    EXPECT_EQ(result.lostBytes, 200U);
    EXPECT_EQ(recover(testing::header(1000) + note, 1).lostBytes, 4000U - 24 - 32);
}

TEST_F(Recovering, OddItemsBetweenSoundRunsAreFound) {
    const std::string run = note + note + note;
    const std::string odd = words({3, 1, 0, 50}) + words({3, 9.5F, 1.5F, 50});
    const std::string page = pageOf(run + odd + run + odd);
    EXPECT_EQ(recover(page.substr(0, 2) + "?" + page.substr(2), 0).page, page);
}

TEST_F(Recovering, AWrongLengthIsPutRightWhereTheNextItemsShowIt) {
    const std::string run = note + note + note;
    const std::string text = words({14, 16, 1, 60, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0}) + "text";
    for (const float wrong : {-8.0F, 1.0F, 3.0F, 5.0F, 9.0F, 31.0F, 70000.0F}) {
        const std::string second = words({wrong}) + note.substr(4);
        const Recovery result = recover(pageOf(run + second + run + words({wrong}) + text.substr(4)), 3);
        EXPECT_EQ(result.page, pageOf(run + note + run + text)) << wrong;
        EXPECT_EQ(result.mended, 2);
        EXPECT_EQ(result.lost, 0);
    }
}

TEST_F(Recovering, AnItemThatTakesInOthersGivesThemBack) {
    const std::string run = note + note + note;
    const std::string giant = words({47}) + note.substr(4);
    const std::string page = pageOf(run + giant + run + note + note + run, trailer());
    const Recovery split = recover(page, 4);
    EXPECT_EQ(split.page, pageOf(run + note + run + note + note + run));
    EXPECT_EQ(split.kept, 3);

    const std::string ownWords =
        words({24, 1, 1, 50, 7, 10, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 21, 22, 23, 24, 25});
    const Recovery kept = recover(pageOf(run + ownWords + run, trailer(), 1), 7);
    EXPECT_EQ(kept.page, pageOf(run + ownWords + run));
    EXPECT_EQ(kept.tooLong, 1);
}

TEST_F(Recovering, APageHoldsNoMoreThanItCan) {
    std::string items;
    for (int i = 0; i < 5000; ++i) items += note;
    const Recovery result = recover(testing::header(-1) + items, 10);
    EXPECT_EQ(readWhole(result.page), (32767 - 6) / 8);
    EXPECT_EQ(result.items() + result.lost, 5000);
}

}  // namespace
}  // namespace tul::recovery
