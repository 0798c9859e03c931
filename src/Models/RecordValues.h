#pragma once

#include "Models/FocusSession.h"

#include <QStringConverter>

#include <optional>
#include <string_view>
#include <vector>

/// How the simple values of a stored document become the values of a record's fields. Nothing
/// fits that is not exactly of the field's type.
namespace tolvar::RecordCoding {

/// Whether the bytes are UTF-8 of Unicode scalars; surrogates are none.
bool isValidText(std::string_view utf8);

/// The texts of one document. The same names occur in session after session; such a text is made
/// once and shared.
class SharedTexts {
public:
    /// Nothing when the text is not valid. The bytes outlive this object.
    std::optional<QString> text(std::string_view utf8);

private:
    using Flag = QStringDecoder::Flag;
    /// A byte order mark at the beginning of a text belongs to it.
    QStringDecoder m_decoder{QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom};
    struct Slot {
        std::string_view utf8;
        QString text;
    };
    /// Each text has one slot to be remembered in, until another one takes it: so small a table
    /// stays in the processor's cache, where one of all goals would not.
    std::vector<Slot> m_slots = std::vector<Slot>(2048);
};

/// The value null.
struct NullValue {};
/// A number as the document spells it.
struct NumberValue {
    std::string_view digits;
};
/// A text of the document, without quotes and escapes.
struct TextValue {
    std::string_view utf8;
    SharedTexts& texts;
};

/// The field of a key that no record knows: takes any value.
struct UnknownField {};

/// Puts a value into a field; false when the field is of another type or the value is out of its
/// range. The field is unspecified then.
template<typename T, typename Value>
bool assign(T&, const Value&) {
    return false;
}
template<typename T>
bool assign(std::optional<T>& field, const NullValue&) {
    field.reset();
    return true;
}
bool assign(bool& field, const bool& value);
bool assign(Seconds& field, const NumberValue& value);
bool assign(std::optional<Seconds>& field, const NumberValue& value);
bool assign(std::optional<Date>& field, const NumberValue& value);
/// A whole number, however it is spelled: 2, 2.0, 20e-1.
bool assign(std::optional<int>& field, const NumberValue& value);
bool assign(QString& field, const TextValue& value);
/// The canonical form of RFC 4122 only, in either case.
bool assign(QUuid& field, const TextValue& value);
bool assign(std::optional<QUuid>& field, const TextValue& value);
bool assign(std::optional<SessionOutcome>& field, const TextValue& value);
/// The bare name of a category stands for it.
bool assign(BlockCategory& category, const TextValue& value);
template<typename Value>
bool assign(UnknownField&, const Value&) {
    return true;
}
bool assign(UnknownField& field, const TextValue& value);

} // namespace tolvar::RecordCoding
