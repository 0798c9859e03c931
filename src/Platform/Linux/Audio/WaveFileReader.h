#pragma once

#include "Platform/Interfaces/AudioFileReader.h"

namespace tolvar {

/// WAV files, by libsndfile. Files of more than 16 MiB of samples are refused: what is meant here
/// are short sounds.
class WaveFileReader final : public AudioFileReader {
public:
    std::optional<AudioBuffer> read(const QString& path) const override;
};

} // namespace tolvar
