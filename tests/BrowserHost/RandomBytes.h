#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tolvar::test {

/// The same accidents at each run.
class RandomBytes {
public:
    explicit RandomBytes(std::uint32_t seed)
        : m_engine(seed) {}

    /// From 0 to `limit` - 1.
    std::size_t below(std::size_t limit) { return m_engine() % limit; }

    std::string bytes(std::size_t count) {
        std::string result(count, '\0');
        for (char& byte : result)
            byte = static_cast<char>(below(256));
        return result;
    }

    /// The text with up to three letters changed, left out, doubled or put in.
    std::string damaged(std::string text) {
        for (std::size_t count = 1 + below(3); count > 0 && !text.empty(); --count)
            damageOnce(text);
        return text;
    }

private:
    void damageOnce(std::string& text) {
        const std::size_t place = below(text.size());
        switch (below(4)) {
        case 0:
            text[place] = static_cast<char>(below(256));
            break;
        case 1:
            text.erase(place, 1 + below(4));
            break;
        case 2:
            text.insert(place, text.substr(place, 1 + below(8)));
            break;
        default:
            text.insert(place, 1, R"({}[]",:0123456789-.eE)"[below(20)]);
        }
    }

    std::mt19937 m_engine;
};

} // namespace tolvar::test
