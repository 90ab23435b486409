#include "music/bar_file.h"

#include <random>

#include "base/numbers.h"
#include "music/item_table.h"
#include "music/pipeline.h"
#include "samples/page_builder.h"
#include "support/test.h"

namespace tul {
namespace {

using samples::PageBuilder;

class BarFile : public HostTest {
  protected:
    BarFile() {
        pipeline.page.path = host.path("PAGE.MUS");
        pipeline.view = &view;
        projectSettings.BarNumberSize = "201.2";
        projectSettings.BarNumberFont = "3";
        projectSettings.PageNumberSize = "201";
        projectSettings.PageNumberFont = "1";
    }
    void read(const std::string& bytes, BarReader reader = BarReader::other) {
        host.write("PAGE.MUS", bytes);
        MusStoreBarFile(reader);
    }
    Texts textsOfTable() {
        Texts texts;
        for (int item = 1; item <= musItemTable.itemCount; ++item) texts.push_back(musItemTable[item].text);
        return texts;
    }

    RunView view;
};

TEST_F(BarFile, TakesWhatBarsAreFoundBy) {
    PageBuilder page;
    page.item({8, 1}).item({14, 1, 20}).item({1, 1, 5}).item({13, 1}).item({8.5, 1});
    page.item({2, 1, 5, 0, -2}).item({2, 1, 6, 0, -1.9}).item({2, 1, 7, 0, -3});
    page.item({10, 1, 5, 0, 7, 201.2, 3}).item({10, 1, 5, 0, 8, 201, 1}).item({10, 1, 5, 0, 9, 201.2, 1});
    read(page.bytes());
    std::vector<float> codes;
    for (int item = 1; item <= musItemTable.itemCount; ++item) codes.push_back(musItemTable[item].pars[1]);
    EXPECT_EQ(codes, (std::vector<float>{8, 14, 2, 2, 10, 10}));
    EXPECT_EQ(musItemTable[6].pars[5], 8);
    read(pageOf(words({2, 14, 1})));
    EXPECT_EQ(musItemTable.itemCount, 1) << "each page anew";
}

TEST_F(BarFile, ListsTheTextsOnAndAboveAStaff) {
    PageBuilder page;
    page.text(16, {2.5, 30, 9.9}, "_00Fl?-te").text(16, {1, 31, 10}, "high").text(16, {1, 32, 0}, "low");
    page.text(16, {3.5, 33, 0.1}, "_00Ossia").text(16, {1, 34, 5}, "ossia 2").text(16, {1, 34, 5}, "o?ssia");
    page.text(16, {1e9, 35, 5}, "nowhere");
    read(page.bytes());
    std::string listed;
    for (const BarText& text : barTexts)
        listed += plain(static_cast<float>(text.staff)) + " " + plain(text.position) + " " + text.text + "|";
    EXPECT_EQ(listed, "2 30 _00Fl-te|4 33 _00Ossia|1 34 o\xDFsia|0 35 nowhere|");
    read(pageOf(words({2, 14, 1})));
    EXPECT_TRUE(barTexts.empty());
}

TEST_F(BarFile, StopsAtDamageAndAtAFullTable) {
    read(pageOf(words({2, 14, 1, 1, 14, 1, 2, 14, 1})), BarReader::renum);
    EXPECT_EQ(musItemTable.itemCount, 1);
    EXPECT_EQ(host.messages.back(), structuralError);
    EXPECT_GT(view.inFile.percent, 0);
    PageBuilder page;
    for (int i = 0; i < 2001; ++i) page.item({14, 1});
    EXPECT_EQ(host.fatal([&] { read(page.bytes()); }),
              "MUS file too big for bar renumber operation. Hit OK to terminate.");
}

TEST_F(BarFile, ReplacesEscapesUntilNoneIsLeft) {
    const auto fixed = [](const std::string& text) {
        musItem.MusText = text;
        FixQuestionEscapes();
        return musItem.MusText;
    };
    EXPECT_EQ(fixed("Stra?se ?"), "Stra\xDF\x65 ?");
    EXPECT_EQ(fixed("?\?-a?\?\?--?s"), "-a--\xDF");
    EXPECT_EQ(fixed("??s"), "?\xDF");
    EXPECT_EQ(fixed(""), "");
}

/// The rule as it is told: passes over neighbours until one makes no exchange.
void exchangeNeighbours(std::vector<ItemRow>& rows) {
    for (bool exchanged = true; exchanged;) {
        exchanged = false;
        for (std::size_t i = 1; i < rows.size(); ++i) {
            const Parameters& a = rows[i - 1].pars;
            const Parameters& b = rows[i].pars;
            if (a[2] >= b[2] && !(a[2] == b[2] && a[3] > b[3])) continue;
            std::swap(rows[i - 1], rows[i]);
            exchanged = true;
        }
    }
}

TEST_F(BarFile, SortsFromTheHighestStaffAndFromTheLeft) {
    std::mt19937 random(3);
    std::vector<ItemRow> rows;
    for (int i = 0; i < 300; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        const float position = bits % 7 == 0 ? notANumber : static_cast<float>(bits / 8 % 40);
        addItem({14, static_cast<float>(bits / 1024 % 4), position}, std::to_string(i));
        rows.push_back(musItemTable[musItemTable.itemCount]);
    }
    exchangeNeighbours(rows);
    SortItemTable();
    Texts expected;
    for (const ItemRow& row : rows) expected.push_back(row.text);
    EXPECT_EQ(textsOfTable(), expected);
}

TEST_F(BarFile, MarksStavesAndTheirBarlines) {
    addItem({8, 1, 10});               // 1: lowest of a system of two
    addItem({14, 1, 10.9F, 2.4F, 0});  // 2: at its left end
    addItem({14, 1, 50, 1, 7});        // 3: elsewhere
    addItem({14, 1, 10, 0, 8});        // 4: a bracket
    addItem({8, 2, 10});               // 5: inside the system
    addItem({14, 2, 10, 5});           // 6
    addItem({8, 3, 10});               // 7: without barlines
    addItem({10, 3, 10, 0, 0});        // 8
    addItem({8, 33, 10});              // 9: beyond the staves
    musItemTable[3].pars[20] = 0.5F;   // came from the file
    MarkStaffBarlines();
    const auto mark = [](int item, int par) { return musItemTable[item].pars[par]; };
    EXPECT_EQ(mark(1, 19), 2);
    EXPECT_EQ(mark(1, 20), 1);
    EXPECT_EQ(mark(2, 20), 1);
    EXPECT_EQ(mark(3, 20), 0.5F);
    EXPECT_EQ(mark(4, 20), -1);
    EXPECT_EQ(mark(5, 20), 0) << "the system's first staff stands for it";
    EXPECT_EQ(mark(6, 20), 0);
    EXPECT_EQ(mark(7, 19), 1);
    EXPECT_EQ(mark(8, 5), 1);
    EXPECT_EQ(mark(9, 20), 0);
}

}  // namespace
}  // namespace tul
