#include "Platform/Linux/X11/XSettings.h"

#include <QtEndian>

namespace tolvar {

namespace {

enum class Kind : std::uint8_t { integer = 0, text = 1, color = 2 };

constexpr char leastSignificantFirst = 0;
/// The byte order with its padding, and the serial.
constexpr qsizetype headerLength = 8;

/// Reads one value after the other; past the end everything is empty and `isIntact` is false.
class Reader {
public:
    explicit Reader(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_isLittle(!bytes.isEmpty() && bytes.front() == leastSignificantFirst) {}

    bool isIntact() const { return m_isIntact; }

    QByteArray take(qsizetype length) {
        if (length > m_bytes.size() - m_at) {
            m_isIntact = false;
            return {};
        }
        m_at += length;
        return m_bytes.mid(m_at - length, length);
    }
    /// Texts are filled up to whole words.
    QByteArray takePadded(qsizetype length) {
        QByteArray taken = take(length);
        take((4 - length % 4) % 4);
        return taken;
    }
    template<typename Number>
    Number number() {
        const QByteArray bytes = take(sizeof(Number));
        if (!m_isIntact)
            return 0;
        return m_isLittle ? qFromLittleEndian<Number>(bytes.constData())
                          : qFromBigEndian<Number>(bytes.constData());
    }

private:
    const QByteArray m_bytes;
    const bool m_isLittle;
    qsizetype m_at = 0;
    bool m_isIntact = true;
};

struct Setting {
    QByteArray name;
    std::optional<QString> text;
};

std::optional<Setting> next(Reader& reader) {
    const auto kind = static_cast<Kind>(reader.number<std::uint8_t>());
    reader.take(1);
    const auto nameLength = reader.number<std::uint16_t>();
    Setting setting{reader.takePadded(nameLength), {}};
    reader.number<std::uint32_t>();
    if (kind == Kind::integer)
        reader.number<std::uint32_t>();
    else if (kind == Kind::color)
        reader.number<std::uint64_t>();
    else if (kind == Kind::text)
        setting.text = QString::fromUtf8(reader.takePadded(reader.number<std::uint32_t>()));
    else
        return std::nullopt;
    return reader.isIntact() ? std::optional(setting) : std::nullopt;
}

} // namespace

std::optional<QString> xSettingsText(const QByteArray& settings, const QByteArray& name) {
    Reader reader(settings);
    reader.take(headerLength);
    for (auto left = reader.number<std::uint32_t>(); left > 0; --left) {
        const auto setting = next(reader);
        if (!setting || setting->name == name)
            return setting ? setting->text : std::nullopt;
    }
    return std::nullopt;
}

} // namespace tolvar
