#include "Platform/Linux/X11/XSettings.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

const QByteArray themeKey = "Net/IconThemeName";

/// Writes the value of the property as a settings manager does.
class Writer {
public:
    explicit Writer(QDataStream::ByteOrder order)
        : m_order(order) {}

    void text(const QByteArray& name, const QByteArray& value) {
        begin(1, name);
        m_stream << quint32(value.size());
        padded(value);
    }
    void integer(const QByteArray& name, quint32 value) {
        begin(0, name);
        m_stream << value;
    }
    void color(const QByteArray& name) {
        begin(2, name);
        m_stream << quint64(0x1234);
    }
    void begin(quint8 kind, const QByteArray& name) {
        ++m_count;
        m_stream.setByteOrder(m_order);
        m_stream << kind << quint8(0) << quint16(name.size());
        padded(name);
        m_stream << quint32(7);
    }
    QByteArray value() const {
        QByteArray whole;
        QDataStream stream(&whole, QIODevice::WriteOnly);
        stream.setByteOrder(m_order);
        stream << quint8(m_order == QDataStream::BigEndian ? 1 : 0) << quint8(0) << quint16(0)
               << quint32(42) << m_count;
        return whole + m_settings;
    }

private:
    void padded(const QByteArray& bytes) {
        m_stream.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
        for (qsizetype length = bytes.size(); length % 4 != 0; ++length)
            m_stream << quint8(0);
    }

    const QDataStream::ByteOrder m_order;
    QByteArray m_settings;
    QDataStream m_stream{&m_settings, QIODevice::WriteOnly};
    quint32 m_count = 0;
};

class XSettingsTest : public testing::TestWithParam<QDataStream::ByteOrder> {
protected:
    QByteArray settings() const {
        Writer writer(GetParam());
        writer.integer("Net/DoubleClickTime", 400);
        writer.color("Net/Color");
        writer.text("Net/ThemeName", "Dark");
        writer.text(themeKey, "Papirus-Dark");
        writer.text("Gtk/FontName", "Inter 10");
        return writer.value();
    }
};

TEST_P(XSettingsTest, FindsATextAmongOthers) {
    EXPECT_EQ(xSettingsText(settings(), themeKey), u"Papirus-Dark"_s);
    EXPECT_EQ(xSettingsText(settings(), "Gtk/FontName"), u"Inter 10"_s);
}

TEST_P(XSettingsTest, FindsNothingThatIsNotThereOrIsNoText) {
    EXPECT_EQ(xSettingsText(settings(), "Net/Missing"), std::nullopt);
    EXPECT_EQ(xSettingsText(settings(), "Net/DoubleClickTime"), std::nullopt);
}

TEST_P(XSettingsTest, FindsNothingBehindDamage) {
    const QByteArray whole = settings();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto found = xSettingsText(whole.first(length), themeKey);
        EXPECT_TRUE(!found || *found == u"Papirus-Dark") << length;
    }
    Writer writer(GetParam());
    writer.begin(9, "Net/Unknown");
    writer.text(themeKey, "Dark");
    EXPECT_EQ(xSettingsText(writer.value(), themeKey), std::nullopt);
}

TEST_P(XSettingsTest, BelievesNoLengthBeyondTheEnd) {
    Writer writer(GetParam());
    writer.text(themeKey, "Dark");
    QByteArray value = writer.value();
    value.replace(value.size() - 8, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(xSettingsText(value, themeKey), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(InEitherByteOrder, XSettingsTest,
                         testing::Values(QDataStream::LittleEndian, QDataStream::BigEndian),
                         [](const auto& order) {
                             return order.param == QDataStream::BigEndian ? "Big" : "Little";
                         });

} // namespace
} // namespace tolvar::test
