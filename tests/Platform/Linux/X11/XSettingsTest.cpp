#include "Platform/Linux/X11/XSettings.h"

#include "Platform/Linux/X11/XSettingsValue.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using Order = XSettingsValue::Order;

class XSettingsTest : public testing::TestWithParam<Order> {
protected:
    const QByteArray settings = XSettingsValue(GetParam())
                                    .text("Net/ThemeName", "Adwaita")
                                    .number("Xft/DPI", 98304)
                                    .color("Example/Color")
                                    .number("Example/Offset", -3)
                                    .text("Net/IconThemeName", "Größe")
                                    .bytes();
};

TEST_P(XSettingsTest, AreReadByTheirNames) {
    EXPECT_EQ(xSettingsText(settings, "Net/ThemeName"), u"Adwaita"_s);
    EXPECT_EQ(xSettingsText(settings, "Net/IconThemeName"), u"Größe"_s);
    EXPECT_EQ(xSettingsNumber(settings, "Xft/DPI"), 98304);
    EXPECT_EQ(xSettingsNumber(settings, "Example/Offset"), -3);
}

TEST_P(XSettingsTest, AreNothingWhenAbsentOrOfAnotherKind) {
    EXPECT_EQ(xSettingsText(settings, "Net/SoundThemeName"), std::nullopt);
    EXPECT_EQ(xSettingsText(settings, "Xft/DPI"), std::nullopt);
    EXPECT_EQ(xSettingsNumber(settings, "Gtk/EnableAnimations"), std::nullopt);
    EXPECT_EQ(xSettingsNumber(settings, "Net/ThemeName"), std::nullopt);
    EXPECT_EQ(xSettingsNumber(settings, "Example/Color"), std::nullopt);
}

TEST_P(XSettingsTest, AreReadAsFarAsTheyAreIntact) {
    for (qsizetype length = 0; length < settings.size(); ++length) {
        const QByteArray cut = settings.left(length);
        EXPECT_EQ(xSettingsText(cut, "Net/IconThemeName"), std::nullopt) << length;
        const auto number = xSettingsNumber(cut, "Xft/DPI");
        EXPECT_TRUE(!number || *number == 98304) << length;
    }
    EXPECT_EQ(xSettingsNumber(settings.chopped(1), "Xft/DPI"), 98304);
}

TEST_P(XSettingsTest, BelieveNoLengthBeyondTheEnd) {
    QByteArray value = XSettingsValue(GetParam()).text("Net/IconThemeName", "Dark").bytes();
    value.replace(value.size() - 8, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(xSettingsText(value, "Net/IconThemeName"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(InEitherOrder, XSettingsTest,
                         testing::Values(Order::leastSignificantFirst,
                                         Order::mostSignificantFirst));

TEST(XSettings, EndAtAKindThatNobodyKnows) {
    QByteArray settings =
        XSettingsValue().number("Example/First", 1).number("Example/Second", 2).bytes();
    const qsizetype kindOfSecond = settings.indexOf("Example/Second") - 4;
    settings[kindOfSecond] = 9;
    EXPECT_EQ(xSettingsNumber(settings, "Example/First"), 1);
    EXPECT_EQ(xSettingsNumber(settings, "Example/Second"), std::nullopt);
}

} // namespace
} // namespace tolvar::test
