#include "Views/Shared/Sheet.h"

#include "Views/Shared/ControlTest.h"
#include "Views/Shared/InstrumentSwitch.h"
#include "Views/Shared/KeyButton.h"

#include <QLabel>
#include <QSignalSpy>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class SheetTest : public ControlTest {
protected:
    SheetTest() {
        window.show();
        QApplication::setActiveWindow(&window);
        behind.setFocus();
    }

    KeyButton& keyNamed(const QString& name) {
        for (auto* key : sheet.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no such key");
    }
    void raise() {
        sheet.rise();
        settle();
    }
    static void click(QWidget& control) {
        press(control);
        release(control);
    }

    InstrumentSwitch& behind = shown(new InstrumentSwitch(context(), u"Sounds"_s));
    ConfirmationSheet sheet{context(),
                            {.title = u"Clear All History?"_s,
                             .message = u"This will permanently delete all your session history."_s,
                             .cancel = u"Cancel"_s,
                             .confirm = u"Clear All"_s},
                            window};
    QSignalSpy confirmed{&sheet, &ConfirmationSheet::confirmed};
    QSignalSpy dismissed{&sheet, &Sheet::dismissed};
};

TEST_F(SheetTest, RisesFromBelowAndStandsInTheMiddle) {
    EXPECT_FALSE(sheet.isVisible());
    sheet.rise();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_TRUE(frames.isRunning());
    auto& key = keyNamed(u"Cancel"_s);
    const int low = key.mapTo(&window, QPoint()).y();
    settle();
    EXPECT_LT(key.mapTo(&window, QPoint()).y(), low);
    EXPECT_EQ(sheet.geometry(), window.rect());
    EXPECT_FALSE(frames.isRunning());
}

TEST_F(SheetTest, IsGoneWithoutATraceWhenItIsCancelled) {
    const QImage before = picture(window);
    raise();
    EXPECT_NE(picture(window), before);
    click(keyNamed(u"Cancel"_s));
    EXPECT_EQ(dismissed.count(), 1);
    settle();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(confirmed.count(), 0);
    EXPECT_EQ(picture(window), before);
    EXPECT_EQ(window.focusWidget(), &behind);
}

TEST_F(SheetTest, LetsTheMouseThroughAsSoonAsItSinks) {
    raise();
    EXPECT_NE(window.childAt(behind.geometry().center()), &behind);
    click(keyNamed(u"Cancel"_s));
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(window.childAt(behind.geometry().center()), &behind);
    raise();
    EXPECT_NE(window.childAt(behind.geometry().center()), &behind);
}

TEST_F(SheetTest, IsGoneAtOnceWhereNobodySeesItSink) {
    raise();
    window.hide();
    sheet.sink();
    EXPECT_FALSE(frames.isRunning());
    window.show();
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(SheetTest, AsksAboutWhatIsWrittenAndNotAboutItsMarkup) {
    sheet.setMessage(u"Delete <b>this</b>?"_s);
    EXPECT_EQ(accessible(sheet)->text(QAccessible::Description), u"Delete <b>this</b>?");
    for (const QLabel* label : sheet.findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(SheetTest, ConfirmsOnce) {
    raise();
    auto& key = keyNamed(u"Clear All"_s);
    click(key);
    key.click();
    EXPECT_EQ(confirmed.count(), 1);
    EXPECT_FALSE(sheet.isUp());
}

TEST_F(SheetTest, IsSentAwayByEscapeFromAnyOfItsKeys) {
    raise();
    keyNamed(u"Clear All"_s).setFocus();
    key(keyNamed(u"Clear All"_s), QEvent::KeyPress, Qt::Key_Escape);
    EXPECT_FALSE(sheet.isUp());
    EXPECT_EQ(confirmed.count(), 0);
}

TEST_F(SheetTest, KeepsTheKeyboardWithinItself) {
    raise();
    for (int i = 0; i < 5; ++i) {
        key(*window.focusWidget(), QEvent::KeyPress, Qt::Key_Tab);
        EXPECT_TRUE(sheet.isAncestorOf(window.focusWidget()));
        EXPECT_NE(window.focusWidget(), &sheet);
    }
    EXPECT_FALSE(behind.hasFocus());
}

TEST_F(SheetTest, KeepsTheMouseFromWhatIsBehindIt) {
    raise();
    EXPECT_EQ(window.childAt(behind.geometry().center()), &sheet);
}

TEST_F(SheetTest, CoversTheWindowAlsoWhenThatIsResized) {
    raise();
    window.resize(500, 300);
    EXPECT_EQ(sheet.geometry(), window.rect());
}

TEST_F(SheetTest, IsThereAtOnceWithReducedMotion) {
    driver.setSettings({.isReduced = true});
    sheet.rise();
    EXPECT_FALSE(frames.isRunning());
    sheet.sink();
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(SheetTest, IsADialogToAScreenReader) {
    auto* face = accessible(sheet);
    ASSERT_TRUE(face);
    EXPECT_EQ(face->role(), QAccessible::Dialog);
    EXPECT_EQ(face->text(QAccessible::Name), u"Clear All History?");
    EXPECT_EQ(face->text(QAccessible::Description),
              u"This will permanently delete all your session history.");
}

} // namespace
} // namespace tolvar::test
