#include "Platform/Linux/Audio/OpenAlDevice.h"

#include "Platform/Linux/Audio/WaveFileReader.h"
#include "Platform/Linux/Audio/WaveFiles.h"
#include "Support/ChildProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr AudioFormat stereo{.sampleRate = 48000, .channels = 2};

/// OpenAL chooses its driver once per process, so that each test lives in one of its own.
void withDriver(const char* driver, const std::function<void()>& body) {
    test::ChildProcess process([&] {
        qputenv("ALSOFT_DRIVERS", driver);
        body();
    });
    EXPECT_TRUE(process.succeeds());
}

template<typename Condition>
bool processEventsUntil(Condition condition) {
    for (const QDeadlineTimer deadline(10s); !condition() && !deadline.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}

std::unique_ptr<AudioVoice> voiceOf(AudioDevice& device) {
    return std::get<std::unique_ptr<AudioVoice>>(device.attachVoice(stereo));
}

std::shared_ptr<const AudioBuffer> halfASecond() {
    return std::make_shared<AudioBuffer>(test::level(0.5F, 24000, stereo));
}

TEST(OpenAlDevice, PlaysIntoTheWaveFileDriver) {
    const QTemporaryDir folder;
    const QString heard = folder.filePath(u"heard.wav"_s);
    QFile configuration(folder.filePath(u"alsoft.conf"_s));
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    configuration.write("[wave]\nfile = " + QFile::encodeName(heard) + '\n');
    configuration.close();
    withDriver("wave", [&] {
        qputenv("ALSOFT_CONF", QFile::encodeName(configuration.fileName()));
        const auto device = OpenAlDevice::create();
        const auto voice = voiceOf(*device);
        EXPECT_FALSE(QFile::exists(heard)) << "nothing is opened before the start";
        device->start();
        EXPECT_EQ(voice->schedule(halfASecond(), [](const AudioError&) {}), std::nullopt);
        EXPECT_TRUE(processEventsUntil([&] { return QFile(heard).size() > 50'000; }));
    });
    const auto written = WaveFileReader().read(heard);
    ASSERT_TRUE(written) << "the file was closed well";
    const auto& samples = written->samples;
    EXPECT_NEAR(*std::max_element(samples.begin(), samples.end()), 0.5F, 0.01F);
}

void expectSilenceAndQuickness() {
    testing::internal::CaptureStderr();
    const auto device = OpenAlDevice::create();
    QElapsedTimer time;
    time.start();
    device->start();
    EXPECT_LT(time.elapsed(), 100);
    EXPECT_TRUE(processEventsUntil([&] { return !device->isRunning(); }));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(OpenAlDevice, IsSilentAndQuickWhereThereIsNoDriver) {
    withDriver("none", &expectSilenceAndQuickness);
}

TEST(OpenAlDevice, IsSilentAndQuickWhereThereIsADriverButNoDevice) {
    withDriver("alsa", [] {
        qputenv("ALSA_CONFIG_PATH", "/dev/null");
        expectSilenceAndQuickness();
    });
}

TEST(OpenAlDevice, RunsOnADriverThatPlaysNowhereIfThePersonChoseIt) {
    withDriver("null", [] {
        const auto device = OpenAlDevice::create();
        const auto voice = voiceOf(*device);
        bool failed = false;
        device->start();
        EXPECT_EQ(voice->schedule(halfASecond(), [&](const AudioError&) { failed = true; }),
                  std::nullopt);
        device->stop();
        device->start();
        EXPECT_EQ(voice->schedule(halfASecond(), [&](const AudioError&) { failed = true; }),
                  std::nullopt);
        QCoreApplication::processEvents();
        EXPECT_TRUE(device->isRunning());
        EXPECT_FALSE(failed);
    });
}

TEST(OpenAlDevice, MakesOpenAlAnswerQuicklyUnlessThePersonConfiguredIt) {
    qputenv("ALSOFT_CONF", "mine.conf");
    static_cast<void>(OpenAlDevice::create());
    EXPECT_EQ(qgetenv("ALSOFT_CONF"), "mine.conf");
    qunsetenv("ALSOFT_CONF");
    static_cast<void>(OpenAlDevice::create());
    QFile configuration(qEnvironmentVariable("ALSOFT_CONF"));
    ASSERT_TRUE(configuration.open(QIODevice::ReadOnly));
    EXPECT_TRUE(configuration.readAll().contains("period_size = 256\n"));
}

} // namespace
} // namespace tolvar
