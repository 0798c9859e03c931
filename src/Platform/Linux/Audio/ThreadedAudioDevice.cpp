#include "Platform/Linux/Audio/ThreadedAudioDevice.h"

#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace tolvar {

using namespace Qt::StringLiterals;

class ThreadedAudioDevice::Voice final : public AudioVoice {
public:
    Voice(ThreadedAudioDevice& device, const AudioFormat& format)
        : m_device(device)
        , m_number(++device.m_lastVoice)
        , m_format(format) {
        device.m_voices.emplace(m_number, this);
    }
    ~Voice() override {
        stop();
        m_device.m_voices.erase(m_number);
    }
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    std::optional<AudioError> schedule(std::shared_ptr<const AudioBuffer> buffer,
                                       Failed failed) override {
        if (buffer->format != m_format)
            return AudioError{u"the sound has another format than its voice"_s};
        if (!m_device.isRunning())
            return AudioError{u"the audio device does not run"_s};
        m_buffer = buffer;
        m_failed = std::move(failed);
        m_device.m_thread->play(m_number, std::move(buffer));
        return std::nullopt;
    }

    void stop() override {
        m_buffer.reset();
        m_failed = nullptr;
        if (m_device.m_thread)
            m_device.m_thread->silence(m_number);
    }

    /// May end the life of this voice.
    void fail(const AudioThread::PlayFailed& report) {
        if (report.buffer != m_buffer)
            return;
        if (const auto failed = std::exchange(m_failed, nullptr))
            failed(report.error);
    }

private:
    ThreadedAudioDevice& m_device;
    VoiceNumber m_number;
    AudioFormat m_format;
    std::shared_ptr<const AudioBuffer> m_buffer;
    Failed m_failed;
};

ThreadedAudioDevice::ThreadedAudioDevice(AudioOutput::Open open, const AudioPatience& patience)
    : m_open(std::move(open))
    , m_patience(patience)
    , m_observers(std::make_shared<Observers>()) {}

ThreadedAudioDevice::~ThreadedAudioDevice() {
    if (m_thread)
        m_thread->end();
}

void ThreadedAudioDevice::start() {
    if (isRunning())
        return;
    if (!m_thread) {
        const auto post = [this](const AudioThread::Report& report) {
            QMetaObject::invokeMethod(
                &m_mailbox,
                [this, report] { std::visit([this](const auto& each) { receive(each); }, report); },
                Qt::QueuedConnection);
        };
        m_thread = AudioThread::begin(m_open, post, m_patience);
        m_thread->setVolume(m_volume);
    }
    m_run = ++m_lastRun;
    m_thread->setRun(m_run);
}

void ThreadedAudioDevice::stop() {
    if (!isRunning())
        return;
    m_run = AudioThread::none;
    m_thread->setRun(m_run);
}

void ThreadedAudioDevice::setMainVolume(double volume) {
    m_volume = volume > 0 ? static_cast<float>(std::min(volume, 1.0)) : 0;
    if (m_thread)
        m_thread->setVolume(m_volume);
}

AudioDevice::Attached ThreadedAudioDevice::attachVoice(const AudioFormat& format) {
    constexpr int highestRate = 192'000;
    if (format.channels < 1 || format.channels > 2)
        return AudioError{u"sounds of %1 channels are not supported"_s.arg(format.channels)};
    if (format.sampleRate < 1 || format.sampleRate > highestRate)
        return AudioError{u"a sample rate of %1 is not supported"_s.arg(format.sampleRate)};
    return std::make_unique<Voice>(*this, format);
}

Subscription ThreadedAudioDevice::observeConfigurationChanges(std::function<void()> changed) {
    const int key = m_nextObserver++;
    m_observers->emplace(key, std::move(changed));
    return Subscription([observers = std::weak_ptr(m_observers), key] {
        if (const auto alive = observers.lock())
            alive->erase(key);
    });
}

void ThreadedAudioDevice::receive(const AudioThread::OpenFailed& report) {
    if (report.run == m_run)
        stop();
}

void ThreadedAudioDevice::receive(const AudioThread::OutputLost& report) {
    if (report.run != m_run)
        return;
    stop();
    const Observers observers = *m_observers;
    for (const auto& [key, changed] : observers)
        if (m_observers->contains(key))
            changed();
}

void ThreadedAudioDevice::receive(const AudioThread::PlayFailed& report) {
    const auto voice = m_voices.find(report.voice);
    if (voice != m_voices.end())
        voice->second->fail(report);
}

} // namespace tolvar
