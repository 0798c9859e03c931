#include "Views/AppPicker/AppPickerSheet.h"

#include "Platform/Null/NullIconThemeSettings.h"
#include "Support/FakeInstalledApplications.h"
#include "Support/FakeWorkspace.h"
#include "Views/AppPicker/AppPickerList.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Shared/KeyButton.h"

#include <QLabel>
#include <QLineEdit>

#include <stdexcept>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class AppPickerSheetTest : public ControlTest {
protected:
    AppPickerSheetTest() {
        for (const QString& name : {u"Chat"_s, u"Mail"_s, u"Slack"_s, u"Tolvar"_s})
            installed.install(name);
        window.resize(400, 578);
        window.show();
        QApplication::setActiveWindow(&window);
        QObject::connect(&sheet, &AppPickerSheet::selectionChanged, &sheet,
                         [this](const auto& selected) { told.push_back(selected); });
    }

    void open(const std::set<QString>& selected = {}) {
        sheet.open(selected);
        settle();
    }
    QLineEdit& search() { return *sheet.findChild<QLineEdit*>(); }
    AppPickerList& list() { return *sheet.findChild<AppPickerList*>(); }
    KeyButton& keyNamed(const QString& name) {
        for (auto* key : sheet.findChildren<KeyButton*>())
            if (key->name() == name)
                return *key;
        throw std::runtime_error("no such key");
    }
    std::vector<QString> labels() {
        std::vector<QString> texts;
        for (const auto* label : sheet.findChildren<QLabel*>())
            if (label->isVisible())
                texts.push_back(label->text());
        return texts;
    }
    Texts rows() {
        Texts texts;
        for (const auto& row : list().rows())
            texts.push_back(row.text);
        return texts;
    }
    static void click(QWidget& control) {
        press(control);
        release(control);
    }
    void type(const QString& letters) {
        for (const QChar letter : letters) {
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(window.focusWidget(), &event);
        }
    }
    void pressKey(Qt::Key which) { key(*window.focusWidget(), QEvent::KeyPress, which); }

    FakeInstalledApplications installed;
    FakeWorkspace workspace{journal};
    NullIconThemeSettings theme;
    ApplicationIcons icons{{installed, workspace, theme}};
    AppPickerSheet sheet{context(), {installed, workspace, icons, u"Tolvar"_s}, window};
    std::vector<std::set<QString>> told;
};

TEST_F(AppPickerSheetTest, ShowsWhatThereIsToChoose) {
    open({u"Mail"_s, u"Gone"_s});
    EXPECT_THAT(labels(), testing::IsSupersetOf({u"Block specific apps"_s,
                                                 u"These stay hidden while you focus."_s,
                                                 u"2 apps selected"_s}));
    EXPECT_EQ(rows(),
              (Texts{u"Selected"_s, u"Gone"_s, u"Mail"_s, u"Other apps"_s, u"Chat"_s, u"Slack"_s}));
    EXPECT_EQ(search().placeholderText(), u"Search apps");
    EXPECT_TRUE(list().isSelected(1));
    EXPECT_FALSE(list().isSelected(4));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(AppPickerSheetTest, StandsWithinTheWindowWithAirAroundIt) {
    open();
    const auto* content = list().parentWidget();
    const QRect card = content->rect().translated(content->mapTo(&window, QPoint()));
    EXPECT_TRUE(window.rect().adjusted(30, 30, -30, -30).contains(card));
    window.resize(400, 300);
    const QRect smaller = content->rect().translated(content->mapTo(&window, QPoint()));
    EXPECT_TRUE(window.rect().adjusted(30, 30, -30, -30).contains(smaller));
}

TEST_F(AppPickerSheetTest, TellsOfEveryTickAtOnce) {
    open({u"Mail"_s});
    list().toggleRow(3);
    list().toggleRow(1);
    EXPECT_THAT(told, ElementsAre(std::set{u"Chat"_s, u"Mail"_s}, std::set{u"Chat"_s}));
    EXPECT_THAT(labels(), Contains(u"1 app selected"_s));
    EXPECT_EQ(rows(), (Texts{u"Selected"_s, u"Mail"_s, u"Other apps"_s, u"Chat"_s, u"Slack"_s}));
}

TEST_F(AppPickerSheetTest, ClearsTheWholeSelection) {
    open({u"Mail"_s, u"Gone"_s});
    click(keyNamed(u"Clear"_s));
    EXPECT_THAT(told, ElementsAre(std::set<QString>()));
    EXPECT_THAT(labels(), Contains(u"No apps selected"_s));
    EXPECT_FALSE(keyNamed(u"Clear"_s).isEnabled());
    EXPECT_TRUE(sheet.isUp());
}

TEST_F(AppPickerSheetTest, IsClosedByDone) {
    open({u"Mail"_s});
    click(keyNamed(u"Done"_s));
    EXPECT_FALSE(sheet.isUp());
    settle();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(AppPickerSheetTest, NarrowsDownByWhatIsTyped) {
    open({u"Mail"_s});
    EXPECT_TRUE(search().hasFocus());
    type(u"SLA"_s);
    EXPECT_EQ(rows(), (Texts{u"Other apps"_s, u"Slack"_s}));
    type(u"x"_s);
    EXPECT_EQ(rows(), Texts());
    EXPECT_EQ(list().emptyText(), u"No apps match “SLAx”");
}

TEST_F(AppPickerSheetTest, OffersToClearASearchOnlyWhileThereIsOne) {
    open();
    EXPECT_FALSE(keyNamed(u"Clear search"_s).isVisible());
    type(u"x"_s);
    EXPECT_TRUE(keyNamed(u"Clear search"_s).isVisible());
    click(keyNamed(u"Clear search"_s));
    EXPECT_EQ(search().text(), QString());
    EXPECT_FALSE(keyNamed(u"Clear search"_s).isVisible());
    EXPECT_EQ(rows().size(), 4u);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(AppPickerSheetTest, SendsWhatIsTypedAnywhereToTheSearch) {
    open({u"Mail"_s});
    list().setFocus(Qt::TabFocusReason);
    type(u"ch"_s);
    EXPECT_EQ(search().text(), u"ch");
    EXPECT_TRUE(search().hasFocus());
    keyNamed(u"Done"_s).setFocus(Qt::TabFocusReason);
    type(u"a"_s);
    EXPECT_EQ(search().text(), u"cha");
}

TEST_F(AppPickerSheetTest, TakesNoCommandForLetters) {
    open();
    list().setFocus(Qt::TabFocusReason);
    QKeyEvent command(QEvent::KeyPress, Qt::Key_W, Qt::ControlModifier, u"w"_s);
    QApplication::sendEvent(&list(), &command);
    EXPECT_EQ(search().text(), QString());
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(AppPickerSheetTest, EmptiesTheSearchWithEscapeBeforeItCloses) {
    open();
    type(u"ch"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_EQ(search().text(), QString());
    EXPECT_TRUE(sheet.isUp());
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(sheet.isUp());
}

TEST_F(AppPickerSheetTest, IsClosedByReturnFromSearchAndList) {
    open();
    pressKey(Qt::Key_Return);
    EXPECT_FALSE(sheet.isUp());
    open();
    list().setFocus(Qt::TabFocusReason);
    pressKey(Qt::Key_Return);
    EXPECT_FALSE(sheet.isUp());
}

TEST_F(AppPickerSheetTest, IsWorkedByTheKeyboardAlone) {
    open();
    type(u"sl"_s);
    pressKey(Qt::Key_Down);
    EXPECT_TRUE(list().hasFocus());
    pressKey(Qt::Key_Space);
    EXPECT_THAT(told, ElementsAre(std::set{u"Slack"_s}));
    pressKey(Qt::Key_Up);
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(search().text(), u"sl");
}

TEST_F(AppPickerSheetTest, GoesRoundWithTab) {
    open({u"Mail"_s});
    std::vector<QString> visited;
    for (int i = 0; i < 4; ++i) {
        pressKey(Qt::Key_Tab);
        visited.push_back(window.focusWidget()->accessibleName().isEmpty()
                              ? static_cast<KeyButton*>(window.focusWidget())->name()
                              : window.focusWidget()->accessibleName());
    }
    EXPECT_EQ(visited, (std::vector{u"Apps"_s, u"Clear"_s, u"Done"_s, u"Search apps"_s}));
}

TEST_F(AppPickerSheetTest, KeepsTheKeyboardWhenTheKeyUnderItIsOfNoMoreUse) {
    open({u"Mail"_s});
    keyNamed(u"Clear"_s).setFocus(Qt::TabFocusReason);
    key(keyNamed(u"Clear"_s), QEvent::KeyPress, Qt::Key_Space);
    key(keyNamed(u"Clear"_s), QEvent::KeyRelease, Qt::Key_Space);
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(AppPickerSheetTest, BeginsAfreshWhenItIsOpenedAgain) {
    open();
    type(u"sl"_s);
    list().toggleRow(1);
    sheet.sink();
    settle();
    installed.install(u"Zebra"_s);
    open(sheet.selectedApps());
    EXPECT_EQ(search().text(), QString());
    EXPECT_EQ(rows(), (Texts{u"Selected"_s, u"Slack"_s, u"Other apps"_s, u"Chat"_s, u"Mail"_s,
                             u"Zebra"_s}));
}

TEST_F(AppPickerSheetTest, SaysWhereApplicationsCannotBeHidden) {
    const auto sentence = u"On this desktop apps cannot be hidden; they stay in view."_s;
    open();
    EXPECT_THAT(labels(), testing::Not(Contains(sentence)));
    sheet.sink();
    workspace.setHidingSupport(HidingSupport::none);
    open();
    EXPECT_THAT(labels(), Contains(sentence));
}

TEST_F(AppPickerSheetTest, LooksAtWhatIsInstalledOncePerOpening) {
    open();
    picture(window);
    EXPECT_EQ(installed.looks, 1);
}

TEST_F(AppPickerSheetTest, IsADialogToAScreenReader) {
    open();
    EXPECT_EQ(accessible(sheet)->role(), QAccessible::Dialog);
    EXPECT_EQ(accessible(sheet)->text(QAccessible::Name), u"Block specific apps");
}

} // namespace
} // namespace tolvar::test
