#include "Platform/Linux/Audio/FakeOutput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvar::test {

using namespace Qt::StringLiterals;

class FakeOutputs::Output final : public AudioOutput {
public:
    explicit Output(FakeOutputs& outputs)
        : m_outputs(outputs) {}
    ~Output() override {
        m_outputs.record(u"close"_s);
        std::unique_lock lock(m_outputs.m_mutex);
        m_outputs.m_changed.wait(lock, [this] { return !m_outputs.m_isClosingHeld; });
        m_outputs.forgetOutput();
    }

    bool isConnected() const override {
        const std::lock_guard lock(m_outputs.m_mutex);
        return m_outputs.m_isConnected;
    }
    void setVolume(float volume) override {
        if (std::exchange(m_volume, volume) != volume)
            m_outputs.record(u"volume %1"_s.arg(static_cast<double>(volume), 0, 'g', 3));
    }
    std::optional<AudioError> play(VoiceNumber voice,
                                   const std::shared_ptr<const AudioBuffer>&) override {
        m_outputs.record(u"play %1"_s.arg(voice));
        const std::lock_guard lock(m_outputs.m_mutex);
        return m_outputs.m_plays ? std::nullopt : std::optional(AudioError{u"no play today"_s});
    }
    void silence(VoiceNumber voice) override { m_outputs.record(u"silence %1"_s.arg(voice)); }

private:
    FakeOutputs& m_outputs;
    float m_volume = 1;
};

FakeOutputs::~FakeOutputs() {
    letOpen();
    letClose();
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_outputs == 0; });
}

void FakeOutputs::forgetOutput() {
    --m_outputs;
    m_changed.notify_all();
}

AudioOutput::Open FakeOutputs::opener() {
    return [this](AudioOutput::Lost lost) -> std::unique_ptr<AudioOutput> {
        std::unique_lock lock(m_mutex);
        ++m_outputs;
        lock.unlock();
        record(u"open"_s);
        lock.lock();
        m_changed.wait(lock, [this] { return !m_isOpeningHeld; });
        if (!std::exchange(m_opens, true)) {
            forgetOutput();
            return nullptr;
        }
        m_lost = std::move(lost);
        return std::make_unique<Output>(*this);
    };
}

void FakeOutputs::holdOpening() {
    const std::lock_guard lock(m_mutex);
    m_isOpeningHeld = true;
}

void FakeOutputs::letOpen() {
    const std::lock_guard lock(m_mutex);
    m_isOpeningHeld = false;
    m_changed.notify_all();
}

void FakeOutputs::holdClosing() {
    const std::lock_guard lock(m_mutex);
    m_isClosingHeld = true;
}

void FakeOutputs::letClose() {
    const std::lock_guard lock(m_mutex);
    m_isClosingHeld = false;
    m_changed.notify_all();
}

void FakeOutputs::refuseOpening() {
    const std::lock_guard lock(m_mutex);
    m_opens = false;
}

void FakeOutputs::refusePlaying() {
    const std::lock_guard lock(m_mutex);
    m_plays = false;
}

void FakeOutputs::allowPlaying() {
    const std::lock_guard lock(m_mutex);
    m_plays = true;
}

void FakeOutputs::disconnect(Notice notice) {
    AudioOutput::Lost lost;
    {
        const std::lock_guard lock(m_mutex);
        m_isConnected = false;
        lost = m_lost;
    }
    if (notice == Notice::told)
        lost();
}

void FakeOutputs::connect() {
    const std::lock_guard lock(m_mutex);
    m_isConnected = true;
}

void FakeOutputs::record(const QString& line) {
    const std::lock_guard lock(m_mutex);
    m_lines.push_back(line);
    m_changed.notify_all();
}

Texts FakeOutputs::until(const QString& line) {
    std::unique_lock lock(m_mutex);
    const auto found = [&] { return std::find(m_lines.begin(), m_lines.end(), line); };
    EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::seconds(10),
                                   [&] { return found() != m_lines.end(); }))
        << "waited in vain for " << line.toStdString();
    auto end = found();
    if (end != m_lines.end())
        ++end;
    Texts lines(m_lines.begin(), end);
    m_lines.erase(m_lines.begin(), end);
    return lines;
}

Texts FakeOutputs::take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_lines, {});
}

} // namespace tolvar::test
