#include "Models/RecordCoding.h"
#include "Models/RecordFields.h"

#include <QStringConverter>
#include <QUtf8StringView>

#include <rapidjson/reader.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string_view>
#include <system_error>
#include <unordered_map>

namespace tolvar::RecordCoding {

namespace {

/// What a key that no record knows leads to.
struct Nothing {};

/// Where the value that the parser meets next belongs.
using Target =
    std::variant<Nothing*, bool*, Seconds*, QString*, QUuid*, std::optional<int>*,
                 std::optional<Seconds>*, std::optional<Date>*, std::optional<QUuid>*,
                 std::optional<SessionOutcome>*, std::vector<QString>*, std::vector<BlockCategory>*,
                 std::vector<FocusPreset>*, std::vector<FocusSession>*, BlockCategory*,
                 FocusPreset*, FocusSession*>;

template<typename T>
inline constexpr bool isList = false;
template<typename T>
inline constexpr bool isList<std::vector<T>> = true;

bool isValidText(std::string_view utf8) {
    return QUtf8StringView(utf8.data(), static_cast<qsizetype>(utf8.size())).isValidUtf8();
}

/// The texts of one document, each kept once: the same names occur in session after session.
class SharedTexts {
public:
    /// Nothing when the text is not valid UTF-8. The bytes outlive this object.
    std::optional<QString> text(std::string_view utf8) {
        const auto [found, isNew] = m_texts.try_emplace(utf8);
        if (isNew) {
            if (!isValidText(utf8))
                return std::nullopt;
            found->second = m_decoder.decode({utf8.data(), static_cast<qsizetype>(utf8.size())});
        }
        return found->second;
    }

private:
    using Flag = QStringDecoder::Flag;
    /// A byte order mark at the beginning of a text belongs to it.
    QStringDecoder m_decoder{QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom};
    std::unordered_map<std::string_view, QString> m_texts;
};

std::optional<double> parsedNumber(std::string_view digits) {
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Only the canonical form of RFC 4122 with hyphens, in either case.
std::optional<QUuid> parsedUuid(std::string_view text) {
    constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    const auto fits = [](char c, char wanted) { return wanted == 'x' ? isHexDigit(c) : c == '-'; };
    if (!std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), fits))
        return std::nullopt;
    return QUuid::fromString(QLatin1StringView(text.data(), static_cast<qsizetype>(text.size())));
}

bool assignBool(bool& field, bool value) {
    field = value;
    return true;
}

bool assignBool(Nothing&, bool) {
    return true;
}

template<typename T>
bool assignBool(T&, bool) {
    return false;
}

bool assignNumber(Seconds& field, std::string_view digits) {
    const auto number = parsedNumber(digits);
    field = number.value_or(0);
    return number.has_value();
}

bool assignNumber(std::optional<Seconds>& field, std::string_view digits) {
    field = parsedNumber(digits);
    return field.has_value();
}

bool assignNumber(std::optional<Date>& field, std::string_view digits) {
    Seconds seconds = 0;
    const bool isNumber = assignNumber(seconds, digits);
    field = Date{seconds};
    return isNumber;
}

bool assignNumber(std::optional<int>& field, std::string_view digits) {
    using Limits = std::numeric_limits<int>;
    const auto number = parsedNumber(digits);
    if (!number || *number != std::trunc(*number) || *number < Limits::min() ||
        *number > Limits::max())
        return false;
    field = static_cast<int>(*number);
    return true;
}

bool assignNumber(Nothing&, std::string_view) {
    return true;
}

template<typename T>
bool assignNumber(T&, std::string_view) {
    return false;
}

bool assignText(QString& field, std::string_view text, SharedTexts& texts) {
    auto shared = texts.text(text);
    if (shared)
        field = std::move(*shared);
    return shared.has_value();
}

bool assignText(BlockCategory& category, std::string_view text, SharedTexts& texts) {
    QString name;
    if (!assignText(name, text, texts))
        return false;
    category = BlockCategory::fromBareName(name);
    return true;
}

bool assignText(QUuid& field, std::string_view text, SharedTexts&) {
    const auto uuid = parsedUuid(text);
    field = uuid.value_or(QUuid());
    return uuid.has_value();
}

bool assignText(std::optional<QUuid>& field, std::string_view text, SharedTexts&) {
    field = parsedUuid(text);
    return field.has_value();
}

bool assignText(std::optional<SessionOutcome>& field, std::string_view text, SharedTexts&) {
    const auto* found = std::find_if(outcomes.begin(), outcomes.end(),
                                     [&](const auto& outcome) { return outcome.first == text; });
    if (found == outcomes.end())
        return false;
    field = found->second;
    return true;
}

bool assignText(Nothing&, std::string_view text, SharedTexts&) {
    return isValidText(text);
}

template<typename T>
bool assignText(T&, std::string_view, SharedTexts&) {
    return false;
}

template<typename T>
bool assignAbsent(std::optional<T>& field) {
    field.reset();
    return true;
}

bool assignAbsent(Nothing&) {
    return true;
}

template<typename T>
bool assignAbsent(T&) {
    return false;
}

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

    bool Null() {
        return assign([](auto& field) { return assignAbsent(field); });
    }
    bool Bool(bool value);
    bool RawNumber(const char* digits, rapidjson::SizeType length, bool copy);
    bool String(const char* text, rapidjson::SizeType length, bool copy);
    bool Key(const char* text, rapidjson::SizeType length, bool copy);
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

    /// Calls `assignTo` with the object that the value belongs into.
    template<typename Assign>
    bool assign(const Assign& assignTo) {
        return std::visit([&](auto* target) { return assignTo(*target); }, nextTarget());
    }
    Target nextTarget();
    bool open(Kind kind);
    bool close();
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
    /// How many objects and arrays around the parser belong nowhere.
    std::size_t m_ignoredDepth = 0;
    Nothing m_nothing;
    SharedTexts m_texts;
};

bool RecordReader::Bool(bool value) {
    return assign([value](auto& field) { return assignBool(field, value); });
}

bool RecordReader::RawNumber(const char* digits, rapidjson::SizeType length, bool) {
    return assign([&](auto& field) { return assignNumber(field, {digits, length}); });
}

bool RecordReader::String(const char* text, rapidjson::SizeType length, bool) {
    return assign([&](auto& field) { return assignText(field, {text, length}, m_texts); });
}

bool RecordReader::Key(const char* text, rapidjson::SizeType length, bool) {
    const std::string_view key(text, length);
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
        return &m_nothing;
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
    if (std::holds_alternative<Nothing*>(target)) {
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
    m_field = &m_nothing;
    return isValidText(key);
}

/// A field that was not met is absent, which only an optional one may be.
template<Record R>
bool RecordReader::finish(R& record) {
    constexpr auto& all = Fields<R>::all;
    const auto clear = [&](auto member) { return assignAbsent(record.*member); };
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
