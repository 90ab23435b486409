#include "edit/resize_checks.h"

#include "support/test.h"

namespace tul::resize {
namespace {

class ResizeFields : public HostTest {
  protected:
    using Keep = std::string (*)(const std::string&);
    void expectKept(Keep keep, const std::string& typed, const std::string& kept, const Texts& told = {}) {
        host.messages.clear();
        EXPECT_EQ(keep(typed), kept) << typed;
        EXPECT_EQ(host.messages, told) << typed;
    }
};

TEST_F(ResizeFields, KeepWhatLiesBetweenTheirEdges) {
    const auto expectEdges = [this](Keep keep, const Texts& fits, const Texts& refused,
                                    const std::string& assumed, const std::string& told) {
        for (const std::string& typed : fits) expectKept(keep, typed, typed);
        for (const std::string& typed : refused) expectKept(keep, typed, assumed, {told});
    };
    expectEdges(keepNoteSize, {"0.7001", "2"}, {"0.7", "2.001"}, "1.1",
                "Invalid note size value. Assumed 1.1");
    expectEdges(keepSlurThickness, {"0.001", "10"}, {"0", "10.01", ""}, "1",
                "Invalid slur thickness value. Assumed 1.0");
    expectEdges(keepStaffSize, {"0.3001", "2"}, {"0.3", "2.001"}, "1",
                "Invalid staff size value. Assumed 1.0");
    expectEdges(keepBarNumberSize, {"0.001", "10"}, {"0", "10.01"}, "1",
                "Invalid bar size value. Assumed 1.0");
    expectEdges(keepPageNumberSize, {"0.001", "10"}, {"-1", "201.1"}, "1.1",
                "Invalid page number size value. Assumed 1.1");
    expectEdges(keepTextSize, {"0.001", "10"}, {"0", "10.01"}, "1", "Invalid lyrics size value. Assumed 1.0");
    expectEdges(keepSymbolNumber, {"0", "3999"}, {"-1", "3999.5"}, "0",
                "Symbol not isn range 0 - 3999. Assumed 0");
    expectEdges(keepSymbolSize, {"0.001", "99.99"}, {"0", "100"}, "1", "Invalid size. Assumed 1");
    expectEdges(keepNumberFont, {"0", "11", "1000", "1089"}, {}, "", "");
    for (const char* font : {"-1", "11.5", "999", "1090"})
        expectKept(keepNumberFont, font, font, {"Warning. Probably not a valid font number."});
    expectKept(keepNumberFont, "12 bold", "12", {"Warning. Probably not a valid font number."});
    expectKept(keepNoteSize, " 1.50 and more", "1.5");
    expectKept(keepSlurThickness, "0.00001", "0.00001");
    expectKept(keepInstrumentId, "10000000", "10000000");
}

TEST_F(ResizeFields, KeepPartsAndInstrumentIds) {
    expectKept(keepInstrumentId, "-12", "12");
    expectKept(keepInstrumentId, "1.5,2", "1.5");
    expectKept(keepInstrumentId, "none", "1", {"Invalid Instrument Id. Assumed 1"});

    const std::string staff = "Invalid staff number. Assumed 1.";
    const std::string increment = "Invalid increment. Assumed 1.";
    using Pairs = std::vector<std::pair<const char*, const char*>>;
    for (const auto& [typed, kept] :
         Pairs{{"3", "3,1"}, {"-3,-2,9", "3,2"}, {"2.5,3.5", "2,4"}, {"1,31", "1,31"}, {"31", "31,1"}})
        expectKept(keepPart, typed, kept);
    for (const char* typed : {"0,4", "33,4", "99999999999,4"}) expectKept(keepPart, typed, "1,4", {staff});
    for (const auto& [typed, kept] :
         Pairs{{"32", "32,1"}, {"2,31", "2,1"}, {"1,32", "1,1"}, {"4,", "4,1"}, {"4,99999999999", "4,1"}})
        expectKept(keepPart, typed, kept, {increment});
    expectKept(keepPart, ",", "1,1", {staff, increment});
}

TEST_F(ResizeFields, KeepTextsThatBeginWithAFont) {
    const std::string discarded = "String not starting with one or two underscores. Input discarded";
    const std::string nonNumeric = "Non-numeric font prefix. Expecting _NN or __NN.";
    for (const char* text : {"_00", "__12", "_00Fine ", "__99x", "_001"})
        EXPECT_EQ(keepTextWithFont(text, "_01old"), text);
    EXPECT_EQ(host.messages, Texts{});
    for (const char* text : {"", "Fine", " _00"}) EXPECT_EQ(keepTextWithFont(text, "_01old"), "_01old");
    EXPECT_EQ(host.messages, (Texts{discarded, discarded, discarded}));
    host.messages.clear();
    for (const char* text : {"_", "_0", "__0", "_a1", "_1:", "___12"})
        EXPECT_EQ(keepTextWithFont(text, "_01old"), "_01old");
    EXPECT_EQ(host.messages, Texts(6, nonNumeric));
}

}  // namespace
}  // namespace tul::resize
