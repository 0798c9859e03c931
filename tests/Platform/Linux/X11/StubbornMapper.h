#pragma once

#include <xcb/xcb.h>

#include <atomic>
#include <thread>

namespace tolvar::test {

/// Maps a window again as soon as it is unmapped, as programs do that will not be put away.
class StubbornMapper {
public:
    /// Does it `times` times at most.
    StubbornMapper(xcb_window_t window, int times);
    ~StubbornMapper();
    StubbornMapper(const StubbornMapper&) = delete;
    StubbornMapper& operator=(const StubbornMapper&) = delete;

    /// How often it has mapped the window.
    int count() const { return m_count; }

private:
    void work(xcb_window_t window, int times);

    xcb_connection_t* m_connection;
    std::atomic<int> m_count = 0;
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

} // namespace tolvar::test
