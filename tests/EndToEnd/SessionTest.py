"""One focus session from the command line to the history, on a real desktop."""

import time
import unittest

from support import WINDOW_MANAGER, Guests, Notifications, Program, Windows, wait_until

# The whole minute once; elsewhere as long as the steps need.
MINUTE = 60
LENGTH = MINUTE if WINDOW_MANAGER == "openbox" else 12
HIDING_SECONDS = 0.1


class Session(unittest.TestCase):
    def setUp(self):
        self.guests = Guests()
        self.addCleanup(self.guests.end)
        self.program = Program()
        self.addCleanup(self.program.end)
        self.windows = Windows()
        self.notifications = Notifications()

    def open_windows(self):
        """A terminal to block, and beside it a window that the user works in."""
        self.guests.start("xterm")
        self.terminal = self.windows.wait_for("XTerm")
        self.guests.start("xmessage", "-title", "Report", "Report")
        self.report = self.windows.wait_for("Xmessage")
        self.work_on_report()

    def work_on_report(self):
        self.windows.activate(self.report)
        wait_until("the report is active", lambda: self.windows.active() == self.report)

    def assert_gone_in_time(self, seconds=HIDING_SECONDS):
        took = wait_until("the terminal is gone", lambda: not self.terminal_in_view())
        self.assertLess(took, seconds)

    def terminal_in_view(self):
        return self.windows.is_in_view(self.terminal)

    def assert_back_without_focus(self):
        wait_until("the terminal is back", self.terminal_in_view)
        self.assertEqual(self.windows.active(), self.report)

    def assert_status(self, status, remaining):
        told = self.program.status()
        self.assertEqual(told["status"], status)
        self.assertEqual(told["goal"], "Write report")
        self.assertEqual(told["duration"], LENGTH)
        self.assertAlmostEqual(told["remaining"], remaining, delta=2)
        self.assertAlmostEqual(told["remaining"] + told["elapsed"], LENGTH, delta=0.01)
        self.assertEqual(told["blockedApps"], ["XTerm"])
        self.assertEqual(told["blockedWebsites"], [])
        self.assertRegex(told["clock"], r"^[01]:[0-5]\d$")
        return told

    def test_hides_an_application_until_the_time_is_up(self):
        self.open_windows()
        self.program.start()
        self.assertEqual(self.program.status(), {"status": "ready"})

        began = time.monotonic()
        self.program.tell("start", "Write report", "--for", f"{LENGTH}s", "--app", "XTerm")
        self.assert_gone_in_time()
        self.assertEqual(self.assert_status("focusing", LENGTH)["pausesLeft"], 2)

        self.windows.activate(self.terminal)
        self.assert_hidden_again_after_activation()

        self.work_on_report()
        self.program.tell("pause")
        paused = time.monotonic()
        self.assert_back_without_focus()
        told = self.assert_status("paused", LENGTH - (paused - began))
        self.assertEqual(told["pausesLeft"], 1)
        self.assertAlmostEqual(told["pauseRemaining"], 120, delta=2)

        self.program.tell("resume")
        resumed = time.monotonic()
        self.assert_gone_in_time()
        self.work_on_report()

        self.assert_ends_by_itself(began + LENGTH + (resumed - paused))

    def assert_hidden_again_after_activation(self):
        """The window may flash up for a moment; what counts is that it does not stay."""
        seen = 0
        deadline = time.monotonic() + 1
        while time.monotonic() < deadline:
            seen = seen + 1 if self.terminal_in_view() else 0
            time.sleep(0.005)
        self.assertEqual(seen, 0, "the terminal stayed in view")
        self.assertNotEqual(self.windows.active(), self.terminal)

    def assert_ends_by_itself(self, expected_end):
        wait_until("the session ends", lambda: self.program.status()["status"] == "ready",
                   expected_end - time.monotonic() + 5)
        self.assertAlmostEqual(time.monotonic(), expected_end, delta=1.5)
        self.assert_back_without_focus()
        wait_until("a notification is shown", lambda: self.notifications.shown() > 0)
        titles = [title for title, _ in self.notifications.close_and_list()]
        self.assertEqual(titles, ["Focus session complete"])
        [session] = self.program.history()
        self.assertEqual(session["goal"], "Write report")
        self.assertEqual(session["outcome"], "completed")
        self.assertEqual(session["duration"], LENGTH)
        self.assertAlmostEqual(session["focusedTime"], LENGTH, delta=0.01)
        self.assertEqual(session["blockedApps"], ["XTerm"])


if __name__ == "__main__":
    unittest.main()
