#pragma once

#include <QByteArray>
#include <QtEndian>

#include <cstdint>

namespace tolvar::test {

/// Writes the value of the property _XSETTINGS_SETTINGS as a settings manager does.
class XSettingsValue {
public:
    enum class Order : char { leastSignificantFirst = 0, mostSignificantFirst = 1 };

    explicit XSettingsValue(Order order = Order::leastSignificantFirst)
        : m_order(order) {}

    XSettingsValue& number(const QByteArray& name, std::int32_t value) {
        begin(0, name);
        m_settings += word(value);
        return *this;
    }
    XSettingsValue& text(const QByteArray& name, const QByteArray& value) {
        begin(1, name);
        m_settings += word(static_cast<std::uint32_t>(value.size())) + padded(value);
        return *this;
    }
    XSettingsValue& color(const QByteArray& name) {
        begin(2, name);
        m_settings += QByteArray(8, '\x7f');
        return *this;
    }

    QByteArray bytes() const {
        return static_cast<char>(m_order) + QByteArray(3, '\0') + word(serial) + word(m_count) +
               m_settings;
    }

private:
    static constexpr std::uint32_t serial = 7;

    static QByteArray padded(const QByteArray& text) {
        return text + QByteArray((4 - text.size() % 4) % 4, '\0');
    }
    template<typename Number>
    QByteArray word(Number value) const {
        const Number ordered =
            m_order == Order::leastSignificantFirst ? qToLittleEndian(value) : qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&ordered), sizeof ordered);
    }
    void begin(char kind, const QByteArray& name) {
        ++m_count;
        m_settings += kind + QByteArray(1, '\0') + word(static_cast<std::uint16_t>(name.size())) +
                      padded(name) + word(serial);
    }

    Order m_order;
    std::uint32_t m_count = 0;
    QByteArray m_settings;
};

} // namespace tolvar::test
