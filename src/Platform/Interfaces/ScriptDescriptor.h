#pragma once

#include <QString>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace tolvar {

/// The number that a scripting system knows a type by: its four characters, the first one highest.
constexpr quint32 fourCharacterCode(const char (&characters)[5]) {
    quint32 code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(characters[i]);
    return code;
}

/// The types of values that somebody here asks for. A reply may hold any other one, too.
enum class DescriptorType : quint32 {
    list = fourCharacterCode("list"),
    /// Integers of 16, 32 and 64 bits.
    shortInteger = fourCharacterCode("shor"),
    longInteger = fourCharacterCode("long"),
    hugeInteger = fourCharacterCode("comp"),
    /// Text in UTF-16, in UTF-8 and in the system's old encoding.
    unicodeText = fourCharacterCode("utxt"),
    utf8Text = fourCharacterCode("utf8"),
    plainText = fourCharacterCode("TEXT"),
};

/// A value that a script gave back.
struct ScriptDescriptor {
    DescriptorType type{};
    /// What the value is as an integer; 0 for one that is none.
    qint64 integer = 0;
    /// What the value is as text; nothing for one that cannot be told as text.
    std::optional<QString> text;
    /// The elements of a list or a record, in order.
    std::vector<ScriptDescriptor> items;

    bool operator==(const ScriptDescriptor&) const = default;

    /// The integer, or the 32-bit one that is nearest to it.
    qint32 int32Value() const {
        using Range = std::numeric_limits<qint32>;
        return static_cast<qint32>(std::clamp<qint64>(integer, Range::min(), Range::max()));
    }

    static ScriptDescriptor ofInteger(qint64 value,
                                      DescriptorType type = DescriptorType::longInteger) {
        return {.type = type, .integer = value, .text = QString::number(value), .items = {}};
    }
    static ScriptDescriptor ofText(const QString& value,
                                   DescriptorType type = DescriptorType::unicodeText) {
        return {.type = type, .text = value, .items = {}};
    }
    static ScriptDescriptor ofList(std::vector<ScriptDescriptor> values) {
        return {.type = DescriptorType::list, .text = {}, .items = std::move(values)};
    }
};

} // namespace tolvar
