#include "Views/BlockAlert/BlockAlertPresenter.h"

#include "Support/RecordingPanelWindows.h"
#include "Support/ToleratedWarning.h"
#include "Views/BlockAlert/BlockAlertPanel.h"
#include "Views/BlockAlert/BlockAlertView.h"
#include "Views/Shared/ControlTest.h"
#include "Views/Shared/KeyButton.h"

#include <QScreen>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class BlockAlertPresenterTest : public ControlTest {
protected:
    void present(const QString& name, BlockTarget type = BlockTarget::app) {
        presenter.presentBlocked(name, type);
    }
    ~BlockAlertPresenterTest() override {
        // What was sent away goes before what it moves with.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    BlockAlertView& view() { return *presenter.panel()->findChild<BlockAlertView*>(); }
    static int shownPanels() {
        const auto widgets = QApplication::topLevelWidgets();
        return static_cast<int>(std::ranges::count_if(widgets, [](const QWidget* widget) {
            return widget->isVisible() && qobject_cast<const BlockAlertPanel*>(widget);
        }));
    }

    RecordingPanelWindows windows{journal};
    BlockAlertPresenter presenter{{context(), sound, windows}};
};

TEST_F(BlockAlertPresenterTest, ShowsTheAlertAndSoundsOnceItIsThere) {
    present(u"Chat"_s);
    ASSERT_TRUE(presenter.panel());
    EXPECT_TRUE(presenter.panel()->isVisible());
    EXPECT_EQ(view().accessibleName(), u"You're tolvar, Chat is blocked");
    EXPECT_EQ(journal.take(), (Texts{u"traits 15"_s, u"activate"_s, u"play blocked"_s}));
}

TEST_F(BlockAlertPresenterTest, DropsWhatIsBlockedWhileOneIsShown) {
    present(u"Chat"_s);
    auto* const first = presenter.panel();
    journal.take();
    present(u"news.example.org"_s, BlockTarget::site);
    EXPECT_EQ(presenter.panel(), first);
    EXPECT_EQ(view().accessibleName(), u"You're tolvar, Chat is blocked");
    EXPECT_EQ(shownPanels(), 1);
    EXPECT_EQ(journal.take(), Texts());
}

TEST_F(BlockAlertPresenterTest, ShowsAFreshOneOnceTheFirstWasSentAway) {
    present(u"Chat"_s);
    presenter.dismiss();
    EXPECT_EQ(shownPanels(), 0);
    EXPECT_EQ(presenter.panel(), nullptr);
    present(u"news.example.org"_s, BlockTarget::site);
    EXPECT_EQ(view().accessibleName(), u"You're tolvar, news.example.org is blocked");
    EXPECT_EQ(shownPanels(), 1);
}

TEST_F(BlockAlertPresenterTest, IsSentAwayByItsKey) {
    present(u"Chat"_s);
    press(view().key());
    release(view().key());
    EXPECT_EQ(presenter.panel(), nullptr);
    EXPECT_EQ(shownPanels(), 0);
}

TEST_F(BlockAlertPresenterTest, IsSentAwayByReturnAsIfItsKeyWerePressed) {
    present(u"Chat"_s);
    QApplication::setActiveWindow(presenter.panel());
    QWidget& focused = *presenter.panel()->focusWidget();
    EXPECT_EQ(&focused, &view().key());
    key(focused, QEvent::KeyPress, Qt::Key_Return);
    EXPECT_TRUE(presenter.panel());
    key(focused, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(presenter.panel(), nullptr);
}

TEST_F(BlockAlertPresenterTest, IsSentAwayByEscape) {
    present(u"Chat"_s);
    key(*presenter.panel()->focusWidget(), QEvent::KeyPress, Qt::Key_Escape);
    EXPECT_EQ(presenter.panel(), nullptr);
}

TEST_F(BlockAlertPresenterTest, IsSentAwayWhenTheWindowManagerClosesIt) {
    present(u"Chat"_s);
    presenter.panel()->close();
    EXPECT_EQ(presenter.panel(), nullptr);
}

TEST_F(BlockAlertPresenterTest, StandsInTheMiddleOfTheScreen) {
    present(u"Chat"_s);
    const QRect screen = presenter.panel()->screen()->geometry();
    const QRect panel = presenter.panel()->geometry();
    EXPECT_NEAR(panel.center().x(), screen.center().x(), 1);
    EXPECT_NEAR(panel.center().y(), screen.center().y(), 1);
}

TEST_F(BlockAlertPresenterTest, HasAShadowWhereTheDesktopIsSeenThroughWindows) {
    present(u"Chat"_s);
    EXPECT_EQ(presenter.panel()->card().size(), view().size());
    EXPECT_GT(presenter.panel()->width(), view().width());
    EXPECT_TRUE(presenter.panel()->mask().isEmpty());
}

TEST_F(BlockAlertPresenterTest, HasItsCornersCutOutWhereItIsNot) {
    // Where nothing is shown no window can be cut out.
    const ToleratedWarning noMasks(u"window masks"_s);
    windows.isTranslucent = false;
    present(u"Chat"_s);
    EXPECT_EQ(presenter.panel()->size(), view().size());
    const QRegion mask = presenter.panel()->mask();
    EXPECT_FALSE(mask.contains(QPoint(0, 0)));
    EXPECT_TRUE(mask.contains(QPoint(view().width() / 2, 0)));
    EXPECT_TRUE(mask.contains(view().rect().center()));
}

TEST_F(BlockAlertPresenterTest, IsNoToolWindowAndDoesNotEndTheProgram) {
    present(u"Chat"_s);
    EXPECT_EQ(presenter.panel()->windowType(), Qt::Window);
    EXPECT_FALSE(presenter.panel()->testAttribute(Qt::WA_QuitOnClose));
}

TEST(BlockAlertPresenterEnd, TakesTheAlertWithIt) {
    Journal journal;
    MemoryPreferences preferences;
    preferences.registerDefaults(AppSettings::defaults());
    RecordingHaptics haptics(journal);
    RecordingSound sound(journal);
    HandFrames frames;
    AnimationDriver driver(frames);
    Feedback feedback(preferences, haptics, sound);
    RecordingPanelWindows windows(journal);
    QPointer<BlockAlertPanel> panel;
    {
        BlockAlertPresenter presenter({{driver, feedback}, sound, windows});
        presenter.presentBlocked(u"Chat"_s, BlockTarget::app);
        panel = presenter.panel();
    }
    EXPECT_TRUE(!panel || !panel->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(panel);
}

} // namespace
} // namespace tolvar::test
