#pragma once

#include "Support/Texts.h"

#include <functional>
#include <utility>

namespace tolvar::test {

/// What the fakes of one test were asked to do, one line each, in the order it happened across all
/// of them.
class Journal {
public:
    /// Called behind each line, before what it says takes effect; may be left empty.
    std::function<void()> recorded;

    void record(const QString& line) {
        m_lines.push_back(line);
        if (recorded)
            recorded();
    }

    const Texts& lines() const { return m_lines; }
    /// The lines since the last time they were taken.
    Texts take() { return std::exchange(m_lines, {}); }

private:
    Texts m_lines;
};

} // namespace tolvar::test
