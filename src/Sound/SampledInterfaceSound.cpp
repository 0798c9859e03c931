#include "Sound/SampledInterfaceSound.h"

#include "Sound/SoundFacts.h"

#include <utility>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

constexpr milliseconds idleTime{3000};
constexpr std::size_t poolSize = 4;

} // namespace

SampledInterfaceSound::SampledInterfaceSound(const Environment& environment)
    : m_environment(environment)
    , m_samples(environment.reader, environment.resourcesPath)
    , m_self(std::make_shared<SampledInterfaceSound*>(this)) {}

bool SampledInterfaceSound::isEnabled(Sound sound) const {
    return m_environment.preferences.boolean(factsOf(sound).setting);
}

bool SampledInterfaceSound::isLoaded(Sound sound) const {
    return m_samples.sample(sound) != nullptr;
}

void SampledInterfaceSound::play(Sound sound, Preview preview) {
    if (preview == Preview::no && !isEnabled(sound))
        return;
    const Buffer buffer = m_samples.sample(sound);
    if (!buffer)
        return;
    if (!m_environment.device.isRunning()) {
        startDevice();
        updateDevice();
    }
    if (!m_environment.device.isRunning())
        return;
    m_environment.device.setMainVolume(m_environment.preferences.number(u"soundVolume"_s));
    if (const auto error = schedule(sound, buffer))
        playFailed(sound, *error);
}

void SampledInterfaceSound::startDevice() {
    if (m_environment.device.isRunning())
        return;
    const Buffer keyDown = m_samples.sample(Sound::keyDown);
    if (!keyDown)
        return;
    if (m_pool.empty()) {
        if (const auto error = attachPool(keyDown->format)) {
            logFailure(u"start the engine"_s, *error);
            return;
        }
    }
    stopVoices();
    m_environment.device.start();
}

std::optional<AudioError> SampledInterfaceSound::attachPool(const AudioFormat& format) {
    std::vector<Voice> pool;
    while (pool.size() < poolSize) {
        auto attached = m_environment.device.attachVoice(format);
        if (const auto* error = std::get_if<AudioError>(&attached))
            return *error;
        pool.push_back(std::get<Voice>(std::move(attached)));
    }
    m_pool = std::move(pool);
    m_configurationChanges = m_environment.device.observeConfigurationChanges([this] {
        if (m_holds >= 1)
            startDevice();
    });
    return std::nullopt;
}

void SampledInterfaceSound::stopVoices() {
    for (const auto& voice : m_pool)
        voice->stop();
    for (const auto& [sound, voice] : m_soloVoices)
        voice->stop();
}

void SampledInterfaceSound::updateDevice() {
    m_pendingStop.reset();
    if (m_holds >= 1)
        startDevice();
    else if (m_environment.device.isRunning())
        m_pendingStop = m_environment.timers.once(idleTime, [this] { stopWhenIdle(); });
}

void SampledInterfaceSound::stopWhenIdle() {
    if (m_holds == 0)
        m_environment.device.stop();
}

InterfaceSound::Hold SampledInterfaceSound::stayAwake() {
    ++m_holds;
    updateDevice();
    return Hold([weak = std::weak_ptr(m_self)] {
        if (const auto self = weak.lock())
            (*self)->releaseHold();
    });
}

void SampledInterfaceSound::releaseHold() {
    --m_holds;
    updateDevice();
}

std::optional<AudioError> SampledInterfaceSound::schedule(Sound sound, const Buffer& buffer) {
    const auto chosen = voice(sound, buffer->format);
    if (const auto* error = std::get_if<AudioError>(&chosen))
        return *error;
    return std::get<AudioVoice*>(chosen)->schedule(
        buffer, [this, sound](const AudioError& error) { playFailed(sound, error); });
}

std::variant<AudioVoice*, AudioError> SampledInterfaceSound::voice(Sound sound,
                                                                   const AudioFormat& format) {
    if (format != m_samples.sample(Sound::keyDown)->format)
        return soloVoice(sound, format);
    const std::size_t chosen = m_nextVoice;
    m_nextVoice = (m_nextVoice + 1) % m_pool.size();
    return m_pool[chosen].get();
}

std::variant<AudioVoice*, AudioError> SampledInterfaceSound::soloVoice(Sound sound,
                                                                       const AudioFormat& format) {
    const auto found = m_soloVoices.find(sound);
    if (found != m_soloVoices.end())
        return found->second.get();
    auto attached = m_environment.device.attachVoice(format);
    if (const auto* error = std::get_if<AudioError>(&attached))
        return *error;
    return m_soloVoices.emplace(sound, std::get<Voice>(std::move(attached))).first->second.get();
}

/// The pool is kept; the next sound starts the device again.
void SampledInterfaceSound::playFailed(Sound sound, const AudioError& error) {
    logFailure(u"play "_s + factsOf(sound).name, error);
    m_environment.device.stop();
    m_soloVoices.erase(sound);
}

void SampledInterfaceSound::logFailure(const QString& what, const AudioError& error) const {
    m_environment.log.error(u"InterfaceSound"_s, u"Couldn't "_s + what + u": "_s + error.reason);
}

} // namespace tolvar
