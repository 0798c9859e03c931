#include "BrowserHost/Commands.h"

#include <algorithm>
#include <cstddef>

namespace tolvar {

namespace {

constexpr std::string_view listCommand = R"({"command":"list"})";
constexpr std::string_view blankBeginning = R"({"command":"blank","tabs":[)";
constexpr std::string_view blankEnd = "]}";
constexpr std::size_t longestNumber = 15;
constexpr int mostTabs = 1000;

bool isNumber(std::string_view text) {
    const bool isSized = !text.empty() && text.size() <= longestNumber;
    const bool isPlain = text == "0" || !text.starts_with('0');
    return isSized && isPlain &&
           std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool isListOfNumbers(std::string_view text) {
    for (int count = 1; count <= mostTabs; ++count) {
        const std::size_t comma = text.find(',');
        if (!isNumber(text.substr(0, comma)))
            return false;
        if (comma == std::string_view::npos)
            return true;
        text.remove_prefix(comma + 1);
    }
    return false;
}

} // namespace

bool isPermittedCommand(std::string_view frame) {
    if (frame == listCommand)
        return true;
    if (!frame.starts_with(blankBeginning) || !frame.ends_with(blankEnd))
        return false;
    frame.remove_prefix(blankBeginning.size());
    frame.remove_suffix(blankEnd.size());
    return isListOfNumbers(frame);
}

} // namespace tolvar
