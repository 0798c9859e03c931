#pragma once

#include "Platform/Interfaces/AudioFileReader.h"

namespace tolvar {

/// No recorded sound can be read.
class NullAudioFileReader final : public AudioFileReader {
public:
    std::optional<AudioBuffer> read(const QString&) const override { return std::nullopt; }
};

} // namespace tolvar
