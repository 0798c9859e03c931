#include "Views/Theme/Feedback.h"

#include "Models/AppSettings.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Support/RecordingHaptics.h"
#include "Support/RecordingSound.h"

#include <gmock/gmock.h>

namespace tolvar::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Event = Feedback::Event;

class FeedbackTest : public testing::Test {
protected:
    FeedbackTest() { preferences.registerDefaults(AppSettings::defaults()); }

    Journal journal;
    MemoryPreferences preferences;
    RecordingHaptics haptics{journal};
    RecordingSound sound{journal};
    Feedback feedback{preferences, haptics, sound};
};

TEST_F(FeedbackTest, HasThePatternOfEachEvent) {
    EXPECT_EQ(Feedback::pattern(Event::keyPressed), HapticPattern::generic);
    EXPECT_EQ(Feedback::pattern(Event::keyReleased), std::nullopt);
    for (const Event event : {Event::switchedOn, Event::switchedOff, Event::choiceToggled})
        EXPECT_EQ(Feedback::pattern(event), HapticPattern::alignment);
    for (const Event event : {Event::sessionStarted, Event::sessionPaused, Event::sessionResumed,
                              Event::sessionStopped, Event::sessionExtended, Event::modeSelected})
        EXPECT_EQ(Feedback::pattern(event), HapticPattern::levelChange);
}

TEST_F(FeedbackTest, PerformsNothingWithHapticsOff) {
    preferences.setBoolean(AppSettings::hapticsEnabled, false);
    feedback.play(Event::keyPressed);
    feedback.play(Event::switchedOn);
    EXPECT_THAT(journal.take(), ElementsAre());
}

TEST_F(FeedbackTest, ReadsTheSettingAtEveryEvent) {
    preferences.setBoolean(AppSettings::hapticsEnabled, false);
    feedback.play(Event::keyPressed);
    preferences.setBoolean(AppSettings::hapticsEnabled, true);
    feedback.play(Event::keyPressed);
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic generic"_s));
}

TEST_F(FeedbackTest, SwitchesModesWithAPatternAndASoundEachUnderItsOwnSetting) {
    feedback.modeSwitched();
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic levelChange"_s, u"play modeSwitch"_s));
    preferences.setBoolean(AppSettings::hapticsEnabled, false);
    feedback.modeSwitched();
    EXPECT_THAT(journal.take(), ElementsAre(u"play modeSwitch"_s));
    preferences.setBoolean(AppSettings::hapticsEnabled, true);
    preferences.setBoolean(AppSettings::keySoundsEnabled, false);
    feedback.modeSwitched();
    EXPECT_THAT(journal.take(), ElementsAre(u"haptic levelChange"_s, u"play modeSwitch"_s))
        << "the sound knows its own setting";
}

} // namespace
} // namespace tolvar::test
