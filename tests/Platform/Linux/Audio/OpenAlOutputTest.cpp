#include "Platform/Linux/Audio/OpenAlOutput.h"

#include "Models/AppSettings.h"
#include "Platform/Linux/Audio/LoopbackDevice.h"
#include "Platform/Linux/Audio/WaveFileReader.h"
#include "Platform/Linux/Audio/WaveFiles.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Sound/SampledInterfaceSound.h"
#include "Support/HandClock.h"
#include "Support/RecordingLog.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Frames = std::vector<test::LoopbackDevice::Frame>;
using Sound = InterfaceSound::Sound;
using Preview = InterfaceSound::Preview;

constexpr AudioFormat stereo{.sampleRate = 48000, .channels = 2};
constexpr AudioFormat mono{.sampleRate = 48000, .channels = 1};
constexpr std::size_t period = 256;
constexpr std::size_t keyDownFrames = 4800;

/// The whole way from WAV files to what is heard. Key-down sounds at 0.1 on both sides.
class HeardInterfaceSound : public testing::Test {
protected:
    HeardInterfaceSound() {
        preferences.registerDefaults(AppSettings::defaults());
        preferences.setNumber(AppSettings::soundVolume, 1);
        QDir(folder.path()).mkdir(u"Sounds"_s);
        add(u"key-down"_s, test::level(0.1F, keyDownFrames, stereo));
    }

    void add(const QString& name, const AudioBuffer& buffer) {
        test::writeWave(folder.filePath(u"Sounds/"_s + name + u".wav"_s), buffer);
    }
    static float loudest(const Frames& frames) {
        float peak = 0;
        for (const auto& frame : frames)
            peak = std::max({peak, std::abs(frame.left), std::abs(frame.right)});
        return peak;
    }
    /// How loud it is in the middle of the next period.
    float level() { return device.render(period)[period / 2].left; }

    QTemporaryDir folder;
    test::LoopbackDevice device;
    WaveFileReader reader;
    MemoryPreferences preferences;
    test::HandClock clock;
    test::RecordingLog log;
    SampledInterfaceSound sound{{.device = device,
                                 .reader = reader,
                                 .preferences = preferences,
                                 .timers = clock,
                                 .log = log,
                                 .resourcesPath = folder.path()}};
};

TEST_F(HeardInterfaceSound, IsHeardWithinAPeriodOfBeingPlayed) {
    sound.play(Sound::keyDown);
    const Frames heard = device.render(period);
    const auto first =
        std::find_if(heard.begin(), heard.end(), [](const auto& frame) { return frame.left != 0; });
    EXPECT_LT(first - heard.begin(), 64) << "64 frames are 1.3 ms";
}

TEST_F(HeardInterfaceSound, IsHeardAsItWasRecorded) {
    AudioBuffer ramp = test::level(0, 1000, stereo);
    for (std::size_t i = 0; i < ramp.samples.size(); ++i)
        ramp.samples[i] = (i % 2 == 0 ? 1.0F : -0.5F) * static_cast<float>(i) / 4000;
    add(u"key-up"_s, ramp);
    sound.play(Sound::keyUp);
    const Frames heard = device.render(1000);
    for (std::size_t i = 128; i < heard.size(); ++i) {
        ASSERT_NEAR(heard[i].left, ramp.samples[2 * i], 1e-4F) << i;
        ASSERT_NEAR(heard[i].right, ramp.samples[2 * i + 1], 1e-4F) << i;
    }
}

TEST_F(HeardInterfaceSound, IsHeardAsLoudFromOneChannelAsFromTwo) {
    add(u"key-up"_s, test::level(0.5F, keyDownFrames, mono));
    sound.play(Sound::keyUp);
    device.render(period);
    const auto frame = device.render(1).front();
    EXPECT_NEAR(frame.left, 0.5F, 1e-4F);
    EXPECT_NEAR(frame.right, 0.5F, 1e-4F);
}

TEST_F(HeardInterfaceSound, LetsFourQuickClicksOverlapAndTheFifthCutTheFirst) {
    for (int click = 1; click <= 4; ++click) {
        sound.play(Sound::keyDown);
        device.render(period);
        EXPECT_NEAR(level(), 0.1F * static_cast<float>(click), 1e-4F) << "click " << click;
    }
    sound.play(Sound::keyDown);
    device.render(period);
    EXPECT_NEAR(level(), 0.4F, 1e-4F);
    constexpr std::size_t rendered = 10 * period;
    device.render(keyDownFrames + 2 * period - rendered);
    EXPECT_NEAR(level(), 0.3F, 1e-4F) << "the second has ended; the fifth is the last to";
    device.render(keyDownFrames);
    EXPECT_EQ(level(), 0.0F);
}

TEST_F(HeardInterfaceSound, InterruptsASoundOfAnotherFormatByItselfOnly) {
    add(u"chime"_s, test::level(0.2F, keyDownFrames, mono));
    sound.play(Sound::sessionEnd);
    sound.play(Sound::keyDown);
    device.render(period);
    EXPECT_NEAR(level(), 0.3F, 1e-4F);
    sound.play(Sound::sessionEnd);
    device.render(period);
    EXPECT_NEAR(level(), 0.3F, 1e-4F);
}

TEST_F(HeardInterfaceSound, IsSilentWhereTheSettingIsOffButHeardAsAPreview) {
    preferences.setBoolean(AppSettings::keySoundsEnabled, false);
    const auto awake = sound.stayAwake();
    sound.play(Sound::keyDown);
    EXPECT_EQ(loudest(device.render(4 * period)), 0.0F);
    sound.play(Sound::keyDown, Preview::yes);
    EXPECT_NEAR(loudest(device.render(4 * period)), 0.1F, 1e-4F);
}

TEST_F(HeardInterfaceSound, IsAsLoudAsTheVolumeSaysFromTheNextSoundOn) {
    preferences.setNumber(AppSettings::soundVolume, 0.5);
    sound.play(Sound::keyDown);
    device.render(period);
    EXPECT_NEAR(level(), 0.05F, 1e-4F);
    preferences.setNumber(AppSettings::soundVolume, 0.25);
    EXPECT_NEAR(level(), 0.05F, 1e-4F);
    preferences.setNumber(AppSettings::soundVolume, 0);
    sound.play(Sound::keyDown);
    device.render(period);
    EXPECT_EQ(level(), 0.0F);
}

TEST_F(HeardInterfaceSound, IsPlayedAtItsOwnSpeedWhateverItsSampleRate) {
    add(u"key-up"_s, test::level(0.5F, 2400, {.sampleRate = 24000, .channels = 2}));
    sound.play(Sound::keyUp);
    const Frames heard = device.render(9600);
    const auto last = std::find_if(heard.rbegin(), heard.rend(),
                                   [](const auto& frame) { return std::abs(frame.left) > 0.25F; });
    EXPECT_NEAR(heard.rend() - last, 4800, 8);
}

TEST_F(HeardInterfaceSound, IsCutOffWhenTheDeviceStopsAndHeardAgainAfterwards) {
    sound.play(Sound::keyDown);
    device.render(period);
    clock.advance(3);
    EXPECT_EQ(loudest(device.render(period)), 0.0F);
    sound.play(Sound::keyDown);
    device.render(period);
    EXPECT_NEAR(level(), 0.1F, 1e-4F) << "once, without what was cut off";
}

TEST_F(HeardInterfaceSound, IsTheSameEveryTime) {
    const auto hear = [&] {
        sound.play(Sound::keyDown);
        Frames heard = device.render(keyDownFrames + period);
        clock.advance(3);
        return heard;
    };
    EXPECT_EQ(hear(), hear());
}

TEST_F(HeardInterfaceSound, LeavesNothingBehindHoweverManyAreHeard) {
    for (int click = 0; click < 1000; ++click) {
        sound.play(Sound::keyDown);
        device.render(16);
    }
    EXPECT_NEAR(level(), 0.4F, 1e-4F);
}

TEST(OpenAlOutput, SaysWhyItCannotPlay) {
    test::LoopbackDevice device;
    device.start();
    auto attached = device.attachVoice(stereo);
    auto& voice = *std::get<std::unique_ptr<AudioVoice>>(attached);
    const auto broken = std::make_shared<AudioBuffer>(test::level(0.5F, 10, stereo));
    broken->format.sampleRate = 0;
    const auto error = voice.schedule(broken, [](const AudioError&) {});
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason, u"invalid value"_s);
    const auto sound = std::make_shared<AudioBuffer>(test::level(0.5F, 1000, stereo));
    EXPECT_EQ(voice.schedule(sound, [](const AudioError&) {}), std::nullopt);
    device.render(period);
    EXPECT_NEAR(device.render(1).front().left, 0.5F, 1e-4F);
}

} // namespace
} // namespace tolvar
