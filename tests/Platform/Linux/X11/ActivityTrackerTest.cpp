#include "Platform/Linux/X11/ActivityTracker.h"

#include "Support/Texts.h"

#include <gtest/gtest.h>
#include <xcb/xcb_icccm.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using test::Texts;

/// A desktop in the making.
class DeskOf {
public:
    DeskOf& shown(WindowId id, const QString& application) { return add(id, application, false); }
    DeskOf& hidden(WindowId id, const QString& application) { return add(id, application, true); }
    DeskOf& marked() {
        m_desk.windows.back().state.mark = HiddenMark{u"run"_s, {}, false, {}};
        return *this;
    }
    /// As on a workspace that nobody looks at.
    DeskOf& outOfView() {
        m_desk.windows.back().state.icccmState = XCB_ICCCM_WM_STATE_ICONIC;
        return *this;
    }
    DeskOf& active(WindowId id) {
        m_desk.activeWindow = id;
        return *this;
    }
    operator Desk() const { return m_desk; }

private:
    DeskOf& add(WindowId id, const QString& application, bool isHidden) {
        DeskWindow window;
        window.facts.id = id;
        window.application.key = window.application.name = application;
        window.isHidden = isHidden;
        m_desk.windows.push_back(window);
        return *this;
    }
    Desk m_desk;
};

const QString chat = u"chat"_s;
const QString mail = u"mail"_s;

class ActivityTrackerTest : public testing::Test {
public:
    using Focus = ActivityTracker::Focus;
    Texts news(const Desk& desk, Focus focus = Focus::stayed) {
        Texts texts;
        for (const Activity& activity : tracker.update(desk, focus))
            texts.push_back(
                (activity.kind == Activity::Kind::launched ? u"launched "_s : u"activated "_s) +
                activity.application.localizedName);
        return texts;
    }
    ActivityTracker tracker;
};

TEST_F(ActivityTrackerTest, TakesWhatStandsThereAtFirstForNoNews) {
    tracker.begin(DeskOf().shown(1, chat).active(1));
    EXPECT_EQ(news(DeskOf().shown(1, chat).active(1)), Texts());
}

TEST_F(ActivityTrackerTest, TellsAnApplicationWithItsFirstWindowOnce) {
    tracker.begin({});
    EXPECT_EQ(news(DeskOf().shown(1, chat).active(1)), Texts{u"launched chat"_s});
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, chat).active(2)), Texts());
}

TEST_F(ActivityTrackerTest, TellsAnApplicationAgainThatQuitAndCameBack) {
    tracker.begin(DeskOf().shown(1, chat));
    EXPECT_EQ(news({}), Texts());
    EXPECT_EQ(news(DeskOf().shown(1, chat)), Texts{u"launched chat"_s});
}

TEST_F(ActivityTrackerTest, TellsWhenTheFocusMovesToAnotherApplication) {
    tracker.begin(DeskOf().shown(1, chat).shown(2, mail).active(1));
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, mail).active(2)), Texts{u"activated mail"_s});
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, mail).active(0)), Texts());
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, mail).active(2)), Texts{u"activated mail"_s});
}

TEST_F(ActivityTrackerTest, TellsNothingWhenTheFocusMovesWithinAnApplication) {
    tracker.begin(DeskOf().shown(1, chat).shown(2, chat).active(1));
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, chat).active(2)), Texts());
}

TEST_F(ActivityTrackerTest, TellsAHiddenApplicationThatShowsAWindowWithoutTheFocus) {
    tracker.begin(DeskOf().hidden(1, chat).shown(2, mail).active(2));
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, mail).active(2)), Texts{u"activated chat"_s});
}

TEST_F(ActivityTrackerTest, TellsAHiddenApplicationThatOpensAnotherWindow) {
    tracker.begin(DeskOf().hidden(1, chat));
    EXPECT_EQ(news(DeskOf().hidden(1, chat).shown(2, chat)), Texts{u"activated chat"_s});
}

TEST_F(ActivityTrackerTest, TellsNothingOfAnotherWindowOfAnApplicationInView) {
    tracker.begin(DeskOf().shown(1, chat).hidden(2, chat));
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, chat)), Texts());
}

TEST_F(ActivityTrackerTest, ForgivesAWindowManagerThatHidesLate) {
    tracker.begin(DeskOf().shown(1, chat));
    tracker.noteHidden(chat, {1});
    EXPECT_EQ(news(DeskOf().shown(1, chat)), Texts());
    EXPECT_EQ(tracker.expectedHidden(), std::set<WindowId>{1});
    EXPECT_EQ(news(DeskOf().hidden(1, chat)), Texts());
    EXPECT_TRUE(tracker.expectedHidden().empty());
    EXPECT_EQ(news(DeskOf().shown(1, chat)), Texts{u"activated chat"_s});
}

TEST_F(ActivityTrackerTest, TellsAWindowThatIsStillInViewWhenPatienceEnds) {
    const Desk desk = DeskOf().shown(1, chat);
    tracker.begin(desk);
    tracker.noteHidden(chat, {1});
    EXPECT_TRUE(tracker.isPatient(desk));
    tracker.endPatience(desk);
    EXPECT_FALSE(tracker.isPatient(desk));
    EXPECT_EQ(news(desk), Texts{u"activated chat"_s});
    EXPECT_EQ(news(desk), Texts());
}

TEST_F(ActivityTrackerTest, StaysPatientWithAWindowThatNobodySees) {
    const Desk desk = DeskOf().shown(1, chat).outOfView();
    tracker.begin(desk);
    tracker.noteHidden(chat, {1});
    EXPECT_FALSE(tracker.isPatient(desk));
    tracker.endPatience(desk);
    EXPECT_EQ(news(desk), Texts());
    EXPECT_EQ(tracker.expectedHidden(), std::set<WindowId>{1});
}

TEST_F(ActivityTrackerTest, TellsANewWindowWhileAnotherIsStillToBeHidden) {
    tracker.begin(DeskOf().shown(1, chat));
    tracker.noteHidden(chat, {1});
    EXPECT_EQ(news(DeskOf().shown(1, chat).shown(2, chat)), Texts{u"activated chat"_s});
}

TEST_F(ActivityTrackerTest, ReportsAnApplicationAsItIsAndNotAsItIsExpected) {
    tracker.begin(DeskOf().shown(1, chat).shown(2, mail).active(2));
    tracker.noteHidden(chat, {1});
    const auto activities =
        tracker.update(DeskOf().shown(1, chat).shown(2, mail).active(1), Focus::moved);
    ASSERT_EQ(activities.size(), 1u);
    EXPECT_FALSE(activities[0].application.isHidden);
}

TEST_F(ActivityTrackerTest, TellsAnApplicationThatWasHiddenAndBroughtBackBetweenTwoLooks) {
    tracker.begin(DeskOf().shown(1, chat).active(1));
    tracker.noteHidden(chat, {1});
    EXPECT_EQ(news(DeskOf().shown(1, chat).active(1), Focus::stayed), Texts());
    tracker.noteHidden(chat, {1});
    EXPECT_EQ(news(DeskOf().shown(1, chat).active(1), Focus::moved), Texts{u"activated chat"_s});
}

TEST_F(ActivityTrackerTest, TellsNothingWhenTheFocusComesBackToAnApplicationInView) {
    tracker.begin(DeskOf().shown(1, chat).active(1));
    EXPECT_EQ(news(DeskOf().shown(1, chat).active(1), Focus::moved), Texts());
}

TEST_F(ActivityTrackerTest, TellsNothingOfWindowsThatWeShowAgain) {
    tracker.begin(DeskOf().shown(1, chat));
    tracker.noteHidden(chat, {});
    tracker.noteShown(chat, {1});
    EXPECT_EQ(news(DeskOf().shown(1, chat)), Texts());
}

TEST_F(ActivityTrackerTest, ExpectsNothingAnyMoreOfWindowsThatWeShowAgain) {
    tracker.begin(DeskOf().shown(1, chat));
    tracker.noteHidden(chat, {1});
    tracker.noteShown(chat, {1});
    EXPECT_TRUE(tracker.expectedHidden().empty());
}

TEST_F(ActivityTrackerTest, KnowsWindowsThatOnlyChangeTheirWindowManager) {
    tracker.begin(DeskOf().hidden(1, chat).marked());
    EXPECT_EQ(news({}), Texts());
    EXPECT_EQ(news(DeskOf().hidden(1, chat).marked()), Texts());
    EXPECT_EQ(news(DeskOf().shown(1, chat).marked()), Texts{u"activated chat"_s});
}

} // namespace
} // namespace tolvar
