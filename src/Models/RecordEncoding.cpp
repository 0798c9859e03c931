#include "Models/RecordCoding.h"
#include "Models/RecordFields.h"

#include <QStringConverter>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <utility>

namespace tolvar::RecordCoding {

namespace {

/// Lets the writer's buffer grow in bytes that are taken from it without a copy: a long history is
/// a document of many megabytes.
class BytesAllocator {
public:
    void* Malloc(std::size_t size) {
        m_bytes.resize(static_cast<qsizetype>(size));
        return m_bytes.data();
    }
    void* Realloc(void*, std::size_t, std::size_t size) { return Malloc(size); }
    static void Free(void*) {}

    QByteArray take(std::size_t size) {
        m_bytes.truncate(static_cast<qsizetype>(size));
        return std::exchange(m_bytes, {});
    }

private:
    QByteArray m_bytes;
};

/// Writes values as JSON. Each function is false when there is no JSON for the value.
class RecordWriter {
public:
    bool write(bool value) { return m_writer.Bool(value); }
    bool write(int value) { return m_writer.Int(value); }
    bool write(Seconds value) { return m_writer.Double(value); }
    bool write(Date value) { return m_writer.Double(value.sinceReference); }
    bool write(const QString& value);
    bool write(const QUuid& value);
    bool write(SessionOutcome value);
    template<typename T>
    bool write(const std::vector<T>& list);
    template<Record R>
    bool write(const R& record);

    /// What was written. Nothing more can be.
    QByteArray takeJson() { return m_allocator.take(m_buffer.GetSize()); }

private:
    template<typename T>
    bool writeField(std::string_view key, const T& value);
    template<typename T>
    bool writeField(std::string_view key, const std::optional<T>& value) {
        return !value || writeField(key, *value);
    }
    bool writeText(std::string_view utf8) {
        return m_writer.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    }

    using Buffer = rapidjson::GenericStringBuffer<rapidjson::UTF8<>, BytesAllocator>;

    BytesAllocator m_allocator;
    Buffer m_buffer{&m_allocator};
    rapidjson::Writer<Buffer> m_writer{m_buffer};
    QStringEncoder m_toUtf8{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
    QByteArray m_text;
};

bool RecordWriter::write(const QString& value) {
    if (const auto space = m_toUtf8.requiredSpace(value.size()); space > m_text.size())
        m_text.resize(space);
    const char* end = m_toUtf8.appendToBuffer(m_text.data(), value);
    return writeText({m_text.constData(), end});
}

bool RecordWriter::write(const QUuid& value) {
    const auto text = value.toByteArray(QUuid::WithoutBraces).toUpper();
    return writeText({text.constData(), static_cast<std::size_t>(text.size())});
}

bool RecordWriter::write(SessionOutcome value) {
    for (const auto& [text, outcome] : outcomes)
        if (outcome == value)
            return writeText(text);
    return false;
}

template<typename T>
bool RecordWriter::write(const std::vector<T>& list) {
    m_writer.StartArray();
    for (const auto& item : list)
        if (!write(item))
            return false;
    return m_writer.EndArray();
}

template<Record R>
bool RecordWriter::write(const R& record) {
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
    return write(value);
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
