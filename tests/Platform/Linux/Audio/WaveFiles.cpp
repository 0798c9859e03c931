#include "Platform/Linux/Audio/WaveFiles.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sndfile.h>

namespace tolvar::test {

void writeWave(const QString& path, const AudioBuffer& buffer) {
    SF_INFO info{};
    info.samplerate = buffer.format.sampleRate;
    info.channels = buffer.format.channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
    const auto count = static_cast<sf_count_t>(buffer.samples.size());
    EXPECT_EQ(sf_write_float(file, buffer.samples.data(), count), count);
    sf_close(file);
}

AudioBuffer level(float level, std::size_t frames, const AudioFormat& format) {
    return {format, std::vector<float>(frames * static_cast<std::size_t>(format.channels), level)};
}

} // namespace tolvar::test
