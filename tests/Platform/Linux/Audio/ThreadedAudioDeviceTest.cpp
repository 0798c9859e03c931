#include "Platform/Linux/Audio/ThreadedAudioDevice.h"

#include "Platform/Linux/Audio/FakeOutput.h"
#include "Platform/Linux/Audio/WaveFiles.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::FakeOutputs;
using test::Texts;

constexpr AudioFormat stereo{.sampleRate = 48000, .channels = 2};
constexpr AudioPatience endless{.sound = 1h, .output = 0h, .farewell = 1h};

std::shared_ptr<const AudioBuffer> anySound() {
    return std::make_shared<AudioBuffer>(test::level(0.5F, 10, stereo));
}

void ignore(const AudioError&) {}

class ThreadedAudioDeviceTest : public testing::Test {
protected:
    void make(const AudioPatience& patience) {
        device = std::make_unique<ThreadedAudioDevice>(outputs.opener(), patience);
        subscription = device->observeConfigurationChanges([this] { ++changes; });
    }
    ThreadedAudioDeviceTest() { make(endless); }
    ~ThreadedAudioDeviceTest() override {
        outputs.letOpen();
        outputs.letClose();
    }

    std::unique_ptr<AudioVoice> voice(const AudioFormat& format = stereo) {
        return std::get<std::unique_ptr<AudioVoice>>(device->attachVoice(format));
    }
    void play(AudioVoice& player, std::shared_ptr<const AudioBuffer> buffer = anySound()) {
        EXPECT_EQ(player.schedule(std::move(buffer), &ignore), std::nullopt);
    }
    template<typename Condition>
    static void processEventsUntil(Condition condition) {
        for (const QDeadlineTimer deadline(10s); !condition() && !deadline.hasExpired();)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        EXPECT_TRUE(condition());
    }

    FakeOutputs outputs;
    std::unique_ptr<ThreadedAudioDevice> device;
    Subscription subscription;
    int changes = 0;
};

TEST_F(ThreadedAudioDeviceTest, OpensNothingBeforeItIsStarted) {
    auto player = voice();
    device->setMainVolume(0.5);
    player->stop();
    device->stop();
    EXPECT_FALSE(device->isRunning());
    player.reset();
    device.reset();
    EXPECT_EQ(outputs.take(), Texts{});
}

TEST_F(ThreadedAudioDeviceTest, PlaysAtItsVolumeAndClosesTheOutputWhenStopped) {
    const auto player = voice();
    device->setMainVolume(0.25);
    device->start();
    EXPECT_TRUE(device->isRunning());
    play(*player);
    EXPECT_EQ(outputs.until(u"play 1"_s), (Texts{u"open"_s, u"volume 0.25"_s, u"play 1"_s}));
    device->stop();
    EXPECT_FALSE(device->isRunning());
    EXPECT_EQ(outputs.until(u"close"_s), Texts{u"close"_s});
}

TEST_F(ThreadedAudioDeviceTest, KeepsTheVolumeBetweenSilentAndAsRecorded) {
    device->start();
    outputs.until(u"open"_s);
    device->setMainVolume(-1);
    EXPECT_EQ(outputs.until(u"volume 0"_s).back(), u"volume 0"_s);
    device->setMainVolume(7);
    outputs.until(u"volume 1"_s);
    device->setMainVolume(std::numeric_limits<double>::quiet_NaN());
    outputs.until(u"volume 0"_s);
}

TEST_F(ThreadedAudioDeviceTest, UsesItsVoicesAgainAfterItWasStopped) {
    const auto player = voice();
    device->start();
    play(*player);
    outputs.until(u"play 1"_s);
    device->stop();
    outputs.until(u"close"_s);
    device->start();
    play(*player);
    EXPECT_EQ(outputs.until(u"play 1"_s).front(), u"open"_s);
}

TEST_F(ThreadedAudioDeviceTest, SilencesAVoiceThatIsStoppedOrGone) {
    auto first = voice();
    const auto second = voice();
    device->start();
    play(*first);
    play(*second);
    outputs.until(u"play 2"_s);
    second->stop();
    outputs.until(u"silence 2"_s);
    first.reset();
    outputs.until(u"silence 1"_s);
}

TEST_F(ThreadedAudioDeviceTest, NeverMakesTheCallerWaitForAnOutputThatHangs) {
    make({.sound = 1h, .output = 0h, .farewell = 0ms});
    outputs.holdOpening();
    QElapsedTimer time;
    time.start();
    auto player = voice();
    device->start();
    outputs.until(u"open"_s);
    play(*player);
    player->stop();
    play(*player);
    device->stop();
    device->start();
    player.reset();
    device.reset();
    EXPECT_LT(time.elapsed(), 1000);
    outputs.letOpen();
    outputs.until(u"close"_s);
    EXPECT_EQ(outputs.take(), Texts{}) << "nothing is heard of a device that is gone";
}

TEST_F(ThreadedAudioDeviceTest, PlaysWhatWasAskedForWhileTheOutputOpens) {
    outputs.holdOpening();
    const auto first = voice();
    const auto second = voice();
    device->start();
    outputs.until(u"open"_s);
    play(*first);
    play(*second);
    outputs.letOpen();
    EXPECT_EQ(outputs.until(u"play 2"_s), (Texts{u"play 1"_s, u"play 2"_s}));
}

TEST_F(ThreadedAudioDeviceTest, PlaysASoundOnceThatWasAskedForRepeatedlyWhileTheOutputOpens) {
    outputs.holdOpening();
    const auto first = voice();
    const auto second = voice();
    device->start();
    outputs.until(u"open"_s);
    const auto click = anySound();
    play(*first, click);
    play(*second, click);
    outputs.letOpen();
    EXPECT_EQ(outputs.until(u"play 2"_s), Texts{u"play 2"_s});
    play(*first, click);
    play(*second, click);
    EXPECT_EQ(outputs.until(u"play 2"_s), (Texts{u"play 1"_s, u"play 2"_s}));
}

TEST_F(ThreadedAudioDeviceTest, DropsASoundThatTheOutputOpensTooLateFor) {
    make({.sound = -1ms, .output = 0h, .farewell = 1h});
    const auto player = voice();
    device->start();
    play(*player);
    device->setMainVolume(0.5);
    EXPECT_EQ(outputs.until(u"volume 0.5"_s), (Texts{u"open"_s, u"volume 0.5"_s}));
    device->stop();
    EXPECT_EQ(outputs.until(u"close"_s), Texts{u"close"_s});
}

TEST_F(ThreadedAudioDeviceTest, ForgetsWhatWasAskedForWhenItIsStoppedBeforeTheOutputIsOpen) {
    outputs.holdOpening();
    const auto player = voice();
    device->start();
    outputs.until(u"open"_s);
    play(*player);
    device->stop();
    outputs.letOpen();
    EXPECT_EQ(outputs.until(u"close"_s), Texts{u"close"_s});
}

TEST_F(ThreadedAudioDeviceTest, KeepsAnOutputThatOpensLateForTheLatestStart) {
    outputs.holdOpening();
    const auto early = voice();
    const auto late = voice();
    device->start();
    outputs.until(u"open"_s);
    play(*early);
    device->stop();
    device->start();
    play(*late);
    outputs.letOpen();
    EXPECT_EQ(outputs.until(u"play 2"_s), Texts{u"play 2"_s});
}

TEST_F(ThreadedAudioDeviceTest, PlaysWhatWasAskedForWhileAnEarlierOutputCloses) {
    outputs.holdClosing();
    const auto player = voice();
    device->start();
    play(*player);
    outputs.until(u"play 1"_s);
    device->stop();
    outputs.until(u"close"_s);
    device->start();
    play(*player);
    outputs.letClose();
    EXPECT_EQ(outputs.until(u"play 1"_s), (Texts{u"open"_s, u"play 1"_s}));
}

TEST_F(ThreadedAudioDeviceTest, DoesNotRunAndTellsNobodyWhereThereIsNoOutput) {
    outputs.refuseOpening();
    device->start();
    processEventsUntil([&] { return !device->isRunning(); });
    EXPECT_EQ(outputs.take(), Texts{u"open"_s});
    EXPECT_EQ(changes, 0);
    const auto player = voice();
    EXPECT_NE(player->schedule(anySound(), &ignore), std::nullopt);
}

TEST_F(ThreadedAudioDeviceTest, TellsWhenTheOutputIsUnpluggedAndCanBeStartedAgain) {
    device->start();
    const auto player = voice();
    play(*player);
    outputs.until(u"play 1"_s);
    outputs.disconnect(FakeOutputs::Notice::told);
    processEventsUntil([&] { return changes == 1; });
    EXPECT_FALSE(device->isRunning());
    EXPECT_EQ(outputs.take(), Texts{u"close"_s});
    outputs.connect();
    device->start();
    play(*player);
    EXPECT_EQ(outputs.until(u"play 1"_s), (Texts{u"open"_s, u"play 1"_s}));
}

TEST_F(ThreadedAudioDeviceTest, TellsNobodyOfAnOutputThatIsLostAsSoonAsItIsOpen) {
    make({.sound = 1h, .output = 1h, .farewell = 1h});
    outputs.disconnect(FakeOutputs::Notice::untold);
    device->start();
    processEventsUntil([&] { return !device->isRunning(); });
    EXPECT_EQ(outputs.until(u"close"_s), (Texts{u"open"_s, u"close"_s}));
    EXPECT_EQ(changes, 0);
}

TEST_F(ThreadedAudioDeviceTest, NoticesAnUnpluggedOutputThatDoesNotTell) {
    device->start();
    const auto player = voice();
    play(*player);
    outputs.until(u"play 1"_s);
    outputs.disconnect(FakeOutputs::Notice::untold);
    processEventsUntil([&] { return changes == 1; });
    EXPECT_FALSE(device->isRunning());
}

TEST_F(ThreadedAudioDeviceTest, CanBeStartedAgainByTheObserverOfTheLoss) {
    subscription = device->observeConfigurationChanges([&] {
        ++changes;
        outputs.connect();
        device->start();
    });
    device->start();
    outputs.until(u"open"_s);
    outputs.disconnect(FakeOutputs::Notice::untold);
    processEventsUntil([&] { return changes == 1; });
    EXPECT_TRUE(device->isRunning());
    outputs.until(u"open"_s);
    EXPECT_EQ(changes, 1);
}

TEST_F(ThreadedAudioDeviceTest, KeepsRunningThoughAnEarlierStartTurnsOutToHaveFailed) {
    outputs.holdOpening();
    outputs.refuseOpening();
    const auto player = voice();
    device->start();
    outputs.until(u"open"_s);
    device->stop();
    device->start();
    play(*player);
    outputs.letOpen();
    EXPECT_EQ(outputs.until(u"play 1"_s), (Texts{u"open"_s, u"play 1"_s}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(device->isRunning());
}

TEST_F(ThreadedAudioDeviceTest, TellsTheVoiceWhenItsSoundCannotBePlayed) {
    outputs.refusePlaying();
    auto player = voice();
    device->start();
    QString reason;
    ASSERT_EQ(player->schedule(anySound(),
                               [&](const AudioError& error) {
                                   reason = error.reason;
                                   player.reset();
                               }),
              std::nullopt);
    processEventsUntil([&] { return !reason.isEmpty(); });
    EXPECT_EQ(reason, u"no play today"_s);
    outputs.until(u"silence 1"_s);
}

TEST_F(ThreadedAudioDeviceTest, KeepsTheFailureOfASoundToItselfOnceTheVoiceIsStopped) {
    outputs.refusePlaying();
    const auto player = voice();
    const auto other = voice();
    bool failed = false;
    bool otherFailed = false;
    device->start();
    EXPECT_EQ(player->schedule(anySound(), [&](const AudioError&) { failed = true; }),
              std::nullopt);
    outputs.until(u"play 1"_s);
    player->stop();
    EXPECT_EQ(other->schedule(anySound(), [&](const AudioError&) { otherFailed = true; }),
              std::nullopt);
    processEventsUntil([&] { return otherFailed; });
    EXPECT_FALSE(failed);
}

TEST_F(ThreadedAudioDeviceTest, KeepsTheFailureOfASoundToItselfOnceTheVoicePlaysAnother) {
    outputs.refusePlaying();
    const auto player = voice();
    device->start();
    play(*player);
    outputs.until(u"play 1"_s);
    outputs.allowPlaying();
    bool failed = false;
    EXPECT_EQ(player->schedule(anySound(), [&](const AudioError&) { failed = true; }),
              std::nullopt);
    outputs.until(u"play 1"_s);
    QCoreApplication::processEvents();
    EXPECT_FALSE(failed);
}

TEST_F(ThreadedAudioDeviceTest, SaysAtOnceWhatItCannotPlay) {
    const auto reasonOf = [&](const AudioFormat& format) {
        const auto attached = device->attachVoice(format);
        const auto* error = std::get_if<AudioError>(&attached);
        return error ? error->reason : QString();
    };
    EXPECT_EQ(reasonOf({.sampleRate = 48000, .channels = 6}),
              u"sounds of 6 channels are not supported"_s);
    EXPECT_EQ(reasonOf({.sampleRate = 0, .channels = 1}), u"a sample rate of 0 is not supported"_s);
    const auto player = voice({.sampleRate = 48000, .channels = 1});
    EXPECT_EQ(player->schedule(anySound(), &ignore),
              AudioError{u"the sound has another format than its voice"_s});
    const auto other = voice();
    EXPECT_EQ(other->schedule(anySound(), &ignore), AudioError{u"the audio device does not run"_s});
}

} // namespace
} // namespace tolvar
