#include "Sound/SampledInterfaceSound.h"

#include "Models/AppSettings.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Platform/Null/NullAudioDevice.h"
#include "Platform/Null/NullAudioFileReader.h"
#include "Sound/FakeAudioFiles.h"
#include "Sound/RecordingAudioDevice.h"
#include "Support/HandClock.h"
#include "Support/RecordingLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Sound = InterfaceSound::Sound;
using Preview = InterfaceSound::Preview;
using test::Texts;

constexpr AudioFormat stereo{.sampleRate = 48000, .channels = 2};
constexpr AudioFormat mono{.sampleRate = 44100, .channels = 1};

/// The samples are told apart by their length: key-down has 1 frame, key-up 2 and so on.
class SampledInterfaceSoundTest : public testing::Test {
protected:
    SampledInterfaceSoundTest() {
        preferences.registerDefaults(AppSettings::defaults());
        files.add(u"/share/Sounds/key-down.wav"_s, stereo, 1);
        files.add(u"/share/Sounds/key-up.wav"_s, stereo, 2);
        files.add(u"/share/Sounds/mode-switch.wav"_s, stereo, 3);
        files.add(u"/share/Sounds/chime.wav"_s, stereo, 4);
        files.add(u"/share/Sounds/blocked.wav"_s, stereo, 5);
    }

    std::unique_ptr<SampledInterfaceSound> makeSound() {
        return std::make_unique<SampledInterfaceSound>(
            SampledInterfaceSound::Environment{.device = device,
                                               .reader = files,
                                               .preferences = preferences,
                                               .timers = clock,
                                               .log = log,
                                               .resourcesPath = u"/share"_s});
    }

    /// The lines since the last time that begin so.
    Texts taken(const QString& beginning) {
        Texts lines = journal.take();
        std::erase_if(lines, [&](const QString& line) { return !line.startsWith(beginning); });
        return lines;
    }

    test::Journal journal;
    test::RecordingAudioDevice device{journal};
    test::FakeAudioFiles files;
    MemoryPreferences preferences;
    test::HandClock clock;
    test::RecordingLog log;
    std::unique_ptr<SampledInterfaceSound> sound = makeSound();
};

TEST_F(SampledInterfaceSoundTest, TouchesNothingBeforeTheFirstSound) {
    EXPECT_EQ(journal.lines(), Texts{});
    EXPECT_EQ(files.asked, Texts{});
    EXPECT_FALSE(device.isObserved());
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(SampledInterfaceSoundTest, AttachesFourVoicesAndStartsTheDeviceForTheFirstSound) {
    sound->play(Sound::keyUp);
    EXPECT_EQ(journal.take(), (Texts{u"attach 0 (48000 Hz, 2)"_s, u"attach 1 (48000 Hz, 2)"_s,
                                     u"attach 2 (48000 Hz, 2)"_s, u"attach 3 (48000 Hz, 2)"_s,
                                     u"stop 0"_s, u"stop 1"_s, u"stop 2"_s, u"stop 3"_s, u"start"_s,
                                     u"volume 0.8"_s, u"play 0: 2"_s}));
}

TEST_F(SampledInterfaceSoundTest, ReadsEachSampleOnceWhenItIsFirstNeeded) {
    sound->play(Sound::sessionEnd);
    sound->play(Sound::sessionEnd);
    EXPECT_TRUE(sound->isLoaded(Sound::sessionEnd));
    EXPECT_EQ(files.asked, (Texts{u"/share/Sounds/chime.wav"_s, u"/share/Sounds/key-down.wav"_s}));
}

TEST_F(SampledInterfaceSoundTest, PlaysEachSoundFromItsOwnFile) {
    for (const auto each : {Sound::keyDown, Sound::keyUp, Sound::modeSwitch, Sound::sessionEnd})
        sound->play(each);
    sound->play(Sound::blocked, Preview::yes);
    EXPECT_EQ(taken(u"play"_s), (Texts{u"play 0: 1"_s, u"play 1: 2"_s, u"play 2: 3"_s,
                                       u"play 3: 4"_s, u"play 0: 5"_s}));
}

TEST_F(SampledInterfaceSoundTest, IsSilentWhereTheSettingIsOffButPreviewsAllTheSame) {
    preferences.setBoolean(AppSettings::keySoundsEnabled, false);
    sound->play(Sound::keyDown);
    EXPECT_EQ(journal.take(), Texts{});
    sound->play(Sound::keyDown, Preview::yes);
    EXPECT_EQ(taken(u"play"_s), Texts{u"play 0: 1"_s});
}

TEST_F(SampledInterfaceSoundTest, ReadsTheSettingOfEachSoundWheneverItPlays) {
    const auto all = {Sound::keyDown, Sound::keyUp, Sound::modeSwitch, Sound::sessionEnd,
                      Sound::blocked};
    const auto heardWith = [&](const QString& key) {
        for (const auto& other :
             {AppSettings::keySoundsEnabled, AppSettings::sessionEndChimeEnabled,
              AppSettings::blockSoundEnabled})
            preferences.setBoolean(other, other == key);
        for (const auto each : all)
            sound->play(each);
        Texts heard = taken(u"play"_s);
        for (QString& line : heard)
            line = line.section(u' ', -1);
        return heard;
    };
    EXPECT_EQ(heardWith(AppSettings::keySoundsEnabled), (Texts{u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(heardWith(AppSettings::sessionEndChimeEnabled), Texts{u"4"_s});
    EXPECT_EQ(heardWith(AppSettings::blockSoundEnabled), Texts{u"5"_s});
}

TEST_F(SampledInterfaceSoundTest, GivesTheFifthOfFiveQuickClicksTheVoiceOfTheFirst) {
    for (int click = 0; click < 5; ++click)
        sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"play"_s), (Texts{u"play 0: 1"_s, u"play 1: 1"_s, u"play 2: 1"_s,
                                       u"play 3: 1"_s, u"play 0: 1"_s}));
}

TEST_F(SampledInterfaceSoundTest, GivesASoundOfAnotherFormatAVoiceOfItsOwnOnce) {
    files.add(u"/share/Sounds/chime.wav"_s, mono, 40);
    sound->play(Sound::keyDown);
    journal.take();
    sound->play(Sound::sessionEnd);
    sound->play(Sound::sessionEnd);
    sound->play(Sound::keyUp);
    EXPECT_EQ(journal.take(),
              (Texts{u"volume 0.8"_s, u"attach 4 (44100 Hz, 1)"_s, u"play 4: 40"_s, u"volume 0.8"_s,
                     u"play 4: 40"_s, u"volume 0.8"_s, u"play 1: 2"_s}));
}

TEST_F(SampledInterfaceSoundTest, TellsFormatsApartByRateAndByChannels) {
    files.add(u"/share/Sounds/chime.wav"_s, {.sampleRate = 44100, .channels = 2}, 40);
    files.add(u"/share/Sounds/key-up.wav"_s, {.sampleRate = 48000, .channels = 1}, 20);
    sound->play(Sound::sessionEnd);
    sound->play(Sound::keyUp);
    EXPECT_EQ(taken(u"play"_s), (Texts{u"play 4: 40"_s, u"play 5: 20"_s}));
}

TEST_F(SampledInterfaceSoundTest, AppliesTheStoredVolumeToEverySoundFromTheNextOneOn) {
    sound->play(Sound::keyDown);
    preferences.setNumber(AppSettings::soundVolume, 0.25);
    EXPECT_EQ(taken(u"volume"_s), Texts{u"volume 0.8"_s});
    sound->play(Sound::keyUp);
    EXPECT_EQ(taken(u"volume"_s), Texts{u"volume 0.25"_s});
}

TEST_F(SampledInterfaceSoundTest, StopsThreeSecondsAfterTheSoundThatStartedIt) {
    sound->play(Sound::keyDown);
    journal.take();
    clock.advance(2.999);
    EXPECT_TRUE(device.isRunning());
    clock.advance(0.001);
    EXPECT_EQ(journal.take(), Texts{u"stop"_s});
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(SampledInterfaceSoundTest, StopsAtItsTimeThoughFurtherSoundsWerePlayed) {
    sound->play(Sound::keyDown);
    clock.advance(2.9);
    sound->play(Sound::keyUp);
    clock.advance(0.1);
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, StartsAgainForASoundAfterTheStopWithoutNewVoices) {
    sound->play(Sound::keyDown);
    clock.advance(3);
    journal.take();
    sound->play(Sound::keyDown);
    EXPECT_EQ(journal.take(), (Texts{u"stop 0"_s, u"stop 1"_s, u"stop 2"_s, u"stop 3"_s, u"start"_s,
                                     u"volume 0.8"_s, u"play 1: 1"_s}));
    clock.advance(3);
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, StopsTheVoicesOfOtherFormatsTooBeforeItStartsAgain) {
    files.add(u"/share/Sounds/chime.wav"_s, mono, 40);
    sound->play(Sound::sessionEnd);
    clock.advance(3);
    journal.take();
    sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"stop"_s),
              (Texts{u"stop 0"_s, u"stop 1"_s, u"stop 2"_s, u"stop 3"_s, u"stop 4"_s}));
}

TEST_F(SampledInterfaceSoundTest, StaysAwakeWhileHeldAndStopsThreeSecondsAfterTheLastRelease) {
    auto popover = sound->stayAwake();
    auto settings = sound->stayAwake();
    EXPECT_TRUE(device.isRunning());
    clock.advance(60);
    popover.reset();
    clock.advance(60);
    EXPECT_TRUE(device.isRunning());
    settings.reset();
    clock.advance(2.999);
    EXPECT_TRUE(device.isRunning());
    clock.advance(0.001);
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, CallsOffTheStopWhenItIsHeldAgainInTime) {
    sound->play(Sound::keyDown);
    clock.advance(2);
    const auto hold = sound->stayAwake();
    EXPECT_EQ(clock.runningTimers(), 0u);
    clock.advance(60);
    EXPECT_TRUE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, CountsTheIdleTimeFromTheLastReleaseNotFromTheSound) {
    sound->play(Sound::keyDown);
    clock.advance(2);
    sound->stayAwake().reset();
    clock.advance(2.9);
    EXPECT_TRUE(device.isRunning());
    clock.advance(0.1);
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, ReleasesAHoldOnceHoweverOftenItIsDropped) {
    auto first = sound->stayAwake();
    first.reset();
    first.reset();
    first = {};
    const auto second = sound->stayAwake();
    clock.advance(60);
    EXPECT_TRUE(device.isRunning()) << "the second hold alone keeps it awake";
}

TEST_F(SampledInterfaceSoundTest, LetsAHoldOutliveIt) {
    auto hold = sound->stayAwake();
    sound.reset();
    hold.reset();
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST_F(SampledInterfaceSoundTest, StartsAgainAfterAConfigurationChangeWhileHeld) {
    const auto hold = sound->stayAwake();
    journal.take();
    device.loseOutput();
    EXPECT_EQ(journal.take(),
              (Texts{u"stop 0"_s, u"stop 1"_s, u"stop 2"_s, u"stop 3"_s, u"start"_s}));
    clock.advance(60);
    EXPECT_TRUE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, LeavesAConfigurationChangeToTheNextSoundWhileNotHeld) {
    sound->play(Sound::keyDown);
    journal.take();
    clock.advance(1);
    device.loseOutput();
    EXPECT_EQ(journal.take(), Texts{});
    clock.advance(1);
    sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"start"_s), Texts{u"start"_s});
    clock.advance(2.9);
    EXPECT_TRUE(device.isRunning()) << "three seconds count from this start";
    clock.advance(0.1);
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, KeepsSilentAboutADeviceThatDoesNotStartAndTriesAtTheNextSound) {
    device.canStart = false;
    sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"start"_s), Texts{u"start"_s});
    EXPECT_EQ(clock.runningTimers(), 0u);
    device.canStart = true;
    sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"play"_s), Texts{u"play 0: 1"_s});
}

TEST_F(SampledInterfaceSoundTest, IsSilentForAMissingSampleAlone) {
    files.files.erase(u"/share/Sounds/chime.wav"_s);
    sound->play(Sound::sessionEnd);
    EXPECT_EQ(journal.take(), Texts{});
    EXPECT_FALSE(sound->isLoaded(Sound::sessionEnd));
    EXPECT_TRUE(sound->isLoaded(Sound::blocked));
    sound->play(Sound::keyUp);
    EXPECT_EQ(taken(u"play"_s), Texts{u"play 0: 2"_s});
}

TEST_F(SampledInterfaceSoundTest, HearsNothingAtAllWithoutTheKeyDownSample) {
    files.files.erase(u"/share/Sounds/key-down.wav"_s);
    sound->play(Sound::keyDown);
    sound->play(Sound::sessionEnd);
    const auto hold = sound->stayAwake();
    EXPECT_EQ(journal.take(), Texts{});
    EXPECT_TRUE(sound->isLoaded(Sound::sessionEnd));
}

TEST_F(SampledInterfaceSoundTest, LogsVoicesThatCannotBeAttachedAndTriesAgainAtTheNextSound) {
    device.attachError = AudioError{u"no room for voices"_s};
    sound->play(Sound::keyDown);
    EXPECT_EQ(log.take(),
              (std::vector<test::RecordingLog::Line>{
                  {u"InterfaceSound"_s, u"Couldn't start the engine: no room for voices"_s}}));
    EXPECT_FALSE(device.isRunning());
    device.attachError.reset();
    sound->play(Sound::keyDown);
    EXPECT_EQ(taken(u"play"_s), Texts{u"play 0: 1"_s});
}

TEST_F(SampledInterfaceSoundTest, LogsASoundThatCannotBePlayedAndStopsTheDevice) {
    sound->play(Sound::keyDown);
    journal.take();
    device.scheduleError = AudioError{u"the format does not match"_s};
    sound->play(Sound::keyUp);
    EXPECT_EQ(log.take(),
              (std::vector<test::RecordingLog::Line>{
                  {u"InterfaceSound"_s, u"Couldn't play keyUp: the format does not match"_s}}));
    EXPECT_EQ(journal.take(), (Texts{u"volume 0.8"_s, u"play 1: 2"_s, u"stop"_s}));
}

TEST_F(SampledInterfaceSoundTest, KeepsThePoolButDiscardsTheOwnVoiceOfASoundThatFailed) {
    files.add(u"/share/Sounds/chime.wav"_s, mono, 40);
    sound->play(Sound::sessionEnd);
    journal.take();
    device.scheduleError = AudioError{u"broken"_s};
    sound->play(Sound::sessionEnd);
    EXPECT_EQ(log.take().size(), 1u);
    EXPECT_EQ(taken(u"detach"_s), Texts{u"detach 4"_s});
    device.scheduleError.reset();
    sound->play(Sound::sessionEnd);
    EXPECT_EQ(journal.take(),
              (Texts{u"stop 0"_s, u"stop 1"_s, u"stop 2"_s, u"stop 3"_s, u"start"_s,
                     u"volume 0.8"_s, u"attach 5 (44100 Hz, 1)"_s, u"play 5: 40"_s}));
}

TEST_F(SampledInterfaceSoundTest, LogsASoundWhoseOwnVoiceCannotBeAttached) {
    files.add(u"/share/Sounds/blocked.wav"_s, mono, 50);
    sound->play(Sound::keyDown);
    device.attachError = AudioError{u"no room for voices"_s};
    sound->play(Sound::blocked, Preview::yes);
    EXPECT_EQ(log.take(),
              (std::vector<test::RecordingLog::Line>{
                  {u"InterfaceSound"_s, u"Couldn't play blocked: no room for voices"_s}}));
    EXPECT_FALSE(device.isRunning());
}

TEST_F(SampledInterfaceSoundTest, TreatsAFailureThatShowsLaterLikeOneThatShowsAtOnce) {
    files.add(u"/share/Sounds/chime.wav"_s, mono, 40);
    sound->play(Sound::sessionEnd);
    journal.take();
    device.failLater({u"the buffer is too long"_s});
    EXPECT_EQ(log.take(),
              (std::vector<test::RecordingLog::Line>{
                  {u"InterfaceSound"_s, u"Couldn't play sessionEnd: the buffer is too long"_s}}));
    EXPECT_EQ(journal.take(), (Texts{u"stop"_s, u"detach 4"_s}));
}

TEST(SampledInterfaceSound, IsSilentOnAMachineWithoutSound) {
    NullAudioDevice device;
    test::FakeAudioFiles files;
    files.add(u"/share/Sounds/key-down.wav"_s, stereo, 1);
    const MemoryPreferences preferences;
    test::HandClock clock;
    test::RecordingLog log;
    SampledInterfaceSound sound({device, files, preferences, clock, log, u"/share"_s});
    sound.play(Sound::keyDown, Preview::yes);
    const auto hold = sound.stayAwake();
    EXPECT_EQ(clock.runningTimers(), 0u);
}

TEST(SampledInterfaceSound, HasNoSampleWhereNoneCanBeRead) {
    NullAudioDevice device;
    const NullAudioFileReader files;
    const MemoryPreferences preferences;
    test::HandClock clock;
    test::RecordingLog log;
    const SampledInterfaceSound sound({device, files, preferences, clock, log, u"/share"_s});
    EXPECT_FALSE(sound.isLoaded(Sound::sessionEnd));
}

} // namespace
} // namespace tolvar
