#include "Platform/Linux/Audio/WaveFileReader.h"

#include <QFile>

#include <sndfile.h>

#include <memory>

namespace tolvar {

namespace {

constexpr sf_count_t mostSamples = (16 << 20) / sizeof(float);

struct CloseFile {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

bool isUsable(const SF_INFO& info) {
    return info.frames > 0 && info.channels > 0 && info.frames <= mostSamples / info.channels;
}

} // namespace

std::optional<AudioBuffer> WaveFileReader::read(const QString& path) const {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, CloseFile> file(
        sf_open(QFile::encodeName(path).constData(), SFM_READ, &info));
    if (!file || !isUsable(info))
        return std::nullopt;
    AudioBuffer buffer;
    buffer.format = {.sampleRate = info.samplerate, .channels = info.channels};
    buffer.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    if (sf_readf_float(file.get(), buffer.samples.data(), info.frames) != info.frames)
        return std::nullopt;
    return buffer;
}

} // namespace tolvar
