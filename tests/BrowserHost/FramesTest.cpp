#include "BrowserHost/Frames.h"

#include "BrowserHost/Descriptor.h"
#include "BrowserHost/RandomBytes.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cstring>
#include <vector>

namespace tolvar::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string prefix(std::uint32_t length) {
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    return bytes;
}

std::string frame(const std::string& content) {
    return prefix(static_cast<std::uint32_t>(content.size())) + content;
}

std::vector<std::string> takeAll(FrameReader& reader) {
    std::vector<std::string> contents;
    while (auto content = reader.take())
        contents.push_back(*std::move(content));
    return contents;
}

TEST(FrameReader, FindsFramesHoweverTheyArrive) {
    const std::string stream = frame("one") + frame("") + frame("three");
    for (std::size_t piece = 1; piece <= stream.size(); ++piece) {
        FrameReader reader;
        std::vector<std::string> found;
        for (std::size_t start = 0; start < stream.size(); start += piece) {
            reader.append(stream.substr(start, piece));
            for (auto& content : takeAll(reader))
                found.push_back(std::move(content));
        }
        EXPECT_THAT(found, ElementsAre("one", "", "three")) << "in pieces of " << piece;
    }
}

TEST(FrameReader, WaitsForTheRestOfAFrame) {
    FrameReader reader;
    reader.append(frame("incomplete").substr(0, 9));
    EXPECT_THAT(takeAll(reader), IsEmpty());
    EXPECT_FALSE(reader.isBroken());
}

TEST(FrameReader, TakesTheLongestFrameAndNoLongerOne) {
    const std::string longest(maximumFrame, 'x');
    FrameReader reader;
    reader.append(frame(longest));
    EXPECT_EQ(reader.take(), longest);
    reader.append(prefix(maximumFrame + 1));
    EXPECT_EQ(reader.take(), std::nullopt);
    EXPECT_TRUE(reader.isBroken());
}

TEST(FrameReader, UnderstandsNothingBehindAFrameThatIsTooLong) {
    FrameReader reader;
    reader.append(frame("good") + prefix(0xffffffff) + frame("behind"));
    EXPECT_THAT(takeAll(reader), ElementsAre("good"));
    reader.append(frame("later"));
    EXPECT_THAT(takeAll(reader), IsEmpty());
    EXPECT_TRUE(reader.isBroken());
}

TEST(FrameReader, OutlivesGarbage) {
    RandomBytes random(1);
    for (int input = 0; input < 20'000; ++input) {
        FrameReader reader;
        for (int piece = 0; piece < 4; ++piece) {
            std::string bytes = random.bytes(random.below(64));
            // Half of the lengths are small, so that there is something to be found.
            if (bytes.size() > 4 && random.below(2) == 0)
                bytes.replace(0, 4, prefix(static_cast<std::uint32_t>(random.below(80))));
            reader.append(bytes);
            for (const auto& content : takeAll(reader))
                ASSERT_LE(content.size(), 4U * 64);
        }
    }
}

TEST(FrameReader, FindsWhatWasWrittenAtRandom) {
    RandomBytes random(2);
    for (int stream = 0; stream < 2'000; ++stream) {
        std::vector<std::string> written;
        std::string bytes;
        for (std::size_t count = random.below(8); count > 0; --count) {
            written.push_back(random.bytes(random.below(300)));
            bytes += frame(written.back());
        }
        FrameReader reader;
        std::vector<std::string> found;
        while (!bytes.empty()) {
            const std::size_t piece = 1 + random.below(200);
            reader.append(bytes.substr(0, piece));
            bytes.erase(0, piece);
            for (auto& content : takeAll(reader))
                found.push_back(std::move(content));
        }
        ASSERT_EQ(found, written);
    }
}

class FrameWriting : public testing::Test {
protected:
    FrameWriting() {
        int ends[2] = {-1, -1};
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends);
        writing = Descriptor(ends[0]);
        reading = Descriptor(ends[1]);
        const int small = 1;
        ::setsockopt(ends[0], SOL_SOCKET, SO_SNDBUF, &small, sizeof small);
    }

    /// What arrives until everything is written.
    std::vector<std::string> received() {
        std::vector<std::string> contents;
        do {
            EXPECT_TRUE(writer.flush(writing.number()));
            while (readOnce(reading.number(), reader) == ReadResult::bytes)
                for (auto& content : takeAll(reader))
                    contents.push_back(std::move(content));
        } while (!writer.isIdle());
        return contents;
    }

    Descriptor writing;
    Descriptor reading;
    FrameWriter writer;
    FrameReader reader;
};

TEST_F(FrameWriting, GoesOnWhereASlowReaderStoppedIt) {
    const std::string large(maximumFrame, 'y');
    writer.send(large);
    EXPECT_TRUE(writer.flush(writing.number()));
    EXPECT_FALSE(writer.isIdle());
    EXPECT_THAT(received(), ElementsAre(large));
    EXPECT_TRUE(writer.isIdle());
}

TEST_F(FrameWriting, KeepsOnlyTheNewestFrameBehindTheOneOnItsWay) {
    const std::string large(maximumFrame, 'z');
    writer.send(large);
    EXPECT_TRUE(writer.flush(writing.number()));
    for (int picture = 0; picture < 100; ++picture)
        writer.send("picture " + std::to_string(picture));
    EXPECT_THAT(received(), ElementsAre(large, "picture 99"));
}

TEST_F(FrameWriting, DropsWhatIsTooLong) {
    writer.send(std::string(maximumFrame + 1, 'x'));
    EXPECT_TRUE(writer.isIdle());
}

TEST_F(FrameWriting, NoticesThatNobodyReads) {
    reading.reset();
    writer.send("anybody?");
    EXPECT_FALSE(writer.flush(writing.number()));
}

TEST_F(FrameWriting, TellsTheEndFromNothingYet) {
    EXPECT_EQ(readOnce(reading.number(), reader), ReadResult::nothing);
    writing.reset();
    EXPECT_EQ(readOnce(reading.number(), reader), ReadResult::ended);
}

} // namespace
} // namespace tolvar::test
