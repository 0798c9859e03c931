#pragma once

#include <QByteArray>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace tolvar::test {

/// A JSON object as pairs of keys and the literal texts of their values, to be varied by hand.
class JsonObject {
public:
    JsonObject(std::initializer_list<std::pair<QByteArray, QByteArray>> members)
        : m_members(members) {}

    JsonObject without(const QByteArray& key) const {
        auto copy = *this;
        std::erase_if(copy.m_members, [&](const auto& member) { return member.first == key; });
        return copy;
    }
    /// With the value, in place of one that is there.
    JsonObject with(const QByteArray& key, const QByteArray& value) const {
        auto copy = without(key);
        copy.m_members.emplace_back(key, value);
        return copy;
    }

    /// The same members from the last to the first.
    JsonObject reversed() const {
        auto copy = *this;
        std::reverse(copy.m_members.begin(), copy.m_members.end());
        return copy;
    }

    std::vector<QByteArray> keys() const {
        std::vector<QByteArray> keys;
        for (const auto& [key, value] : m_members)
            keys.push_back(key);
        return keys;
    }

    QByteArray text() const {
        QByteArray text;
        for (const auto& [key, value] : m_members)
            text += (text.isEmpty() ? "{\"" : ",\"") + key + "\":" + value;
        return text + "}";
    }
    /// An array that holds only this object.
    QByteArray list() const { return "[" + text() + "]"; }

private:
    std::vector<std::pair<QByteArray, QByteArray>> m_members;
};

} // namespace tolvar::test
