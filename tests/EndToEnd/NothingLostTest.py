"""Whatever moment Tolvar is killed at, no session is lost or doubled and no window stays hidden.

TOLVAR_KILLS and TOLVAR_SEED in the environment choose how often and repeat a run."""

import os
import random
import threading
import unittest
from dataclasses import dataclass, replace

import dbus

from support import Guests, Program, Windows, wait_until

KILLS = int(os.environ.get("TOLVAR_KILLS", "200"))
SEED = int(os.environ.get("TOLVAR_SEED", random.randrange(1 << 32)))
LONGEST_LIFE_SECONDS = 0.15
LONGEST_BIRTH_SECONDS = 0.06
LENGTH = 3600
EXTENSION = 300
PAUSES = 2


@dataclass(frozen=True)
class Session:
    goal: str
    duration: float = LENGTH
    paused: bool = False
    pauses_left: int = PAUSES


@dataclass(frozen=True)
class Books:
    """Where every session is: the running one, and the goals of the history, newest first."""

    current: Session | None = None
    history: tuple[str, ...] = ()

    def after(self, operation, goal):
        """The books once the operation is done; nothing when it does not apply."""
        current = self.current
        if operation == "Start":
            return None if current else replace(self, current=Session(goal))
        if current is None:
            return None
        if operation == "Stop":
            return Books(None, (current.goal, *self.history))
        if operation == "Extend":
            return replace(self, current=replace(current, duration=current.duration + EXTENSION))
        if operation == "Pause" and not current.paused and current.pauses_left:
            return replace(self, current=replace(
                current, paused=True, pauses_left=current.pauses_left - 1))
        if operation == "Resume" and current.paused:
            return replace(self, current=replace(current, paused=False))
        return None


class RemoteControl:
    """Asks without the command line, which would start a Tolvar that is gone."""

    def __init__(self):
        self._bus = dbus.SessionBus()

    def perform(self, operation, goal):
        """True when done, False when refused, nothing when the answer never came."""
        arguments = {"Start": (goal, float(LENGTH), *as_lists([], ["XTerm"], [])),
                     "Extend": (float(EXTENSION),)}.get(operation, ())
        try:
            program = self._bus.get_object("app.tolvar.Tolvar", "/app/tolvar/Tolvar",
                                           introspect=False)
            program.get_dbus_method(operation, "app.tolvar.Tolvar1")(*arguments)
            return True
        except dbus.DBusException as error:
            return False if error.get_dbus_name().startswith("app.tolvar.") else None


def as_lists(*lists):
    return [dbus.Array(items, signature="s") for items in lists]


class NothingLost(unittest.TestCase):
    def setUp(self):
        print(f"TOLVAR_SEED={SEED} TOLVAR_KILLS={KILLS}", flush=True)
        self.random = random.Random(SEED)
        self.guests = Guests()
        self.addCleanup(self.guests.end)
        self.windows = Windows()
        self.program = Program()
        self.addCleanup(self.program.end)
        self.remote = RemoteControl()
        self.books = Books()
        self.interrupted = 0

    def test_every_session_is_in_exactly_one_place_after_every_kill(self):
        self.guests.start("xterm")
        self.terminal = self.windows.wait_for("XTerm")
        for number in range(KILLS):
            if self.random.random() < 0.25:
                self.kill_while_starting()
            self.program.start()
            self.assert_window_agrees(number)
            possible = self.use_until_killed(number)
            self.program.start()
            self.assert_books_are_among(possible, number)
            self.assert_window_agrees(number)
            self.program.kill()
        print(f"{self.interrupted} operations were interrupted, "
              f"{len(self.books.history)} sessions filed", flush=True)

    def kill_while_starting(self):
        self.program.launch()
        self.kill_after(LONGEST_BIRTH_SECONDS).join()

    def kill_after(self, longest):
        killer = threading.Timer(self.random.uniform(0, longest), self.program.kill)
        killer.start()
        return killer

    def use_until_killed(self, number):
        """Performs operations until the program dies in the midst of them; returns the books that
        there may be now."""
        killer = self.kill_after(LONGEST_LIFE_SECONDS)
        step = 0
        while True:
            operation = self.random.choice(["Start", "Start", "Stop", "Pause", "Resume", "Extend"])
            goal = f"session {number}.{step}"
            step += 1
            expected = self.books.after(operation, goal)
            done = self.remote.perform(operation, goal)
            if done is None:
                killer.join()
                self.interrupted += expected is not None
                return [self.books, expected or self.books]
            self.assertEqual(done, expected is not None, f"{operation} with {self.books}")
            self.books = expected or self.books

    def observed(self):
        status = self.program.status()
        history = tuple(session["goal"] for session in self.program.history())
        if status["status"] == "ready":
            return Books(None, history)
        return Books(Session(status["goal"], status["duration"], status["status"] == "paused",
                             status["pausesLeft"]), history)

    def assert_books_are_among(self, possible, number):
        self.books = self.observed()
        self.assertIn(self.books, possible, f"after kill {number}")

    def assert_window_agrees(self, number):
        focusing = bool(self.books.current and not self.books.current.paused)
        wait_until(f"after kill {number} the terminal is {'hidden' if focusing else 'shown'}",
                   lambda: self.windows.is_in_view(self.terminal) != focusing, 5)


if __name__ == "__main__":
    unittest.main()
