#pragma once

#include "Platform/Interfaces/AudioFileReader.h"
#include "Sound/InterfaceSound.h"

#include <QString>

#include <map>
#include <memory>

namespace tolvar {

/// The recorded interface sounds: each file is read once, when it is first asked for.
class SoundSamples {
public:
    /// The files lie in the folder "Sounds" of `resourcesPath`. `reader` outlives this.
    SoundSamples(const AudioFileReader& reader, const QString& resourcesPath);

    /// Null when the file is missing or cannot be read; it is not tried again.
    std::shared_ptr<const AudioBuffer> sample(InterfaceSound::Sound sound);

private:
    std::shared_ptr<const AudioBuffer> load(InterfaceSound::Sound sound) const;

    const AudioFileReader& m_reader;
    QString m_folder;
    std::map<InterfaceSound::Sound, std::shared_ptr<const AudioBuffer>> m_samples;
};

} // namespace tolvar
