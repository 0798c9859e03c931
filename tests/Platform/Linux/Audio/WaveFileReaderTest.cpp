#include "Platform/Linux/Audio/WaveFileReader.h"

#include "Platform/Linux/Audio/WaveFiles.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class WaveFileReaderTest : public testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    WaveFileReader reader;
};

TEST_F(WaveFileReaderTest, ReadsAFileInItsOwnFormat) {
    const AudioBuffer mono{{.sampleRate = 22050, .channels = 1}, {0, 0.25F, -1, 1}};
    const AudioBuffer stereo{{.sampleRate = 48000, .channels = 2}, {0.5F, -0.5F, 0.125F, 0}};
    test::writeWave(path(u"mono.wav"_s), mono);
    test::writeWave(path(u"stéreo.wav"_s), stereo);
    EXPECT_EQ(reader.read(path(u"mono.wav"_s)), mono);
    EXPECT_EQ(reader.read(path(u"stéreo.wav"_s)), stereo);
}

TEST_F(WaveFileReaderTest, HasNothingForAFileThatIsMissingOrEmptyOrNoSound) {
    EXPECT_EQ(reader.read(path(u"missing.wav"_s)), std::nullopt);
    EXPECT_EQ(reader.read(folder.path()), std::nullopt);
    test::writeWave(path(u"silent.wav"_s), {{.sampleRate = 48000, .channels = 1}, {}});
    EXPECT_EQ(reader.read(path(u"silent.wav"_s)), std::nullopt);
    QFile text(path(u"text.wav"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("RIFF this is no sound");
    text.close();
    EXPECT_EQ(reader.read(text.fileName()), std::nullopt);
}

TEST_F(WaveFileReaderTest, RefusesAFileFarTooLongForAnInterfaceSound) {
    test::writeWave(path(u"long.wav"_s),
                    test::level(0, (4 << 20) + 1, {.sampleRate = 48000, .channels = 1}));
    EXPECT_EQ(reader.read(path(u"long.wav"_s)), std::nullopt);
}

} // namespace
} // namespace tolvar
