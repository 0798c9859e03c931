"""The whole window as somebody uses it who does not see it: found, read and pressed through the
accessibility bus, and held against preferences, windows and notifications."""

import unittest

from screen_reader import ScreenReader, pyatspi
from support import Guests, Notifications, Program, Windows, stored, wait_until

CATEGORIES = ["Social Media", "Shopping", "News", "Entertainment", "Gaming", "Messaging"]
LENGTHS = ["5m", "15m", "25m", "45m", "1h", "2h"]


class WithAScreenReader(unittest.TestCase):
    def setUp(self):
        self.reader = ScreenReader()
        self.guests = Guests()
        self.addCleanup(self.guests.end)
        self.program = Program()
        self.addCleanup(self.program.end)
        self.windows = Windows()
        self.program.start()
        self.open_window()

    def open_window(self):
        """As the desktop's menu does it: by starting the program once more."""
        self.program.tell()

    def plan(self, goal):
        self.reader.write("What is your goal?", goal)

    def assert_told(self, name, role="label"):
        self.reader.find(role, name)

    def test_everything_on_the_start_screen_has_a_name(self):
        self.assert_told("Tolvar", "image")
        self.assert_told("Ready")
        self.reader.find("push button", "Start focus session")
        self.assertEqual(self.reader.names("page tab"), ["Start", "Presets", "History"])
        self.assertEqual(self.reader.names("push button"),
                         [*LENGTHS, *CATEGORIES, "Block specific apps", "Start focus session"])
        self.assertTrue(self.reader.has_state("push button", "25m", pyatspi.STATE_CHECKED))
        self.assertEqual(self.reader.find("push button", "Block specific apps").description,
                         "Opens the app picker")

    def test_a_session_is_planned_started_paused_extended_and_stopped(self):
        self.plan("  Write report ")
        self.reader.press("45m")
        self.reader.press("Gaming")
        wait_until("Gaming is chosen", lambda: self.reader.has_state(
            "push button", "Gaming", pyatspi.STATE_CHECKED))
        self.reader.press("Start focus session")

        self.assert_told("Focusing")
        self.assert_told("Write report")
        session = stored("currentSession")
        self.assertEqual((session["goal"], session["duration"]), ("Write report", 2700))
        self.assertEqual([category["id"] for category in session["blockCategories"]], ["Gaming"])
        self.assertTrue(session["isActive"])

        self.reader.press("Pause, 2 left")
        self.assert_told("Paused")
        self.assertTrue(stored("currentSession")["isPaused"])
        self.reader.press("Resume")
        self.reader.find("push button", "Pause, 1 left")
        self.assertFalse(stored("currentSession")["isPaused"])

        self.reader.press("Add 5 minutes")
        wait_until("it is longer", lambda: stored("currentSession")["duration"] == 3000)

        self.reader.press("Stop")
        self.assert_told("Ready")
        self.assertIsNone(stored("currentSession"))
        ended = stored("sessionHistory")[-1]
        self.assertEqual((ended["goal"], ended["outcome"]), ("Write report", "endedEarly"))

    def test_without_a_goal_nothing_starts_and_the_goal_is_asked_for(self):
        self.plan("   ")
        self.reader.press("Start focus session")
        wait_until("the goal has the keyboard", lambda: self.reader.has_state(
            "text", "What is your goal?", pyatspi.STATE_FOCUSED))
        self.assertIsNone(stored("currentSession"))
        self.assert_told("Ready")

    def test_a_picked_application_vanishes_and_an_alert_says_so(self):
        self.guests.start("xterm")
        terminal = self.windows.wait_for("XTerm")
        self.open_window()
        self.reader.press("Block specific apps")
        self.reader.write("Search apps", "XTerm")
        self.reader.press("XTerm", "list item")
        self.assert_told("1 app selected")
        self.reader.press("Done")
        self.reader.find("push button", "Blocking XTerm")
        self.plan("Write report")
        self.reader.press("Start focus session")
        wait_until("the terminal is gone", lambda: not self.windows.is_in_view(terminal))

        self.windows.activate(terminal)
        self.reader.press("Back to work!")
        wait_until("the alert is gone",
                   lambda: "Back to work!" not in self.reader.names("push button"))
        self.assertFalse(self.windows.is_in_view(terminal))

        self.program.tell("stop")
        wait_until("the terminal is back", lambda: self.windows.is_in_view(terminal))

    def test_a_session_that_runs_its_length_ends_on_the_start_screen_with_a_notification(self):
        notifications = Notifications()
        self.program.tell("start", "Write report", "--for", "2s")
        self.assert_told("Focusing")
        self.assert_told("Ready")
        wait_until("the notification is there", lambda: notifications.shown() == 1)
        titles = [title for title, _ in notifications.close_and_list()]
        self.assertEqual(titles[0], "Focus session complete")
        self.assertEqual(stored("sessionHistory")[-1]["outcome"], "completed")


if __name__ == "__main__":
    unittest.main()
