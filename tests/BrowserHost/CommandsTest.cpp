#include "BrowserHost/Commands.h"

#include "BrowserHost/RandomBytes.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace tolvar::test {
namespace {

std::string blank(const std::string& tabs) {
    return R"({"command":"blank","tabs":[)" + tabs + "]}";
}

std::string manyTabs(int count) {
    std::string tabs = "1";
    for (int tab = 2; tab <= count; ++tab)
        tabs += "," + std::to_string(tab);
    return tabs;
}

TEST(Commands, AreTheTwo) {
    EXPECT_TRUE(isPermittedCommand(R"({"command":"list"})"));
    EXPECT_TRUE(isPermittedCommand(blank("93")));
    EXPECT_TRUE(isPermittedCommand(blank("0,93,123456789012345")));
    EXPECT_TRUE(isPermittedCommand(blank(manyTabs(1000))));
}

TEST(Commands, AreNothingElse) {
    for (const char* text :
         {"", "{}", "null", "list", R"({"command":"open"})", R"({"command":"list"} )",
          R"({"command":"list","tabs":[1]})", R"({"command":"blank"})",
          R"({"command":"blank","tabs":[1]},{"command":"open"})",
          R"({"command":"blank","tabs":[1],"url":"https://example.com/"})",
          R"({"command":"blank","url":"https://example.com/","tabs":[1]})"})
        EXPECT_FALSE(isPermittedCommand(text)) << text;
}

TEST(Commands, NameTabsByPlainNumbers) {
    for (const char* tabs : {"", ",", "1,", ",1", "1,,2", "-1", "1.5", "1e3", "01", "+1", " 1",
                             "\"1\"", "null", "1234567890123456", "[1]", "1]},{\"a\":[2"})
        EXPECT_FALSE(isPermittedCommand(blank(tabs))) << tabs;
    EXPECT_FALSE(isPermittedCommand(blank(manyTabs(1001))));
}

TEST(Commands, StayTheTwoHoweverTheyAreDamaged) {
    const std::regex permitted(
        R"(\{"command":"list"\}|\{"command":"blank","tabs":\[(0|[1-9][0-9]{0,14})(,(0|[1-9][0-9]{0,14}))*\]\})");
    RandomBytes random(3);
    int accepted = 0;
    for (int input = 0; input < 30'000; ++input) {
        const std::string text =
            random.damaged(input % 2 == 0 ? R"({"command":"list"})" : blank("93,4711,5"));
        const bool isPermitted = isPermittedCommand(text);
        ASSERT_EQ(isPermitted, std::regex_match(text, permitted)) << text;
        accepted += isPermitted ? 1 : 0;
    }
    EXPECT_GT(accepted, 100);
}

} // namespace
} // namespace tolvar::test
