#include "Sound/SoundSamples.h"

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

QString fileName(InterfaceSound::Sound sound) {
    switch (sound) {
    case InterfaceSound::Sound::keyDown:
        return u"key-down.wav"_s;
    case InterfaceSound::Sound::keyUp:
        return u"key-up.wav"_s;
    case InterfaceSound::Sound::modeSwitch:
        return u"mode-switch.wav"_s;
    case InterfaceSound::Sound::sessionEnd:
        return u"chime.wav"_s;
    case InterfaceSound::Sound::blocked:
        return u"blocked.wav"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

SoundSamples::SoundSamples(const AudioFileReader& reader, const QString& resourcesPath)
    : m_reader(reader)
    , m_folder(resourcesPath + u"/Sounds/"_s) {}

std::shared_ptr<const AudioBuffer> SoundSamples::sample(InterfaceSound::Sound sound) {
    auto found = m_samples.find(sound);
    if (found == m_samples.end())
        found = m_samples.emplace(sound, load(sound)).first;
    return found->second;
}

std::shared_ptr<const AudioBuffer> SoundSamples::load(InterfaceSound::Sound sound) const {
    auto buffer = m_reader.read(m_folder + fileName(sound));
    return buffer ? std::make_shared<const AudioBuffer>(*std::move(buffer)) : nullptr;
}

} // namespace tolvar
