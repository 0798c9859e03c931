#include "Platform/Linux/Audio/OpenAlDevice.h"
#include "Platform/Linux/Audio/PulseServer.h"
#include "Platform/Linux/Audio/WaveFileReader.h"
#include "Platform/Linux/Audio/WaveFiles.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Sound/SampledInterfaceSound.h"
#include "Support/HandClock.h"
#include "Support/RecordingLog.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using Sound = InterfaceSound::Sound;
using Preview = InterfaceSound::Preview;

template<typename Condition>
bool eventually(Condition condition) {
    for (const QDeadlineTimer deadline(10'000); !condition() && !deadline.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}

class PulseAudio : public testing::Test {
protected:
    PulseAudio() {
        QDir(folder.path()).mkdir(u"Sounds"_s);
        test::writeWave(folder.filePath(u"Sounds/key-down.wav"_s),
                        test::level(0.1F, 480, {.sampleRate = 48000, .channels = 2}));
    }
    bool playsIntoServer() {
        return eventually([this] { return server.streams() == 1; });
    }

    test::PulseServer server;
    QTemporaryDir folder;
    std::unique_ptr<AudioDevice> device = OpenAlDevice::create();
    WaveFileReader reader;
    MemoryPreferences preferences;
    test::HandClock clock;
    test::RecordingLog log;
    SampledInterfaceSound sound{{.device = *device,
                                 .reader = reader,
                                 .preferences = preferences,
                                 .timers = clock,
                                 .log = log,
                                 .resourcesPath = folder.path()}};
};

TEST_F(PulseAudio, HasAStreamOfOursFromASoundToTheIdleStopAndNoLonger) {
    EXPECT_EQ(server.streams(), 0);
    sound.play(Sound::keyDown, Preview::yes);
    EXPECT_TRUE(playsIntoServer());
    clock.advance(2.999);
    EXPECT_EQ(server.streams(), 1);
    clock.advance(0.001);
    EXPECT_TRUE(eventually([this] { return server.streams() == 0; }));
    sound.play(Sound::keyDown, Preview::yes);
    EXPECT_TRUE(playsIntoServer());
}

TEST_F(PulseAudio, MayDieAndComeBack) {
    const auto awake = sound.stayAwake();
    ASSERT_TRUE(playsIntoServer());
    server.kill();
    EXPECT_TRUE(eventually([this] { return !device->isRunning(); }));
    server.start();
    sound.play(Sound::keyDown, Preview::yes);
    EXPECT_TRUE(playsIntoServer());
}

TEST_F(PulseAudio, MayHangWithoutAnybodyWaitingForIt) {
    sound.play(Sound::keyDown, Preview::yes);
    ASSERT_TRUE(playsIntoServer());
    clock.advance(3);
    ASSERT_TRUE(eventually([this] { return server.streams() == 0; }));
    server.hang();
    QElapsedTimer time;
    time.start();
    for (int round = 0; round < 3; ++round) {
        sound.play(Sound::keyDown, Preview::yes);
        clock.advance(3);
    }
    EXPECT_LT(time.elapsed(), 50);
    server.wakeUp();
    EXPECT_TRUE(eventually([this] {
        sound.play(Sound::keyDown, Preview::yes);
        return server.streams() == 1;
    }));
}

} // namespace
} // namespace tolvar
