#include "Models/RecordCoding.h"
#include "Models/RecordFields.h"

#include <QStringConverter>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace tolvar::RecordCoding {

namespace {

/// Writes values as JSON. Each function is false when there is no JSON for the value.
class RecordWriter {
public:
    template<typename T>
    bool write(const T& value);
    QByteArray takeJson() const {
        return {m_buffer.GetString(), static_cast<qsizetype>(m_buffer.GetSize())};
    }

private:
    bool writeValue(bool value) { return m_writer.Bool(value); }
    bool writeValue(int value) { return m_writer.Int(value); }
    bool writeValue(Seconds value) { return m_writer.Double(value); }
    bool writeValue(Date value) { return m_writer.Double(value.sinceReference); }
    bool writeValue(const QString& value);
    bool writeValue(const QUuid& value);
    bool writeValue(SessionOutcome value);
    template<typename T>
    bool writeValue(const std::vector<T>& list);
    template<Record R>
    bool writeValue(const R& record);

    template<typename T>
    bool writeField(std::string_view key, const T& value);
    template<typename T>
    bool writeField(std::string_view key, const std::optional<T>& value) {
        return !value || writeField(key, *value);
    }
    bool writeText(std::string_view utf8) {
        return m_writer.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    }

    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
    QStringEncoder m_toUtf8{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
    QByteArray m_text;
};

template<typename T>
bool RecordWriter::write(const T& value) {
    return writeValue(value);
}

bool RecordWriter::writeValue(const QString& value) {
    m_text.resize(std::max(m_text.size(), m_toUtf8.requiredSpace(value.size())));
    const char* end = m_toUtf8.appendToBuffer(m_text.data(), value);
    return writeText({m_text.constData(), end});
}

bool RecordWriter::writeValue(const QUuid& value) {
    const auto text = value.toByteArray(QUuid::WithoutBraces).toUpper();
    return writeText({text.constData(), static_cast<std::size_t>(text.size())});
}

bool RecordWriter::writeValue(SessionOutcome value) {
    for (const auto& [text, outcome] : outcomes)
        if (outcome == value)
            return writeText(text);
    return false;
}

template<typename T>
bool RecordWriter::writeValue(const std::vector<T>& list) {
    m_writer.StartArray();
    for (const auto& item : list)
        if (!writeValue(item))
            return false;
    return m_writer.EndArray();
}

template<Record R>
bool RecordWriter::writeValue(const R& record) {
    m_writer.StartObject();
    for (const auto& field : Fields<R>::all) {
        const auto writeMember = [&](auto member) { return writeField(field.key, record.*member); };
        if (!std::visit(writeMember, field.member))
            return false;
    }
    return m_writer.EndObject();
}

template<typename T>
bool RecordWriter::writeField(std::string_view key, const T& value) {
    m_writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
    return writeValue(value);
}

template<typename T>
std::optional<QByteArray> encoded(const T& value) {
    RecordWriter writer;
    return writer.write(value) ? std::optional(writer.takeJson()) : std::nullopt;
}

} // namespace

std::optional<QByteArray> encode(const FocusSession& session) {
    return encoded(session);
}

std::optional<QByteArray> encode(const std::vector<FocusSession>& sessions) {
    return encoded(sessions);
}

std::optional<QByteArray> encode(const std::vector<FocusPreset>& presets) {
    return encoded(presets);
}

std::optional<QByteArray> encode(const std::vector<BlockCategory>& categories) {
    return encoded(categories);
}

} // namespace tolvar::RecordCoding
