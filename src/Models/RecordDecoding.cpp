#include "Models/RecordCoding.h"
#include "Models/RecordFields.h"
#include "Models/RecordValues.h"

#include <rapidjson/reader.h>

#include <cstdint>
#include <iterator>
#include <string_view>

namespace tolvar::RecordCoding {

namespace {

/// Where the value that the parser meets next belongs.
using Target =
    std::variant<UnknownField*, bool*, Seconds*, QString*, QUuid*, std::optional<int>*,
                 std::optional<Seconds>*, std::optional<Date>*, std::optional<QUuid>*,
                 std::optional<SessionOutcome>*, std::vector<QString>*, std::vector<BlockCategory>*,
                 std::vector<FocusPreset>*, std::vector<FocusSession>*, BlockCategory*,
                 FocusPreset*, FocusSession*>;

template<typename T>
inline constexpr bool isList = false;
template<typename T>
inline constexpr bool isList<std::vector<T>> = true;

/// A new element of the list, of which every field is still to be read.
template<typename T>
T& appended(std::vector<T>& list) {
    // Copied, because a new record draws a fresh identifier.
    static const T blank{};
    return list.emplace_back(blank);
}

/// Builds records from what the parser meets. Each function is false when the document must be
/// given up.
class RecordReader : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RecordReader> {
public:
    explicit RecordReader(Target root)
        : m_field(root) {}

    bool Null() { return receive(NullValue()); }
    bool Bool(bool value) { return receive(value); }
    bool RawNumber(const char* digits, rapidjson::SizeType length, bool) {
        return receive(NumberValue{{digits, length}});
    }
    bool String(const char* text, rapidjson::SizeType length, bool) {
        return receive(TextValue{{text, length}, m_texts});
    }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        return enterKey({text, length});
    }
    bool StartObject() { return open(Kind::object); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() { return open(Kind::array); }
    bool EndArray(rapidjson::SizeType) { return close(); }

private:
    enum class Kind { object, array };
    /// A record or list that is being read.
    struct Container {
        Target target;
        /// One bit for each field of the record that was met.
        std::uint32_t metFields = 0;
        /// The field that is likely to come next.
        std::size_t expectedField = 0;
    };

    template<typename Value>
    bool receive(const Value& value) {
        return std::visit([&](auto* target) { return assign(*target, value); }, nextTarget());
    }
    Target nextTarget();
    bool open(Kind kind);
    bool close();
    bool enterKey(std::string_view key);
    template<Record R>
    bool enterField(R& record, std::string_view key);
    template<Record R>
    bool finish(R& record);
    void takeItems(std::vector<QString>& list);

    std::vector<Container> m_open;
    /// The items of the list of texts that is being read, so that it can be made in one piece.
    std::vector<QString> m_items;
    /// Where the value of the current key belongs; at first, the whole document.
    Target m_field;
    /// How many objects and arrays stand around the parser within an unknown field.
    std::size_t m_ignoredDepth = 0;
    UnknownField m_unknownField;
    SharedTexts m_texts;
};

bool RecordReader::enterKey(std::string_view key) {
    if (m_ignoredDepth > 0)
        return isValidText(key);
    const auto enter = [&]<typename T>(T* record) {
        if constexpr (Record<T>)
            return enterField(*record, key);
        else
            return false;
    };
    return std::visit(enter, m_open.back().target);
}

/// A value within a list belongs into a new element of it.
Target RecordReader::nextTarget() {
    if (m_ignoredDepth > 0)
        return &m_unknownField;
    if (m_open.empty())
        return m_field;
    const auto next = [this]<typename T>(T* container) -> Target {
        if constexpr (std::is_same_v<T, std::vector<QString>>)
            return &m_items.emplace_back();
        else if constexpr (isList<T>)
            return &appended(*container);
        else
            return m_field;
    };
    return std::visit(next, m_open.back().target);
}

bool RecordReader::open(Kind kind) {
    const auto target = nextTarget();
    if (std::holds_alternative<UnknownField*>(target)) {
        ++m_ignoredDepth;
        return true;
    }
    m_open.push_back({target});
    const auto begin = [kind]<typename T>(T* container) {
        if constexpr (isList<T>)
            container->clear();
        return kind == Kind::array ? isList<T> : Record<T>;
    };
    return std::visit(begin, target);
}

bool RecordReader::close() {
    if (m_ignoredDepth > 0) {
        --m_ignoredDepth;
        return true;
    }
    const auto end = [this]<typename T>(T* container) {
        if constexpr (Record<T>)
            return finish(*container);
        if constexpr (std::is_same_v<T, std::vector<QString>>)
            takeItems(*container);
        return true;
    };
    const bool complete = std::visit(end, m_open.back().target);
    m_open.pop_back();
    return complete;
}

template<Record R>
bool RecordReader::enterField(R& record, std::string_view key) {
    constexpr auto& all = Fields<R>::all;
    auto& container = m_open.back();
    for (std::size_t step = 0; step < all.size(); ++step) {
        const auto index = (container.expectedField + step) % all.size();
        if (all[index].key != key)
            continue;
        const auto target = [&](auto member) -> Target { return &(record.*member); };
        m_field = std::visit(target, all[index].member);
        container.metFields |= 1u << index;
        container.expectedField = index + 1;
        return true;
    }
    m_field = &m_unknownField;
    return isValidText(key);
}

/// A field that was not met is absent, which only an optional one may be.
template<Record R>
bool RecordReader::finish(R& record) {
    constexpr auto& all = Fields<R>::all;
    const auto clear = [&](auto member) { return assign(record.*member, NullValue()); };
    for (std::size_t index = 0; index < all.size(); ++index)
        if ((m_open.back().metFields >> index & 1u) == 0 && !std::visit(clear, all[index].member))
            return false;
    return true;
}

void RecordReader::takeItems(std::vector<QString>& list) {
    list.assign(std::make_move_iterator(m_items.begin()), std::make_move_iterator(m_items.end()));
    m_items.clear();
}

template<typename T>
std::optional<T> decoded(QByteArray json) {
    // The parser writes the unescaped texts over the document.
    rapidjson::InsituStringStream stream(json.data());
    T value;
    RecordReader records(&value);
    rapidjson::Reader parser;
    constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    const auto result = parser.Parse<flags>(stream, records);
    // A NUL ends the document for the parser, but not for us.
    const bool isWhole = stream.Tell() == static_cast<std::size_t>(json.size());
    return !result.IsError() && isWhole ? std::optional(std::move(value)) : std::nullopt;
}

} // namespace

std::optional<FocusSession> decodeSession(QByteArray json) {
    return decoded<FocusSession>(std::move(json));
}

std::optional<std::vector<FocusSession>> decodeSessions(QByteArray json) {
    return decoded<std::vector<FocusSession>>(std::move(json));
}

std::optional<std::vector<FocusPreset>> decodePresets(QByteArray json) {
    return decoded<std::vector<FocusPreset>>(std::move(json));
}

std::optional<std::vector<BlockCategory>> decodeCategories(QByteArray json) {
    return decoded<std::vector<BlockCategory>>(std::move(json));
}

} // namespace tolvar::RecordCoding
