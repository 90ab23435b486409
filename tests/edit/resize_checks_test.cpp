#include "edit/resize_checks.h"

#include "support/test.h"

namespace tul::resize {
namespace {

using ResizeFields = HostTest;

TEST_F(ResizeFields, KeepWhatLiesBetweenTheirEdges) {
    const auto expectEdges = [this](auto keep, const Texts& fits, const Texts& refused,
                                    const std::string& assumed, const std::string& told) {
        for (const std::string& typed : fits) expectKept(keep, {{typed, typed}});
        for (const std::string& typed : refused) expectKept(keep, {{typed, assumed}}, {told});
    };
    expectEdges(keepNoteSize, {"0.7001", "2"}, {"0.7", "2.001"}, "1.1",
                "Invalid note size value. Assumed 1.1");
    expectEdges(keepSlurThickness, {"0.001", "10", "0.00001"}, {"0", "10.01", ""}, "1",
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
    expectKept(keepNumberFont,
               {{"-1", "-1"}, {"11.5", "11.5"}, {"999", "999"}, {"1090", "1090"}, {"12 bold", "12"}},
               {"Warning. Probably not a valid font number."});
    expectKept(keepNoteSize, {{" 1.50 and more", "1.5"}});
}

TEST_F(ResizeFields, KeepPartsAndInstrumentIds) {
    expectKept(keepInstrumentId, {{"-12", "12"}, {"1.5,2", "1.5"}, {"10000000", "10000000"}});
    expectKept(keepInstrumentId, {{"none", "1"}}, {"Invalid Instrument Id. Assumed 1"});
    const std::string staff = "Invalid staff number. Assumed 1.";
    const std::string increment = "Invalid increment. Assumed 1.";
    expectKept(keepPart,
               {{"3", "3,1"}, {"-3,-2,9", "3,2"}, {"2.5,3.5", "2,4"}, {"1,31", "1,31"}, {"31", "31,1"}});
    expectKept(keepPart, {{"0,4", "1,4"}, {"33,4", "1,4"}, {"99999999999,4", "1,4"}}, {staff});
    expectKept(keepPart,
               {{"32", "32,1"}, {"2,31", "2,1"}, {"1,32", "1,1"}, {"4,", "4,1"}, {"4,99999999999", "4,1"}},
               {increment});
    expectKept(keepPart, {{",", "1,1"}}, {staff, increment});
}

TEST_F(ResizeFields, KeepTextsThatBeginWithAFont) {
    const auto keep = [](const std::string& typed) { return keepTextWithFont(typed, "_01old"); };
    for (const char* text : {"_00", "__12", "_00Fine ", "__99x", "_001"}) expectKept(keep, {{text, text}});
    for (const char* text : {"", "Fine", " _00"})
        expectKept(keep, {{text, "_01old"}},
                   {"String not starting with one or two underscores. Input discarded"});
    for (const char* text : {"_", "_0", "__0", "_a1", "_1:", "___12"})
        expectKept(keep, {{text, "_01old"}}, {"Non-numeric font prefix. Expecting _NN or __NN."});
}

}  // namespace
}  // namespace tul::resize
