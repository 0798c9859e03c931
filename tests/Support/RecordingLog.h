#pragma once

#include "Platform/Interfaces/SystemLog.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

namespace tolvar::test {

/// A system log whose lines a test takes and judges. A line that nobody took fails the test.
class RecordingLog final : public SystemLog {
public:
    struct Line {
        QString category;
        QString message;

        bool operator==(const Line&) const = default;
        friend void PrintTo(const Line& line, std::ostream* stream) {
            *stream << line.category.toStdString() << ": " << line.message.toStdString();
        }
    };

    RecordingLog() = default;
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;
    ~RecordingLog() override {
        for (const auto& line : m_lines)
            ADD_FAILURE() << "unexpected log line: " << testing::PrintToString(line);
    }

    void error(const QString& category, const QString& message) override {
        m_lines.push_back({category, message});
    }

    /// The lines since the last call.
    std::vector<Line> take() { return std::exchange(m_lines, {}); }

private:
    std::vector<Line> m_lines;
};

} // namespace tolvar::test
