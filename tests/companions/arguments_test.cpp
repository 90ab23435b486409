#include <gtest/gtest.h>

#include "companions/companion.h"

namespace tul {
namespace {

using companion::ArgumentPairs;

TEST(ArgumentString, HoldsBlanksAndCommasInItsValues) {
    const ArgumentPairs pairs("STARTDIR=Z:\\My Music, old,SUFFIX=MUS,MSG=Select file(s), or none,DEBUG=NO");
    EXPECT_EQ(pairs["STARTDIR"], "Z:\\My Music, old");
    EXPECT_EQ(pairs["SUFFIX"], "MUS");
    EXPECT_EQ(pairs["MSG"], "Select file(s), or none");
    EXPECT_EQ(pairs["NAMESFILE"], "");
    EXPECT_TRUE(ArgumentPairs("").list().empty());
}

TEST(ArgumentString, EndsInTheListOfPaths) {
    const ArgumentPairs pairs("NAMESFILE=NAMES.TUL,TYPE=MUS,LIST=Z:\\a=b.mus,Z:\\c, d.mus,C:\\e.mus,");
    EXPECT_EQ(pairs.list(), (std::vector<std::string>{"Z:\\a=b.mus", "Z:\\c, d.mus", "C:\\e.mus"}));
}

}  // namespace
}  // namespace tul
