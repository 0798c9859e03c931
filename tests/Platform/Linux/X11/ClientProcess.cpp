#include "Platform/Linux/X11/ClientProcess.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <utility>

namespace tolvar::test {

namespace {

/// Answers each byte, which says whether to override redirection, with the id of a new window.
[[noreturn]] void serve(int channel) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    // No window shall bear the id of one of a process that has just gone: its window manager may
    // still have that one in mind.
    for (int used = getpid() % 10000; used > 0; --used)
        xcb_generate_id(connection);
    char isOverride = 0;
    while (read(channel, &isOverride, 1) == 1) {
        const xcb_window_t window = xcb_generate_id(connection);
        const std::uint32_t values[] = {screen->white_pixel,
                                        static_cast<std::uint32_t>(isOverride)};
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 10, 10, 300, 200,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        if (write(channel, &window, sizeof window) != sizeof window)
            break;
    }
    _exit(0);
}

} // namespace

ClientProcess::ClientProcess() {
    int channels[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channels) != 0)
        abort();
    m_process = fork();
    if (m_process == 0) {
        close(channels[0]);
        serve(channels[1]);
    }
    close(channels[1]);
    m_channel = channels[0];
}

ClientProcess::~ClientProcess() {
    quit();
    close(m_channel);
}

void ClientProcess::quit() {
    if (const pid_t process = std::exchange(m_process, 0)) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

xcb_window_t ClientProcess::createWindow(Redirect redirect) {
    const char isOverride = redirect == Redirect::override ? 1 : 0;
    xcb_window_t window = XCB_NONE;
    if (write(m_channel, &isOverride, 1) != 1 ||
        read(m_channel, &window, sizeof window) != sizeof window)
        return XCB_NONE;
    return window;
}

} // namespace tolvar::test
