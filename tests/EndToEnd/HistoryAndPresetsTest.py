"""Presets and history as somebody uses them: read and pressed through the accessibility bus, swiped
and pulled by the pointer, and held against what is stored."""

import os
import shutil
import unittest
from pathlib import Path

from screen_reader import ScreenReader, pyatspi
from support import Hands, Program, Windows, stored, wait_until


class PresetsAndHistory(unittest.TestCase):
    def setUp(self):
        self.reader = ScreenReader()
        self.hands = Hands()
        self.windows = Windows()
        shutil.rmtree(Path(os.environ["XDG_DATA_HOME"]) / "tolvar", ignore_errors=True)
        self.program = Program()
        self.addCleanup(self.program.end)
        self.program.start()

    def file_session(self, goal, *options):
        self.program.tell("start", goal, *options)
        self.program.tell("stop")

    def open_tab(self, name):
        self.program.tell()
        self.reader.press(name, "page tab")

    def rows(self):
        return self.reader.names("list item")

    def row(self, goal):
        """The one card of the goal, as soon as it is there."""
        found = []

        def is_there():
            found[:] = [thing for thing in self.reader.everything()
                        if thing.getRoleName() == "list item"
                        and thing.name.startswith(goal + ". ")]
            return bool(found)

        wait_until(f"the card “{goal}”", is_there)
        return found[0]

    def offers(self, goal):
        action = self.row(goal).queryAction()
        return [action.getName(index) for index in range(action.nActions)]

    def do(self, goal, name):
        action = self.row(goal).queryAction()
        names = [action.getName(index) for index in range(action.nActions)]
        action.doAction(names.index(name))

    def wait_for_rows(self, *goals):
        wait_until(f"the cards are {goals}", lambda: [
            name.split(". ")[0] for name in self.rows()] == list(goals))

    def assert_nothing_is_asked(self):
        wait_until("nothing is asked", lambda: not self.reader.names("dialog"))

    def drag(self, goal, across=0, down=0):
        place = self.row(goal).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.hands.drag((place.x + place.width // 2, place.y + 14), across, down)

    def test_history_tells_newest_first_what_was_done_and_what_was_blocked(self):
        self.file_session("Write report", "--for", "25m", "--app", "XTerm")
        self.file_session("Read", "--for", "2h", "--site", "news.org", "--site", "mail.org")
        self.open_tab("History")
        self.wait_for_rows("Read", "Write report")
        read, wrote = self.rows()
        self.assertIn("Ended early. 0m of 2h. Today, ", read)
        self.assertTrue(read.endswith("Blocks 2 sites"), read)
        self.assertIn("Ended early. 0 of 25 min. Today, ", wrote)
        self.assertTrue(wrote.endswith("Blocks XTerm"), wrote)

    def test_a_session_becomes_a_preset_once_and_the_preset_a_session(self):
        self.file_session("Write report", "--for", "45m", "--site", "news.org")
        self.open_tab("History")
        self.do("Write report", "Save")
        wait_until("it is saved", lambda: stored("savedPresets"))
        wait_until("it cannot be saved again",
                   lambda: "Save" not in self.offers("Write report"))

        self.open_tab("Presets")
        self.row("Write report")
        self.reader.press("Start")
        self.reader.find("dialog", "Write report")
        self.assertFalse(self.reader.has_state("push button", "Start focus",
                                               pyatspi.STATE_ENABLED))
        self.reader.write("What is your goal?", "  Chapter two ")
        self.reader.press("Start focus")
        self.reader.find("label", "Focusing")
        session = stored("currentSession")
        self.assertEqual((session["goal"], session["duration"], session["blockedWebsites"]),
                         ("Chapter two", 2700, ["news.org"]))
        self.assert_nothing_is_asked()

        self.program.tell("stop")
        self.do("Write report", "Delete")
        self.reader.find("label", "No presets yet")
        self.assertEqual(stored("savedPresets"), [])
        self.open_tab("History")
        self.wait_for_rows("Chapter two", "Write report")
        self.assertIn("Save", self.offers("Write report"))

    def test_a_session_is_started_again_with_a_goal_and_not_without(self):
        self.file_session("Write report", "--for", "45m")
        self.open_tab("History")
        self.do("Write report", "Start")
        self.reader.find("dialog", "Focus again")
        self.hands.press("space", "Return")
        self.assertIsNone(stored("currentSession"))
        self.hands.press("Escape")
        self.assert_nothing_is_asked()
        self.assertIsNone(stored("currentSession"))

        self.do("Write report", "Start")
        wait_until("the goal has the keyboard", lambda: self.reader.has_state(
            "text", "What is your goal?", pyatspi.STATE_FOCUSED))
        self.hands.press("o", "n", "Return")
        self.reader.find("label", "Focusing")
        session = stored("currentSession")
        self.assertEqual((session["goal"], session["duration"]), ("on", 2700))

    def test_a_question_goes_when_a_session_begins_elsewhere(self):
        self.file_session("Write report")
        self.open_tab("History")
        self.do("Write report", "Start")
        self.reader.find("dialog", "Focus again")
        self.program.tell("start", "Read")
        self.reader.find("label", "Focusing")
        self.assert_nothing_is_asked()

    def test_the_delete_key_asks_first(self):
        self.file_session("Write report")
        self.file_session("Read")
        self.open_tab("History")
        self.do("Read", "SetFocus")
        wait_until("the card has the keyboard", lambda: self.row("Read").getState().contains(
            pyatspi.STATE_FOCUSED))
        self.hands.press("Delete")
        question = self.reader.find("dialog", "Delete Session?")
        self.assertEqual(question.description,
                         "This will permanently delete “Read” from your history.")
        self.reader.press("Cancel")
        self.assert_nothing_is_asked()
        self.assertEqual(len(stored("sessionHistory")), 2)
        self.hands.press("Delete")
        self.reader.find("dialog", "Delete Session?")
        self.reader.press("Delete")
        self.wait_for_rows("Write report")
        self.assertEqual([session["goal"] for session in stored("sessionHistory")],
                         ["Write report"])

    def test_a_swipe_reveals_keys_and_one_of_them_deletes(self):
        self.file_session("Write report")
        self.file_session("Read")
        self.open_tab("History")
        self.drag("Read", across=-140)
        self.reader.find("push button", "Save")
        self.reader.press("Delete")
        self.wait_for_rows("Write report")
        self.assertEqual(len(stored("sessionHistory")), 1)

    def test_a_pull_asks_before_it_clears(self):
        self.file_session("Write report")
        self.file_session("Read")
        self.open_tab("History")
        self.drag("Read", down=160)
        question = self.reader.find("dialog", "Clear All History?")
        self.assertEqual(question.description,
                         "This will permanently delete all your session history.")
        self.reader.press("Cancel")
        self.assert_nothing_is_asked()
        self.wait_for_rows("Read", "Write report")
        self.drag("Read", down=160)
        self.reader.find("dialog", "Clear All History?")
        self.reader.press("Clear All")
        self.reader.find("label", "No sessions yet")
        self.assertEqual(stored("sessionHistory"), [])

    def test_the_history_can_be_cleared_without_a_gesture(self):
        self.file_session("Write report")
        self.open_tab("History")
        self.do("Write report", "ShowMenu")
        wait_until("the menu is there", self.windows.menu_is_open)
        # Menus stand outside of the tree that is read here; their last line is the list's own.
        self.hands.press("Up", "Return")
        self.reader.find("dialog", "Clear All History?")
        self.reader.press("Clear All")
        self.reader.find("label", "No sessions yet")
        self.assertEqual(stored("sessionHistory"), [])


if __name__ == "__main__":
    unittest.main()
