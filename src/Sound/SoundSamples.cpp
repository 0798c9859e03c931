#include "Sound/SoundSamples.h"

#include "Sound/SoundFacts.h"

namespace tolvar {

using namespace Qt::StringLiterals;

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
    auto buffer = m_reader.read(m_folder + factsOf(sound).file);
    return buffer ? std::make_shared<const AudioBuffer>(*std::move(buffer)) : nullptr;
}

} // namespace tolvar
