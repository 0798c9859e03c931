"""The block alert on a real desktop, looked at and handled from outside."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

import Xlib.display
import Xlib.error
from Xlib import X, XK
from Xlib.ext import xtest
from Xlib.protocol import event

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "EndToEnd"))
from support import Guests, wait_until  # noqa: E402

EVERY_DESKTOP = 0xFFFFFFFF
IS_I3 = os.environ["TOLVAR_DESKTOP_WM"] == "i3"


class AlertProgram:
    """The alert in a process of its own (AlertProgram.cpp)."""

    def __init__(self):
        self._process = subprocess.Popen([os.environ["ALERT_PROGRAM"]], text=True, bufsize=1,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.pid = self._process.pid

    def tell(self, line):
        """Returns what it said before it was done."""
        print(line, file=self._process.stdin, flush=True)
        said = []
        while (answer := self._process.stdout.readline().strip()) != "done":
            if not answer:
                raise AssertionError(f"{line}: the program has ended")
            said.append(answer)
        return said

    def end(self):
        self._process.kill()
        self._process.wait()
        self._process.stdin.close()
        self._process.stdout.close()


class Screen:
    """The X server as another program sees it."""

    def __init__(self):
        self.display = Xlib.display.Display()
        self.root = self.display.screen().root

    def property(self, window, name):
        try:
            found = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        except (Xlib.error.BadWindow, Xlib.error.BadDrawable):
            return []
        return list(found.value) if found else []

    def clients(self):
        return [self.display.create_resource_object("window", number)
                for number in self.property(self.root, "_NET_CLIENT_LIST")]

    def windows_of(self, pid):
        return [window for window in self.clients()
                if self.property(window, "_NET_WM_PID") == [pid] and self.is_seen(window)]

    def is_seen(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except (Xlib.error.BadWindow, Xlib.error.BadDrawable):
            return False

    def states(self, window):
        return {self.display.get_atom_name(atom)
                for atom in self.property(window, "_NET_WM_STATE")}

    def frame(self, window):
        """The child of the root that the window is in."""
        while (parent := window.query_tree().parent) != self.root:
            window = parent
        return window

    def is_above(self, window, other):
        order = [child.id for child in self.root.query_tree().children]
        return order.index(self.frame(window).id) > order.index(self.frame(other).id)

    def center(self, window):
        size = window.get_geometry()
        corner = self.root.translate_coords(window, 0, 0)
        return corner.x + size.width / 2, corner.y + size.height / 2

    def active(self):
        return (self.property(self.root, "_NET_ACTIVE_WINDOW") or [0])[0]

    def has_keyboard(self, window):
        focus = self.display.get_input_focus().focus
        while not isinstance(focus, int) and focus != self.root:
            if focus == window:
                return True
            focus = focus.query_tree().parent
        return False

    def tell_window_manager(self, window, name, *data):
        message = event.ClientMessage(window=window, client_type=self.display.intern_atom(name),
                                      data=(32, list(data) + [0] * (5 - len(data))))
        self.root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def go_to_desktop(self, index):
        if IS_I3:  # its workspaces are there, and counted, for as long as something is on them
            subprocess.run(["i3-msg", f"workspace {index + 1}"], check=True,
                           stdout=subprocess.DEVNULL)
            return
        self.tell_window_manager(self.root, "_NET_NUMBER_OF_DESKTOPS", 2)
        self.tell_window_manager(self.root, "_NET_CURRENT_DESKTOP", index)
        wait_until(f"desktop {index} is shown",
                   lambda: self.property(self.root, "_NET_CURRENT_DESKTOP") == [index])

    def press(self, key):
        code = self.display.keysym_to_keycode(XK.string_to_keysym(key))
        xtest.fake_input(self.display, X.KeyPress, code)
        xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def move_pointer(self, x, y):
        self.root.warp_pointer(x, y)
        self.display.sync()


def xrandr(*arguments):
    subprocess.run(["xrandr", *arguments], check=True, stdout=subprocess.DEVNULL)


class AlertCase(unittest.TestCase):
    def setUp(self):
        self.screen = Screen()
        self.addCleanup(self.screen.display.close)
        self.guests = Guests()
        self.addCleanup(self.guests.end)
        self.program = AlertProgram()
        self.addCleanup(self.program.end)

    def present(self, line="app XTerm"):
        said = self.program.tell(line)
        wait_until("the alert is seen", self.shown)
        return self.shown()[0], said

    def shown(self):
        return self.screen.windows_of(self.program.pid)

    def wait_for_keyboard(self, alert):
        wait_until("the alert has the keyboard", lambda: self.screen.has_keyboard(alert))

    def wait_until_centered(self, alert, x, y):
        def is_there():
            at = self.screen.center(alert)
            return abs(at[0] - x) <= 1 and abs(at[1] - y) <= 1

        try:
            wait_until("in the middle", is_there, seconds=5)
        except AssertionError:
            self.fail(f"in the middle of {self.screen.center(alert)} instead of {x}, {y}")

    def start_xterm(self, *arguments):
        pid = self.guests.start("xterm", *arguments).pid
        wait_until("xterm is seen", lambda: self.screen.windows_of(pid))
        return self.screen.windows_of(pid)[0]


class BlockAlertTest(AlertCase):
    def test_takes_the_keyboard_from_whoever_has_it(self):
        xterm = self.start_xterm()
        self.screen.tell_window_manager(xterm, "_NET_ACTIVE_WINDOW", 2)
        wait_until("xterm has the keyboard", lambda: self.screen.has_keyboard(xterm))
        alert, _ = self.present()
        self.wait_for_keyboard(alert)
        wait_until("the alert is the active window", lambda: self.screen.active() == alert.id)

    def test_stands_above_a_window_that_fills_the_screen(self):
        xterm = self.start_xterm("-fullscreen")
        wait_until("xterm fills the screen",
                   lambda: "_NET_WM_STATE_FULLSCREEN" in self.screen.states(xterm))
        self.screen.tell_window_manager(xterm, "_NET_ACTIVE_WINDOW", 2)
        wait_until("xterm has the keyboard", lambda: self.screen.has_keyboard(xterm))
        alert, _ = self.present()
        self.wait_for_keyboard(alert)
        wait_until("the alert is above", lambda: self.screen.is_above(alert, xterm))
        self.wait_until_centered(alert, 640, 400)
        if folder := os.environ.get("ALERT_PICTURES"):
            subprocess.run(["sleep", "0.5"], check=True)
            subprocess.run(["import", "-window", "root",
                            f"{folder}/alert-{os.environ['TOLVAR_DESKTOP_WM']}.png"], check=True)

    def test_is_seen_on_every_desktop(self):
        self.screen.go_to_desktop(0)
        alert, _ = self.present()
        wait_until("it says that it is on every desktop",
                   lambda: self.screen.property(alert, "_NET_WM_DESKTOP") == [EVERY_DESKTOP])
        self.screen.go_to_desktop(1)
        wait_until("it is seen there", lambda: self.screen.is_seen(alert))
        self.screen.go_to_desktop(0)
        wait_until("it is seen here", lambda: self.screen.is_seen(alert))

    def test_is_left_out_of_taskbar_and_pager(self):
        alert, _ = self.present()
        wanted = {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}
        wait_until("the window manager keeps its traits",
                   lambda: wanted <= self.screen.states(alert))

    def test_is_sent_away_by_escape_and_by_return_and_comes_again(self):
        for key in ("Escape", "Return", "Escape"):
            alert, _ = self.present()
            self.wait_for_keyboard(alert)
            self.screen.press(key)
            wait_until(f"{key} sent it away", lambda: not self.shown())

    def test_is_one_at_a_time(self):
        alert, said = self.present("app XTerm")
        self.assertEqual(said, ["sound"])
        self.assertEqual(self.program.tell("site example.org"), [])
        self.assertEqual([window.id for window in self.shown()], [alert.id])
        self.assertEqual(alert.get_full_text_property(
            self.screen.display.intern_atom("_NET_WM_NAME")), "You're tolvar, XTerm is blocked")

    def test_stays_while_others_have_the_keyboard(self):
        alert, _ = self.present()
        self.wait_for_keyboard(alert)
        xterm = self.start_xterm()
        self.screen.tell_window_manager(xterm, "_NET_ACTIVE_WINDOW", 2)
        wait_until("xterm has the keyboard", lambda: self.screen.has_keyboard(xterm))
        wait_until("the window manager has done it", lambda: self.screen.active() == xterm.id)
        self.assertTrue(self.screen.is_seen(alert))
        wait_until("it is still above", lambda: self.screen.is_above(alert, xterm))

    def test_is_no_application_to_be_hidden(self):
        self.start_xterm()
        self.present()
        self.assertEqual(self.program.tell("applications"), ["application XTerm"])


class ScreensTest(AlertCase):
    """Two screens side by side, and screens that change."""

    def split(self):
        xrandr("--setmonitor", "left", "640/160x800/200+0+0", "screen")
        self.addCleanup(xrandr, "--delmonitor", "left")
        xrandr("--setmonitor", "right", "640/160x800/200+640+0", "none")
        self.addCleanup(xrandr, "--delmonitor", "right")
        wait_until("the program knows both screens",
                   lambda: len(self.program.tell("screens")) == 2)

    def test_goes_to_the_middle_of_a_screen_that_changes(self):
        xrandr("--newmode", "small", "30", "800", "800", "800", "800", "600", "600", "600", "600")
        xrandr("--addmode", "screen", "small")
        self.addCleanup(xrandr, "--output", "screen", "--mode", "1280x800")
        alert, _ = self.present()
        self.wait_until_centered(alert, 640, 400)
        xrandr("--output", "screen", "--mode", "small")
        self.wait_until_centered(alert, 400, 300)
        xrandr("--output", "screen", "--mode", "1280x800")
        self.wait_until_centered(alert, 640, 400)

    @unittest.skipIf(IS_I3, "it moves the pointer to the screen that it works on")
    def test_goes_to_the_screen_under_the_pointer_when_its_own_is_gone(self):
        self.screen.move_pointer(900, 200)
        self.split()
        alert, _ = self.present()
        self.wait_until_centered(alert, 960, 400)
        self.screen.move_pointer(100, 200)
        xrandr("--delmonitor", "right")
        self.wait_until_centered(alert, 320, 400)

    def test_stands_in_the_middle_of_the_screen_under_the_pointer(self):
        self.split()
        for x, middle in ((900, 960), (100, 320)):
            self.screen.move_pointer(x, 200)
            alert, _ = self.present()
            self.wait_until_centered(alert, middle, 400)
            self.wait_for_keyboard(alert)
            self.screen.press("Escape")
            wait_until("it is gone", lambda: not self.shown())


if __name__ == "__main__":
    unittest.main()
