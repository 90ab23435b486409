#include "music/pipeline.h"

#include "music/item_table.h"
#include "music/mus_writer.h"
#include "samples/many.h"
#include "samples/page_builder.h"
#include "samples/scores.h"
#include "support/test.h"

namespace tul {
namespace {

using samples::PageBuilder;

const std::string staff = words({6, 8, 1, 0, 0, 0.75F, 200});
const std::string barline = words({3, 14, 1, 20});

// What a tool may have otherwise than the others.
constexpr ToolForm common = {.openFailure = "Open of output MUS file failed. Hit OK to terminate"};
constexpr ToolForm counting = {.countsCharacters = true};
constexpr ToolForm dropping = {.mayDropCode13 = true};
constexpr ToolForm own = {.loop = ItemLoop::own, .showsProgress = false, .countsCharacters = true};
constexpr ToolForm ownUnsaved = {.loop = ItemLoop::own, .takesBackup = false, .showsProgress = false};
constexpr ToolForm silent = {.loop = ItemLoop::silent, .takesBackup = false, .showsProgress = false};

class PipelineRun : public HostTest {
  protected:
    PipelineRun() { begin(); }
    /// A page of its own.
    void begin(const char* name = "PAGE.MUS") { pipeline.page = {.path = host.path(name)}; }

    /// False where the reading was abandoned.
    bool store(const std::string& bytes, const ToolForm& form = common) {
        host.write("PAGE.MUS", bytes);
        return attempt([&] { storeFile(form); });
    }
    std::string rewrite(const std::string& bytes, const ToolForm& form = common) {
        begin();
        std::ignore = store(bytes, form);
        writeFile(form);
        return host.read("PAGE.MUS");
    }
    /// The table as it stands, in the place of a page that was read.
    std::string written(const ToolForm& form = common) {
        host.write("PAGE.MUS", "old");
        pipeline.pageAsRead = files().info(currentPath());
        writeFile(form);
        return host.read("PAGE.MUS");
    }
};

TEST_F(PipelineRun, WritesItemsWithoutTrailingZeros) {
    addItem({8, 1, 0, 0, 0.75F, 200});
    addItem({14, 1, 20, -0.0F, 0});
    addItem({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
    addItem({16.5F, 1, notANumber}, "no text for this code");
    std::string all = staff + barline;
    all += words({20, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
    all += words({3, 16.5F, 1, notANumber});
    EXPECT_EQ(written(), pageOf(all));
}

TEST_F(PipelineRun, PadsTextsByTheirCode) {
    addItem({11, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 0}, "abc");
    addItem({15, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}, "FILE.EPS");
    addItem({16, 1, 20, 5, 0, 1, 0, 0, 0, 0, 0, 9}, "_00Animus");
    EXPECT_EQ(written(),
              pageOf(words({15, 11, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 0}) + "abc     " +
                     words({19, 15, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}) + padRight("FILE.EPS", 24) +
                     words({16, 16, 1, 20, 5, 0, 1, 0, 0, 0, 0, 0, 9, 0}) + "_00Animus   "));
}

TEST_F(PipelineRun, CountsTheWordsOfAnOddTextRounded) {
    addItem({11, 1}, "nine char");
    addItem({11, 1}, "ten chars.");
    addItem({11, 1}, "eleven char");
    const auto item = [](float length, const std::string& text) {
        return words({length, 11, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) + text;
    };
    // 2.25, 2.5 and 2.75 words count as 2, 2 and 3.
    EXPECT_EQ(written(), header(3 * 14 + 7 + 6) + item(15.25F, "nine char") + item(15.5F, "ten chars.") +
                             item(15.75F, "eleven char") + trailer());
    EXPECT_FALSE(pipeline.page.isReadable);
}

TEST_F(PipelineRun, LeavesDeletedRowsOutAndAnEmptyTableAlone) {
    EXPECT_EQ(written(), "old");
    addItem({999, 1, 2});
    addItem({999}, "text");
    EXPECT_EQ(written(), header(6) + trailer());
    EXPECT_TRUE(pipeline.page.isReadable);
    onlyItem({13, 1});
    addItem({14, 1});
    EXPECT_EQ(written(), pageOf(words({2, 13, 1, 2, 14, 1})));
    pipeline.dropsCode13 = true;
    EXPECT_EQ(written(ownUnsaved), pageOf(words({2, 13, 1, 2, 14, 1}))) << "a choice of one tool only";
    EXPECT_EQ(written(dropping), pageOf(words({2, 14, 1})));
}

TEST_F(PipelineRun, RowsThatNoReaderTakesAreWrittenAndTold) {
    addItem({14, 1});
    addItem({14});
    EXPECT_EQ(written(), pageOf(words({2, 14, 1, 1, 14})));
    EXPECT_FALSE(pipeline.page.isReadable);
    onlyItem({0});
    addItem({16, 1}, "");
    EXPECT_EQ(written(), pageOf(words({0, 13, 16, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0})));
    for (const float code : {0.5F, 19.0F}) EXPECT_FALSE(canBeReadAgain(itemRow({code, 1})));
    begin();
    musItemTable.itemCount = 0;
    for (int i = 0; i < 2000; ++i) addItem({16, 1}, std::string(64, 'x'));
    EXPECT_EQ(written().substr(0, 2), header(2000 * 30 + 6 - 65536)) << "the count wraps";
    EXPECT_FALSE(pipeline.page.isReadable);
}

TEST_F(PipelineRun, CountsTheCharactersOfTextsForTheToolsThatEditThem) {
    const auto expectLength = [this](const ToolForm& form, float length) {
        onlyItem({16, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3}, "_00longer");
        written(form);
        EXPECT_EQ(musItemTable[1].pars[12], length);
    };
    for (const ToolForm& form : {common, dropping, ownUnsaved}) expectLength(form, 3);
    for (const ToolForm& form : {counting, own}) expectLength(form, 9);
}

TEST_F(PipelineRun, AppliesTheUnitOfTheLastTrailer) {
    EXPECT_EQ(rewrite(pageOf(barline, trailer(true))), pageOf(barline, trailer(true)));
    const std::string fiveWords = trailer().substr(0, 20);
    EXPECT_EQ(rewrite(pageOf(barline, fiveWords)), pageOf(barline, trailer(true)))
        << "a short trailer has no unit: that of the page before stays";
    EXPECT_EQ(rewrite(pageOf(barline)), pageOf(barline));
    // Its words are taken as the first of six here: the fourth is the unit.
    EXPECT_EQ(rewrite(pageOf(barline, trailer(true).substr(0, 20)), own), pageOf(barline, trailer(true)));
}

TEST_F(PipelineRun, KeepsEveryItemOfAPageAndItsOwnPagesByteForByte) {
    Texts pages;
    for (const samples::Sample& sample : samples::scores()) pages.push_back(sample.bytes);
    for (int number = 1; number <= 20; ++number) pages.push_back(samples::manyPage(number, 6000));
    for (const ToolForm& form : {common, own, ownUnsaved}) {
        for (const std::string& bytes : pages) {
            ASSERT_TRUE(store(bytes, form));
            ASSERT_TRUE(pipeline.page.isWhole());
            std::vector<ItemRow> before;
            for (int item = 1; item <= musItemTable.itemCount; ++item) before.push_back(musItemTable[item]);
            writeFile(form);
            const std::string once = host.read("PAGE.MUS");
            ASSERT_EQ(rewrite(once, form), once);
            ASSERT_EQ(static_cast<std::size_t>(musItemTable.itemCount), before.size());
            for (int item = 1; item <= musItemTable.itemCount; ++item) {
                const ItemRow& row = before[static_cast<std::size_t>(item - 1)];
                for (int par = 1; par <= Parameters::count; ++par)
                    ASSERT_EQ(musItemTable[item].pars[par], row.pars[par]) << item << ' ' << par;
                ASSERT_EQ(trimRight(musItemTable[item].text), trimRight(row.text));
            }
        }
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PipelineRun, DamageEndsTheReadingButNotTheRun) {
    const std::string damaged = pageOf(staff + barline + words({1, 14, 1}));
    EXPECT_EQ(rewrite(damaged), pageOf(staff + barline));
    EXPECT_EQ(host.messages, Texts{structuralError});
    EXPECT_TRUE(pipeline.page.isWritten && !pipeline.page.isWhole());
    for (const ToolForm& form : {own, ownUnsaved}) {
        EXPECT_EQ(rewrite(damaged, form), pageOf(staff + barline));
        EXPECT_EQ(rewrite(pageOf(staff + words({13, 15, 1})), form), pageOf(staff));
        EXPECT_EQ(rewrite(pageOf(staff + words({2, 19, 1})), form), pageOf(staff));
        EXPECT_EQ(rewrite(pageOf(staff, "", 9), form), pageOf(staff)) << "a count that is never reached";
    }
    EXPECT_TRUE(store(damaged, silent));
    EXPECT_EQ(musItemTable.itemCount, 2);
    EXPECT_EQ(host.messages.size(), 1U) << "the others say nothing";
}

TEST_F(PipelineRun, APageOfAnotherLengthThanItSaysIsTold) {
    const std::string cutTrailer = pageOf(staff + barline, trailer(true)).substr(0, 2 + 4 * 15);
    const std::string lowCount = pageOf(staff + barline + barline + barline, trailer(), -8);
    // The count leads to the end of an item, and the next ones are taken for the trailer.
    EXPECT_EQ(rewrite(lowCount), pageOf(staff + barline, trailer(true)));
    EXPECT_FALSE(pipeline.page.isWhole());
    for (const auto& [page, form] : {std::pair{cutTrailer, common}, {lowCount, own}}) {
        rewrite(page, form);
        EXPECT_FALSE(pipeline.page.isWhole());
    }
    rewrite(pageOf(staff + barline) + "\x1A");
    EXPECT_TRUE(pipeline.page.isWhole()) << "less than a word behind the end is nothing";
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PipelineRun, APageWithoutAReadableItemIsLeftAlone) {
    // One whose writing was interrupted before the header, and one that is damaged in its first item.
    EXPECT_EQ(rewrite(header(0) + staff + barline), header(0) + staff + barline);
    EXPECT_TRUE(host.messages.empty());
    const std::string damaged = pageOf(words({1, 14, 1}) + barline);
    EXPECT_EQ(rewrite(damaged), damaged);
    EXPECT_FALSE(pipeline.page.isWritten || pipeline.page.isWhole());
}

TEST_F(PipelineRun, AnItemOfTooManyParametersAbandonsTheReadingWithoutAMessage) {
    std::string wide = words({21, 1});
    for (int par = 2; par <= 21; ++par) wide += words({1});
    RunView view;
    pipeline.view = &view;
    for (const ToolForm& form : {common, counting, own, ownUnsaved}) {
        EXPECT_FALSE(store(pageOf(staff + wide + barline), form));
        EXPECT_FALSE(view.inFile.visible);
        EXPECT_EQ(rewrite(pageOf(staff + wide + barline), form), pageOf(staff));
        EXPECT_FALSE(pipeline.page.isWhole());
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(PipelineRun, CodesAreTakenAsReadWhereTheLoopIsTheToolsOwn) {
    // To the common loop 16.5 is a text, and asks; to the others it is an item of sixteen parameters.
    const std::string text = words({15, 16.5F, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}) + "abcdefgh";
    EXPECT_TRUE(store(pageOf(text)));
    EXPECT_EQ(musItemTable[1].text, "abcde");
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_TRUE(store(pageOf(text), ownUnsaved));
    EXPECT_EQ(musItemTable[1].text, "");
    EXPECT_NE(musItemTable[1].pars[14], 0.0F);
    EXPECT_EQ(host.messages.size(), 1U);
    for (const float code : {11.0F, 16.0F})
        EXPECT_EQ(host.fatal([&] {
            rewrite(pageOf(words({5, code, 1, 2, 3, 4})), own);
        }),
                  "Invalid MUS file. Error type 7. Hit OK to terminate");
}

TEST_F(PipelineRun, TheTableIsFullAtTwoThousandItems) {
    PageBuilder page;
    for (int i = 0; i < 2000; ++i) page.item({14, 1});
    EXPECT_TRUE(store(page.bytes()));
    EXPECT_EQ(musItemTable.itemCount, 2000);
    const std::string tooBig = page.item({14, 1}).bytes();
    EXPECT_EQ(host.fatal([&] { rewrite(tooBig); }), "MUS file too big for operation. Hit OK to terminate.");
    EXPECT_EQ(host.read("PAGE.MUS"), tooBig);
    EXPECT_THROW(static_cast<void>(musItemTable[2001]), IndexFault);
    EXPECT_THROW(static_cast<void>(musItemTable[0]), IndexFault);
}

TEST_F(PipelineRun, APageThatCannotBeWrittenStaysAndEndsTheProgram) {
    const std::string bytes = pageOf(staff + barline);
    EXPECT_TRUE(store(bytes));
    const std::string failure = "Open of output MUS file failed. Hit OK to terminate";
    for (const auto& [fault, form, told] : std::vector<std::tuple<FileError, ToolForm, std::string>>{
             {FileError::readOnly, common,
              "Attempt to rewrite Read-only file\r\n" + currentPath() + "\r\nRun canceled"},
             {FileError::permissionDenied, common, failure},
             {FileError::permissionDenied, counting, failure + "."},
             {FileError::diskFull, common,
              "Failed to write file " + currentPath() +
                  ". Drive full.\r\nThe file is as it was before. Hit OK to terminate."}}) {
        host.faultyFiles().refusals["PAGE.MUS"] = fault;
        EXPECT_EQ(host.fatal([&form = form] { writeFile(form); }), told);
        EXPECT_EQ(host.read("PAGE.MUS"), bytes);
    }
}

TEST_F(PipelineRun, ARunGoesOnWithoutABackupThatFailed) {
    pipeline.backup = true;
    host.faultyFiles().refusals["PAGE.BKU"] = FileError::diskFull;
    EXPECT_TRUE(store(pageOf(staff + barline)));
    EXPECT_EQ(host.messages.back(), "Failed to take backup copy of file " + currentPath() + ". Drive full.");
    EXPECT_EQ(musItemTable.itemCount, 2);
}

TEST_F(PipelineRun, BacksUpWhereTheToolAndTheBoxDo) {
    const std::string bytes = pageOf(staff + barline);
    const auto generations = [&](const ToolForm& form, bool box) {
        pipeline.backup = box;
        rewrite(bytes, form);
        int count = 0;
        for (const char* name : {"PAGE.BKU", "PAGE.BKV", "PAGE.BKW", "PAGE.BKX"}) count += host.exists(name);
        return count;
    };
    EXPECT_EQ(generations(common, false), 0);
    EXPECT_EQ(generations(ownUnsaved, true), 0);
    EXPECT_EQ(generations(silent, true), 0);
    EXPECT_EQ(generations(common, true), 1);
    EXPECT_EQ(generations(own, true), 2);
    EXPECT_EQ(host.read("PAGE.BKV"), bytes);
}

}  // namespace
}  // namespace tul
