#pragma once

#include "Platform/Interfaces/AudioDevice.h"
#include "Support/Journal.h"

#include <utility>

namespace tolvar::test {

/// A device that does what it is told and records it. Voices are numbered in the order in which
/// they are attached. Journal lines: "start", "stop", "volume N", "attach N (RATE Hz, CHANNELS)",
/// "detach N", "stop N", "play N: FRAMES" with the length of the buffer in frames.
class RecordingAudioDevice final : public AudioDevice {
public:
    explicit RecordingAudioDevice(Journal& journal)
        : m_journal(journal) {}

    /// What the next calls answer.
    bool canStart = true;
    std::optional<AudioError> attachError;
    std::optional<AudioError> scheduleError;

    void start() override {
        m_journal.record(QStringLiteral("start"));
        m_running = canStart;
    }
    void stop() override {
        m_journal.record(QStringLiteral("stop"));
        m_running = false;
    }
    bool isRunning() const override { return m_running; }
    void setMainVolume(double volume) override {
        m_journal.record(QStringLiteral("volume %1").arg(volume));
    }
    Attached attachVoice(const AudioFormat& format) override;
    Subscription observeConfigurationChanges(std::function<void()> changed) override {
        m_changed = std::move(changed);
        return Subscription([this] { m_changed = nullptr; });
    }

    /// The output is unplugged.
    void loseOutput() {
        m_running = false;
        if (m_changed)
            m_changed();
    }
    /// What was scheduled last turns out not to be playable.
    void failLater(const AudioError& error) { std::exchange(m_failed, nullptr)(error); }
    bool isObserved() const { return m_changed != nullptr; }

private:
    class Voice;

    Journal& m_journal;
    bool m_running = false;
    int m_attached = 0;
    std::function<void()> m_changed;
    AudioVoice::Failed m_failed;
};

class RecordingAudioDevice::Voice final : public AudioVoice {
public:
    Voice(RecordingAudioDevice& device, int number)
        : m_device(device)
        , m_number(number) {}
    ~Voice() override { record(QStringLiteral("detach %1").arg(m_number)); }

    std::optional<AudioError> schedule(std::shared_ptr<const AudioBuffer> buffer,
                                       Failed failed) override {
        const auto frames =
            buffer->samples.size() / static_cast<std::size_t>(buffer->format.channels);
        record(QStringLiteral("play %1: %2").arg(m_number).arg(frames));
        m_device.m_failed = std::move(failed);
        return m_device.scheduleError;
    }
    void stop() override { record(QStringLiteral("stop %1").arg(m_number)); }

private:
    void record(const QString& line) { m_device.m_journal.record(line); }

    RecordingAudioDevice& m_device;
    int m_number;
};

inline AudioDevice::Attached RecordingAudioDevice::attachVoice(const AudioFormat& format) {
    if (attachError)
        return *attachError;
    const int number = m_attached++;
    m_journal.record(QStringLiteral("attach %1 (%2 Hz, %3)")
                         .arg(number)
                         .arg(format.sampleRate)
                         .arg(format.channels));
    return std::make_unique<Voice>(*this, number);
}

} // namespace tolvar::test
