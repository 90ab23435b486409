#include "companions/recovery.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <random>

#include "centre/names_file.h"
#include "check/validation.h"
#include "music/mus_reader.h"
#include "samples/many.h"
#include "samples/scores.h"
#include "support/mus_bytes.h"
#include "support/scripted_host.h"

namespace tul::recovery {
namespace {

using testing::pageOf;
using testing::ScriptedHost;
using testing::trailer;
using testing::words;

using Texts = std::vector<std::string>;

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

/// Both in order; the pages differ in few places.
Difference differenceOf(const Texts& original, const Texts& recovered) {
    Difference difference;
    auto at = original.begin();
    for (const std::string& item : recovered) {
        const auto same = std::find(at, original.end(), item);
        if (same == original.end() || same - at > 40) {
            ++difference.strange;
        } else {
            difference.missing += static_cast<int>(same - at);
            at = same + 1;
        }
    }
    difference.missing += static_cast<int>(original.end() - at);
    return difference;
}

class Recovering : public ::testing::Test {
  protected:
    /// What validation offers of a damaged page; nothing when it finds no damage.
    std::optional<int> promiseOf(const std::string& bytes) {
        host.write("PAGE.MUS", bytes);
        host.messages.clear();
        host.answers.clear();
        valid::validation.currentPath = host.path("PAGE.MUS");
        Report report(host.path("TULVALID.PRN"));
        valid::inputValidate(report);
        for (const auto& message : host.messages) {
            const std::size_t at = message.find("(the first ");
            if (at != std::string::npos) return std::stoi(message.substr(at + 11));
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

    ScriptedHost host;
};

TEST_F(Recovering, Explore) {
    std::vector<std::string> pages;
    for (const auto& sample : samples::scores()) pages.push_back(sample.bytes);
    pages.push_back(samples::manyPage(1, 50000));
    std::mt19937 dice(1);
    for (int kind = 0; kind < 6; ++kind) {
        int cases = 0, offers = 0, maxMissing = 0, maxStrange = 0, sumM = 0, sumS = 0, less = 0, dam=0;
        for (const std::string& page : pages) {
            const Texts original = itemsOf(page);
            for (int i = 0; i < 120; ++i) {
                const std::size_t at = 2 + dice() % (page.size() - 26);
                std::string bytes = page;
                int damagedItems = 1;
                std::size_t b = 2, which = 0;
                while (b + original[which].size() <= at) b += original[which++].size();
                switch (kind) {
                    case 0: bytes.resize(at); damagedItems = int(original.size() - which); break;
                    case 1: bytes.insert(at, 1, static_cast<char>(dice())); break;
                    case 2: bytes.erase(at, 1); break;
                    case 3: {
                        std::size_t s = at / 512 * 512;
                        if (s == 0) s = 512;
                        std::size_t e = std::min(s + 512, page.size());
                        for (std::size_t k = s; k < e; ++k) bytes[k] = 0;
                        damagedItems = 0;
                        std::size_t p = 2;
                        for (const auto& it : original) { if (p < e && p + it.size() > s) ++damagedItems; p += it.size(); }
                        break; }
                    case 4: { const float n = static_cast<float>(2 + dice() % 40); std::memcpy(bytes.data() + b, &n, 4); if (n == wordIn(page, b)) damagedItems = 0; break; }
                    case 5: { bytes[0] = static_cast<char>(dice()); bytes[1] = static_cast<char>(dice()); damagedItems = 0; break; }
                }
                ++cases;
                auto promise = promiseOf(bytes);
                if (promise) ++offers;
                const Recovery r = recover(bytes, promise.value_or(0));
                EXPECT_EQ(readWhole(r.page), r.items());
                const Difference d = differenceOf(original, itemsOf(r.page));
                const int m = d.missing - damagedItems;
                if (promise && r.items() < *promise) ++less;
                maxMissing = std::max(maxMissing, m); maxStrange = std::max(maxStrange, d.strange);
                sumM += std::max(m,0); sumS += d.strange; dam += damagedItems;
                if (m > 1 || d.strange > 2) printf("kind %d at %zu which %zu promise %d kept %d found %d missing+ %d strange %d lost %d\n", kind, at, which, promise.value_or(-1), r.kept, r.found, m, d.strange, r.lost);
            }
        }
        printf("kind %d cases %d offers %d damaged %d maxMissing+ %d maxStrange %d sum %d %d less %d\n", kind, cases, offers, dam, maxMissing, maxStrange, sumM, sumS, less);
    }
}

}  // namespace
}  // namespace tul::recovery
