#include "music/mus_reader.h"

#include <cmath>

#include "support/test.h"

namespace tul {
namespace {

class MusReading : public HostTest {
  protected:
    void open(const std::string& bytes, const std::string& name = "PAGE.MUS") {
        host.write(name, bytes);
        MusOpen(host.path(name), musReader.MusWordCount);
    }
    /// Reads to the end; the codes of the items, and the state that ended it.
    std::vector<float> readAll(const std::string& bytes) {
        open(bytes);
        std::vector<float> codes;
        for (MusNextItem(); musReader.MusReadState == musItemReady; MusNextItem())
            codes.push_back(musItem.MusPar[1]);
        MusClose();
        return codes;
    }
    std::int16_t stateAfter(const std::string& bytes) {
        readAll(bytes);
        return musReader.MusReadState;
    }
};

TEST_F(MusReading, TakesItemsAndTrailerByCountingWords) {
    const std::string items = words({6, 8, 1, 0, 0, 0.75F, 200}) + words({2, 14, 1});
    EXPECT_EQ(readAll(pageOf(items, trailer(true))), (std::vector<float>{8, 14}));
    EXPECT_EQ(musReader.MusReadState, musEndOfItems);
    EXPECT_EQ(musItem.MusItemNumber, 2);
    EXPECT_EQ(musReader.MusVersionStamp, 80200);
    EXPECT_EQ(musReader.MusVersionText, "80200 ");
    EXPECT_EQ(musReader.MusUnitText, "(Metric)");
    EXPECT_EQ(musItem.MusWord, 1.0F) << "the unit word stays";

    open(pageOf(items));
    MusNextItem();
    EXPECT_EQ(musItem.MusParCount, 6);
    EXPECT_EQ(musItem.MusPar[5], 0.75F);
    EXPECT_EQ(musItem.MusPar[7], 0.0F) << "what is missing is 0.0";
    EXPECT_EQ(musProgress(), 7 * 100 / 16);
}

TEST_F(MusReading, KeepsTheUnitOfTheFileBeforeAShortTrailer) {
    const std::string item = words({2, 14, 1});
    const std::string shortTrailer = words({0, 0, 3, 1, -9999});
    EXPECT_EQ(readAll(pageOf(item, shortTrailer)).size(), 1U);
    EXPECT_EQ(musReader.MusUnitText, "") << "no file before it";
    readAll(pageOf(item, trailer(true)));
    readAll(pageOf(item, shortTrailer));
    EXPECT_EQ(musReader.MusReadState, musEndOfItems);
    EXPECT_EQ(musReader.MusUnitText, "(Metric)");
    EXPECT_EQ(musReader.MusVersionText, "");
    EXPECT_EQ(musReader.MusVersionStamp, 0);
}

TEST_F(MusReading, CutsTextByItsCode) {
    const auto textItem = [](float code, float par12, float par13, const std::string& text) {
        return words({static_cast<float>(13 + text.size() / 4), code, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, par12,
                      par13}) +
               text;
    };
    struct Case {
        float code, par12;
        const char *text, *cut;
        float par13;
    };
    // The word before the text is dropped, but for code 15. Less than no characters is no count.
    const std::vector<Case> cases = {{16, 6.4F, "_00Largo", "_00Lar", 0},
                                     {11, 0, "abcdefgh", "abcde", 0},
                                     {15, 3, "name    ", "name    ", 77},
                                     {16, 99, "_00A", "_00A", 0},
                                     {16, 0, "_00A", "", 0},
                                     {16.5F, 8, "_00Largo", "_00La", 0},
                                     {16, -1, "_00A", "_00A", 0},
                                     {16, notANumber, "_00A", "_00A", 0}};
    std::string page;
    for (const Case& item : cases)
        page += textItem(item.code, item.par12, item.code == 16.5F ? 0 : 77, item.text);
    open(pageOf(page));
    for (const Case& item : cases) {
        MusNextItem();
        EXPECT_EQ(musItem.MusText, item.cut);
        EXPECT_EQ(musItem.MusPar[1], item.code);
        EXPECT_EQ(musItem.MusPar[13], item.par13) << item.text;
    }
    EXPECT_EQ(host.messages,
              Texts{"Par1 is not an integer value: 16.5\r\nItem= 6\r\nValue assumed to be integer."});
    MusNextItem();
    EXPECT_EQ(musReader.MusReadState, musEndOfItems);
}

TEST_F(MusReading, RoundsLengthWordsToTheNearestEven) {
    EXPECT_EQ(readAll(pageOf(words({1.5F, 14, 1}) + words({2.5F, 8, 1}))), (std::vector<float>{14, 8}));
}

TEST_F(MusReading, RefusesLengthsAndCodesThatNoItemHas) {
    for (const float length :
         {0.5F, 1.4F, -1.0F, 32768.0F, -40000.0F, 1E30F, notANumber, infinity, -infinity})
        EXPECT_EQ(stateAfter(pageOf(words({length, 14, 1}))), musStructuralError) << length;
    EXPECT_EQ(musItem.MusItemNumber, 1);
    for (const float code : {0.0F, 0.999F, 18.001F, -1.0F, infinity})
        EXPECT_EQ(stateAfter(pageOf(words({2, code, 1}))), musStructuralError) << code;
    for (const float code : {11.0F, 15.0F, 16.0F, 15.5F})
        EXPECT_EQ(stateAfter(pageOf(words({13, code, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}))),
                  musStructuralError)
            << "too short for a text: " << code;
    EXPECT_EQ(readAll(pageOf(words({2, 1, 1}) + words({2, 18, 1}) + words({2, notANumber, 1}))).size(), 3U);
    EXPECT_TRUE(host.messages.back().starts_with("Par1 is not an integer value: NAN"));
}

TEST_F(MusReading, ThrowsAtTheStoreIntoParameterTwentyOne) {
    std::string item = words({21, 5});
    for (int i = 0; i < 20; ++i) item += words({static_cast<float>(i)});
    open(pageOf(item));
    EXPECT_THROW(MusNextItem(), IndexFault);
    EXPECT_EQ(musReader.MusReadState, musItemReady);
    EXPECT_EQ(musItem.MusPar[20], 18.0F);
    EXPECT_EQ(musReader.MusWordIndex, 22);
    EXPECT_THROW(musItem.MusPar[0], IndexFault);
}

TEST_F(MusReading, MissesTheTrailerWhereTheHeaderIsWrong) {
    const std::string items = words({2, 14, 1}) + words({3, 8, 1, 0});
    EXPECT_EQ(stateAfter(pageOf(items, trailer(), -1)), musEndOfItems)
        << "a word less passes for the short trailer";
    EXPECT_EQ(musReader.MusVersionText, "");
    EXPECT_EQ(stateAfter(pageOf(items, trailer(), 1)), musStructuralError);
    EXPECT_EQ(stateAfter(pageOf(items, trailer(), 2)), musStructuralError);
    EXPECT_EQ(stateAfter(pageOf(items, "")), musStructuralError);
    EXPECT_EQ(readAll(header(3) + items).size(), 2U) << "an item may begin at the last word of the count";
}

TEST_F(MusReading, EndsWithAStateWhateverTheFileIs) {
    EXPECT_EQ(stateAfter(""), musStructuralError);
    EXPECT_EQ(musReader.MusWordCount, 0);
    EXPECT_EQ(stateAfter("\x07"), musStructuralError);
    EXPECT_EQ(musReader.MusWordCount, 7) << "the missing byte of the header is 0";
    EXPECT_EQ(stateAfter(header(0x8001)), musStructuralError);
    EXPECT_EQ(musReader.MusWordCount, -32767);
    EXPECT_EQ(musReader.MusWordIndex, 0);

    MusOpen(host.path("GONE.MUS"), musReader.MusWordCount);
    EXPECT_EQ(musReader.MusWordCount, -1);
    MusNextItem();
    EXPECT_EQ(musReader.MusReadState, musStructuralError);
    host.makeFolder("DIR.MUS");
    MusOpen(host.path("DIR.MUS"), musReader.MusWordCount);
    EXPECT_EQ(musReader.MusWordCount, -1);
}

TEST_F(MusReading, FillsAWordThatTheFileCutsWithZeroBytes) {
    const std::string page = header(20) + words({4, 14, 1, 2}) + std::string("\x00\x00\x80", 3);
    open(page);
    MusNextItem();
    EXPECT_EQ(musReader.MusReadState, musItemReady);
    EXPECT_EQ(musItem.MusPar[4], std::bit_cast<float>(0x00800000U));
    MusNextItem();
    EXPECT_EQ(musReader.MusReadState, musStructuralError) << "beyond the end a length word is 0.0";
}

TEST_F(MusReading, FindsTheFileListByItsExactName) {
    const std::string list = words({2, 14, 1});
    open(list, "FILES.TMP");
    EXPECT_EQ(musReader.MusWordCount, 3);
    EXPECT_EQ(musReader.MusBytePos, 1);
    MusNextItem();
    EXPECT_EQ(musItem.MusPar[1], 14.0F);
    open(list, "XFILES.TMP");
    EXPECT_EQ(musReader.MusBytePos, 3);
    open(list, "files.tmp");
    EXPECT_EQ(musReader.MusBytePos, 3) << "in lower case it is a page like any other";
}

}  // namespace
}  // namespace tul
