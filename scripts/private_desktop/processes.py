"""Processes that are surely ended again."""

import contextlib
import ctypes
import os
import signal
import subprocess
import sys
import time
import traceback
from pathlib import Path

GRACE_SECONDS = 5
FAILED = 125
ENDING_SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGQUIT)
PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36


class Interrupted(Exception):
    """An ending signal came."""

    def __init__(self, number: int):
        super().__init__(signal.Signals(number).name)
        self.status = 128 + number


def prctl(option: int, value: int) -> None:
    ctypes.CDLL(None).prctl(option, value, 0, 0, 0)


def ignore_ending_signals() -> None:
    for number in ENDING_SIGNALS:
        signal.signal(number, signal.SIG_IGN)


def raise_on_ending_signals() -> None:
    def interrupt(number, _frame):
        ignore_ending_signals()
        raise Interrupted(number)

    for number in ENDING_SIGNALS:
        signal.signal(number, interrupt)


def fork_off(work) -> int:
    """Runs `work()`, which returns an exit status, in a second process; returns its id."""
    if pid := os.fork():
        return pid
    status = FAILED
    try:
        status = work()
    except BaseException:
        traceback.print_exc()
    finally:
        sys.stdout.flush()
        sys.stderr.flush()
        os._exit(status)


def exit_code(status: int) -> int:
    """The status that waitpid() gives, as a shell would tell it."""
    code = os.waitstatus_to_exitcode(status)
    return code if code >= 0 else 128 - code


class Family:
    """Programs that live no longer than this process, with all that they start themselves."""

    def __init__(self):
        self._statuses: dict[int, int] = {}
        # Whoever loses its parent becomes a child of this process, so that none can get away.
        prctl(PR_SET_CHILD_SUBREAPER, 1)

    def spawn(self, command: list[str], environment: dict[str, str], **options) -> int:
        """Starts a program; returns its id."""
        process = subprocess.Popen(
            command, env=environment,
            preexec_fn=lambda: prctl(PR_SET_PDEATHSIG, signal.SIGKILL), **options)
        # The statuses of all children are collected in one place: here.
        process.returncode = 0
        self._statuses.pop(process.pid, None)
        return process.pid

    def wait_for(self, pid: int) -> int:
        """The exit status of a spawned program."""
        while pid not in self._statuses:
            ended, status = os.waitpid(-1, 0)
            self._statuses[ended] = status
        return exit_code(self._statuses[pid])

    def collect_ended(self) -> bool:
        """Takes note of the children that ended; true while others live."""
        with contextlib.suppress(ChildProcessError):
            while True:
                ended, status = os.waitpid(-1, os.WNOHANG)
                if not ended:
                    return True
                self._statuses[ended] = status
        return False

    def has_ended(self, pid: int) -> bool:
        self.collect_ended()
        return pid in self._statuses

    def end(self, last: set[int]) -> None:
        """Ends everybody: politely all but `last`, then these, then for good."""
        asked: set[int] = set()

        def others_live() -> bool:
            others = self._children() - last
            self._signal(others - asked, signal.SIGTERM)
            asked.update(others)
            return bool(others)

        self._give_time(others_live)
        self._signal(last, signal.SIGTERM)
        self._give_time(lambda: last & self._children())
        while self.collect_ended():
            self._signal(self._children(), signal.SIGKILL)
            time.sleep(0.005)

    def _children(self) -> set[int]:
        me = os.getpid()
        return {int(pid) for pid in Path(f"/proc/{me}/task/{me}/children").read_text().split()}

    def _signal(self, pids: set[int], number: int) -> None:
        # A child that ended keeps its id until it is collected: these are surely ours.
        for pid in self._children() & pids:
            os.kill(pid, number)

    def _give_time(self, still_needed) -> None:
        deadline = time.monotonic() + GRACE_SECONDS
        while self.collect_ended() and still_needed() and time.monotonic() < deadline:
            time.sleep(0.01)
