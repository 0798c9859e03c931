"""The window beside the castle, opened and closed as a hand does it."""

import subprocess
import unittest

from support import Guests, Hands, Program, Windows, wait_until

WIDTH, HEIGHT = 400, 578


class Popover(unittest.TestCase):
    def setUp(self):
        self.guests = Guests()
        self.addCleanup(self.guests.end)
        self.program = Program()
        self.addCleanup(self.program.end)
        self.windows = Windows()
        self.hands = Hands()
        self.program.start()
        wait_until("the castle is in the tray", lambda: self.windows.item_in_tray())

    def castle(self):
        x, y, width, height = self.windows.place(self.windows.item_in_tray())
        return x + width // 2, y + height // 2

    def window(self):
        shown = [window for window in self.windows.ids("tolvar")
                 if self.windows.title(window) == "Tolvar" and self.windows.is_in_view(window)]
        return shown[0] if shown else None

    def open(self):
        self.hands.click(*self.castle())
        self.wait_for_keyboard()
        wait_until("it stands beside the castle", self.stands_on_the_panel)

    def wait_for_keyboard(self):
        wait_until("the window has the keyboard",
                   lambda: self.window() and self.windows.has_keyboard(self.window()))

    def assert_gone(self):
        wait_until("the window is gone", lambda: self.window() is None)

    def stands_on_the_panel(self):
        """Where the castle, in a panel at the bottom, is in reach."""
        castle_x, castle_y = self.castle()
        x, y, width, height = self.windows.place(self.window())
        return x < castle_x < x + width and castle_y - 40 < y + height < castle_y

    def test_a_click_on_the_castle_opens_it_beside_the_castle(self):
        self.open()
        self.assertEqual(self.windows.place(self.window())[2:], (WIDTH, HEIGHT))

    def test_a_second_click_on_the_castle_closes_it(self):
        self.open()
        self.hands.click(*self.castle())
        self.assert_gone()
        self.open()

    def test_escape_closes_it(self):
        self.open()
        self.hands.press("Escape")
        self.assert_gone()

    def test_a_press_on_the_empty_desktop_closes_it(self):
        self.open()
        self.hands.click(20, 20)
        self.assert_gone()

    def test_a_wheel_that_is_turned_elsewhere_does_not_close_it(self):
        self.open()
        self.hands.turn_wheel(20, 20)
        self.hands.click(*self.inside())
        self.assertIsNotNone(self.window())

    def inside(self):
        """A place in the window where there is nothing to press."""
        x, y, width, _ = self.windows.place(self.window())
        return x + width // 2, y + 30

    def test_another_window_that_takes_the_keyboard_closes_it(self):
        self.guests.start("xmessage", "-title", "Report", "Report")
        report = self.windows.wait_for("Xmessage")
        self.open()
        self.windows.activate(report)
        self.assert_gone()

    def test_starting_tolvar_again_opens_it_and_leaves_it_open(self):
        self.program.tell()
        wait_until("the window is there", self.window)
        self.program.tell()
        self.assertIsNotNone(self.window())

    def test_a_session_is_started_paused_extended_and_stopped_with_the_keyboard_alone(self):
        self.program.tell()
        self.wait_for_keyboard()
        self.hands.press("r", "e", "a", "d", "Return")
        wait_until("it runs", lambda: self.program.status()["status"] == "focusing")
        self.assertEqual(self.program.status()["goal"], "read")
        self.hands.press("space")
        wait_until("it is paused", lambda: self.program.status()["status"] == "paused")
        self.hands.press("space")
        wait_until("it goes on", lambda: self.program.status()["status"] == "focusing")
        self.hands.press("Tab", "space")
        wait_until("it is longer", lambda: self.program.status()["duration"] == 1800)
        self.hands.press("Tab", "Return")
        wait_until("it is over", lambda: self.program.status()["status"] == "ready")

    def test_a_letter_is_composed_of_several_keys(self):
        subprocess.run(["setxkbmap", "us", "-option", "compose:menu"], check=True)
        self.hands = Hands()
        self.program.tell()
        self.wait_for_keyboard()
        self.hands.press("Multi_key", "apostrophe", "e", "Return")
        wait_until("it runs", lambda: self.program.status()["status"] == "focusing")
        self.assertEqual(self.program.status()["goal"], "é")
        self.program.tell("stop")

    def test_it_keeps_what_was_written_while_it_was_closed(self):
        self.open()
        self.hands.press("r", "e", "a", "d", "Escape")
        self.assert_gone()
        self.open()
        self.hands.press("Return")
        wait_until("it runs", lambda: self.program.status()["status"] == "focusing")
        self.assertEqual(self.program.status()["goal"], "read")


if __name__ == "__main__":
    unittest.main()
