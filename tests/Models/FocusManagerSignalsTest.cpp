#include "Models/FocusManagerFixture.h"

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;

class FocusManagerSignals : public FocusManagerFixture {
protected:
    FocusManagerSignals() { recordSignals(); }

    void recordSignals() {
        const auto record = [this](auto signal, const char16_t* name) {
            QObject::connect(manager.get(), signal,
                             [this, name] { signals_.push_back(QString::fromUtf16(name)); });
        };
        record(&FocusManager::currentSessionChanged, u"currentSession");
        record(&FocusManager::savedPresetsChanged, u"savedPresets");
        record(&FocusManager::sessionHistoryChanged, u"sessionHistory");
        record(&FocusManager::changed, u"changed");
    }

    Texts takeSignals() { return std::exchange(signals_, {}); }

    template<typename Slot>
    void onceOn(void (FocusManager::*signal)(), Slot slot) {
        QObject::connect(manager.get(), signal, manager.get(), slot, Qt::SingleShotConnection);
    }

private:
    Texts signals_;
};

TEST_F(FocusManagerSignals, TellOfEveryOperationOnTheSession) {
    const auto session = texts({u"currentSession", u"changed"});
    manager->startSession(plan());
    EXPECT_EQ(takeSignals(), session);
    manager->pauseSession();
    EXPECT_EQ(takeSignals(), session);
    manager->resumeSession();
    EXPECT_EQ(takeSignals(), session);
    manager->extendSession(300);
    EXPECT_EQ(takeSignals(), session);
    manager->stopSession();
    EXPECT_EQ(takeSignals(), texts({u"sessionHistory", u"currentSession", u"changed"}));
}

TEST_F(FocusManagerSignals, TellOfEveryOperationOnPresetsAndHistory) {
    manager->savePreset(plan());
    EXPECT_EQ(takeSignals(), texts({u"savedPresets", u"changed"}));
    manager->deletePreset(manager->savedPresets().front());
    EXPECT_EQ(takeSignals(), texts({u"savedPresets", u"changed"}));
    manager->deleteSession(plan());
    EXPECT_EQ(takeSignals(), texts({u"sessionHistory", u"changed"}));
    manager->clearHistory();
    EXPECT_EQ(takeSignals(), texts({u"sessionHistory", u"changed"}));
}

TEST_F(FocusManagerSignals, SayOnlyChangedAtATick) {
    start();
    takeSignals();
    clock.advance(3);
    EXPECT_EQ(takeSignals(), texts({u"changed", u"changed", u"changed"}));
    EXPECT_EQ(journal.take(), Texts()) << "a tick writes nothing";
}

TEST_F(FocusManagerSignals, TellOfACompletion) {
    start();
    clock.advance(25 * minute - 1);
    takeSignals();
    clock.advance(1);
    EXPECT_EQ(takeSignals(), texts({u"sessionHistory", u"currentSession", u"changed"}));
}

TEST_F(FocusManagerSignals, TellOfADiscardedSessionWithoutTheHistory) {
    store(plan());
    quitAndReturn();
    recordSignals();
    manager->stopSession();
    EXPECT_EQ(takeSignals(), texts({u"currentSession", u"changed"}));
}

TEST_F(FocusManagerSignals, SayNothingWhenNothingApplies) {
    start();
    takeSignals();
    manager->resumeSession();
    manager->startSession(plan());
    takeSignals();
    manager->pauseSession();
    takeSignals();
    manager->pauseSession();
    EXPECT_EQ(takeSignals(), Texts());
}

TEST_F(FocusManagerSignals, ComeWhenEverythingIsDoneAndSaved) {
    onceOn(&FocusManager::currentSessionChanged, [this] {
        EXPECT_TRUE(isSlackHidden());
        EXPECT_EQ(storedSession(), manager->currentSession());
    });
    manager->startSession(plan());
    onceOn(&FocusManager::sessionHistoryChanged, [this] {
        EXPECT_FALSE(manager->currentSession());
        EXPECT_FALSE(storedSession());
        EXPECT_EQ(storedHistory(), manager->sessionHistory());
    });
    manager->stopSession();
    EXPECT_EQ(manager->sessionHistory().size(), 1u);
}

TEST_F(FocusManagerSignals, LetASlotStopTheSessionThatStarts) {
    onceOn(&FocusManager::currentSessionChanged, [this] { manager->stopSession(); });
    manager->startSession(plan());
    EXPECT_FALSE(manager->currentSession());
    EXPECT_FALSE(isSlackHidden());
    EXPECT_EQ(clock.runningTimers(), 0u);
    EXPECT_EQ(manager->sessionHistory().size(), 1u);
}

TEST_F(FocusManagerSignals, LetASlotStopTheSessionDuringATick) {
    start();
    onceOn(&FocusManager::changed, [this] { manager->stopSession(); });
    clock.advance(10);
    EXPECT_FALSE(manager->currentSession());
    EXPECT_EQ(manager->sessionHistory().size(), 1u);
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(FocusManagerSignals, LetASlotStartTheNextSessionWhenOneIsComplete) {
    start();
    auto next = plan();
    next.goal = u"Next"_s;
    onceOn(&FocusManager::sessionHistoryChanged, [&] { manager->startSession(next); });
    clock.advance(25 * minute);
    EXPECT_EQ(current().goal, u"Next"_s);
    EXPECT_TRUE(isSlackHidden());
    EXPECT_EQ(clock.runningTimers(), 3u);
    ASSERT_EQ(desk.notifications.shown.size(), 1u);
    EXPECT_EQ(desk.notifications.shown.begin()->second.body,
              u"Write report \u2014 25m of focus."_s);
    clock.advance(25 * minute);
    EXPECT_EQ(manager->sessionHistory().size(), 2u);
}

TEST_F(FocusManagerSignals, LetASlotResumeThePauseThatBegins) {
    start();
    onceOn(&FocusManager::currentSessionChanged, [this] { manager->resumeSession(); });
    manager->pauseSession();
    EXPECT_FALSE(current().isPaused);
    EXPECT_TRUE(isSlackHidden());
}

TEST_F(FocusManagerSignals, LetASlotDestroyTheManager) {
    const auto destroyed = [this](auto signal, const auto& operation) {
        manager = makeManager();
        if (!manager->currentSession())
            manager->startSession(plan());
        onceOn(signal, [this] { manager.reset(); });
        operation();
        EXPECT_FALSE(manager);
        EXPECT_EQ(clock.runningTimers(), 0u);
        EXPECT_FALSE(isSlackHidden());
    };
    destroyed(&FocusManager::changed, [&] { clock.advance(1); });
    destroyed(&FocusManager::currentSessionChanged, [&] { manager->pauseSession(); });
    destroyed(&FocusManager::changed, [&] { manager->extendSession(300); });
    destroyed(&FocusManager::sessionHistoryChanged, [&] { manager->stopSession(); });
    destroyed(&FocusManager::sessionHistoryChanged, [&] { clock.advance(25 * minute); });
    destroyed(&FocusManager::savedPresetsChanged, [&] { manager->savePreset(plan()); });
}

TEST_F(FocusManagerSignals, LetAnObserverOfThePreferencesStopTheSession) {
    const auto observed = desk.preferences.observe(u"currentSession"_s, [this] {
        if (manager->currentSession())
            manager->stopSession();
    });
    manager->startSession(plan());
    EXPECT_FALSE(manager->currentSession());
    EXPECT_FALSE(isSlackHidden());
    EXPECT_EQ(storedHistory().size(), 1u);
}

} // namespace
} // namespace tolvar::test
