#pragma once

#include "Platform/Interfaces/AudioFileReader.h"
#include "Support/Texts.h"

#include <map>

namespace tolvar::test {

/// Audio files by path. Records which were read.
class FakeAudioFiles final : public AudioFileReader {
public:
    std::map<QString, AudioBuffer> files;
    mutable Texts asked;

    void add(const QString& path, const AudioFormat& format, std::size_t frames) {
        files[path] = {
            format, std::vector<float>(frames * static_cast<std::size_t>(format.channels), 0.5F)};
    }
    std::optional<AudioBuffer> read(const QString& path) const override {
        asked.push_back(path);
        const auto found = files.find(path);
        return found != files.end() ? std::optional(found->second) : std::nullopt;
    }
};

} // namespace tolvar::test
