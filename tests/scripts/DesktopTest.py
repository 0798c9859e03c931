"""What scripts/desktop promises: a desktop that is really there, and nothing left of it after."""

import os
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

DESKTOP = str(Path(__file__).resolve().parents[2] / "scripts" / "desktop")


def wait_until(holds, seconds=30):
    deadline = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.02)
    return True


def is_alive(pid):
    try:
        return Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False


def run(*arguments, **options):
    return subprocess.run([DESKTOP, *arguments], text=True, capture_output=True, timeout=120,
                          check=False, **options)


# Prints the folder of the desktop, leaves a stray process behind and waits to be ended.
LINGERING = """
trap '' HUP
(setsid sleep 600 & echo $! > "$1/stray")
xterm & echo $! > "$1/xterm"
echo "$XDG_RUNTIME_DIR" > "$1/new"; mv "$1/new" "$1/ready"
exec sleep 600
"""


class ThrowawayDesktop(unittest.TestCase):
    def test_has_display_bus_folders_and_a_window_manager_of_its_own(self):
        result = run("with", "--", "sh", "-c", """
            test -d "$XDG_DATA_HOME" && test -d "$XDG_CONFIG_HOME" && test -d "$XDG_CACHE_HOME" &&
            test -d "$XDG_STATE_HOME" && stat -c %a "$XDG_RUNTIME_DIR" &&
            xprop -root _NET_SUPPORTING_WM_CHECK && echo "$TOLVAR_DESKTOP_WM" &&
            dbus-send --print-reply=literal --dest=org.freedesktop.DBus / \
                org.freedesktop.DBus.NameHasOwner string:org.freedesktop.Notifications""")
        self.assertEqual(result.returncode, 0, result.stderr)
        mode, manager, name, notifications = result.stdout.splitlines()
        self.assertEqual(mode, "700")
        self.assertIn("window id", manager)
        self.assertEqual(name, "openbox")
        self.assertEqual(notifications.strip(), "boolean true")

    def test_knows_every_window_manager_of_its_list(self):
        for name in ("openbox", "xfwm4", "metacity", "kwin_x11", "i3"):
            with self.subTest(name):
                result = run("with", "--wm", name, "xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
                self.assertIn("window id", result.stdout, result.stderr)

    def test_passes_on_the_status_of_the_command(self):
        self.assertEqual(run("with", "--wm", "none", "sh", "-c", "exit 7").returncode, 7)
        self.assertEqual(run("with", "--wm", "none", "sh", "-c", "kill -9 $$").returncode, 137)

    def test_says_what_cannot_be_run(self):
        result = run("with", "--wm", "none", "/nowhere/to/be/found")
        self.assertEqual(result.returncode, 125)
        self.assertIn("/nowhere/to/be/found: No such file", result.stderr)

    def test_starts_several_at_once_on_displays_of_their_own(self):
        running = [
            subprocess.Popen([DESKTOP, "with", "sh", "-c", "echo $DISPLAY; cat"], text=True,
                             stdin=subprocess.PIPE, stdout=subprocess.PIPE)
            for _ in range(3)]
        displays = {desktop.stdout.readline() for desktop in running}
        for desktop in running:
            desktop.communicate()
        self.assertEqual(len(displays), 3)

    def test_leaves_nothing_behind_however_it_is_ended(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGKILL):
            with self.subTest(number.name), tempfile.TemporaryDirectory() as notes:
                self.assert_nothing_is_left_after(number, Path(notes))

    def assert_nothing_is_left_after(self, number, notes):
        desktop = subprocess.Popen(
            [DESKTOP, "with", "sh", "-c", LINGERING, "sh", str(notes)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.assertTrue(wait_until((notes / "ready").exists))
        root = Path((notes / "ready").read_text().strip()).parent
        pids = processes_below(desktop.pid)
        pids |= {int((notes / name).read_text()) for name in ("stray", "xterm")}
        self.assertGreater(len(pids), 6)
        desktop.send_signal(number)
        self.assertEqual(desktop.wait(timeout=60),
                         -number if number == signal.SIGKILL else 128 + number)
        self.assertTrue(wait_until(lambda: not root.exists()), "its folder is left")
        left = [pid for pid in pids if not wait_until(lambda: not is_alive(pid), 10)]
        self.assertEqual(left, [])


def processes_below(pid):
    found = set()
    waiting = [pid]
    while waiting:
        current = waiting.pop()
        children = Path(f"/proc/{current}/task/{current}/children").read_text().split()
        waiting += map(int, children)
        found |= set(map(int, children))
    return found


class KeptDesktop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.environment = os.environ | {"TOLVAR_DESKTOP_STATE": str(self.folder / "state")}
        self.addCleanup(self.desktop, "stop")

    def desktop(self, *arguments):
        return run(*arguments, env=self.environment)

    def test_is_talked_to_by_the_line_it_prints(self):
        line = self.desktop("start").stdout
        shown = subprocess.run(["sh", "-c", f"{line}\nxprop -root _NET_SUPPORTING_WM_CHECK"],
                               text=True, capture_output=True, check=False)
        self.assertIn("window id", shown.stdout, shown.stderr)
        self.assertEqual(self.desktop("env").stdout, line)

    def test_is_started_once(self):
        first = self.desktop("start")
        self.assertEqual(self.desktop("start").stdout, first.stdout)
        other = self.desktop("start", "--wm", "i3")
        self.assertEqual(other.returncode, 125)
        self.assertIn("runs already, with openbox", other.stderr)

    def test_runs_commands_and_passes_on_their_status(self):
        self.desktop("start", "--wm", "none")
        self.assertEqual(self.desktop("run", "sh", "-c", "exit 5").returncode, 5)

    def test_ends_with_what_was_left_running_in_it(self):
        self.desktop("start", "--wm", "none")
        note = self.folder / "pid"
        self.desktop("run", "--background", "sh", "-c", f"echo $$ > {note}; exec sleep 600")
        self.assertTrue(wait_until(lambda: note.exists() and note.read_text().strip()))
        pid = int(note.read_text())
        self.assertTrue(is_alive(pid))
        self.desktop("stop")
        self.assertFalse(is_alive(pid))
        self.assertEqual(self.desktop("status").stdout, "not running\n")

    def test_takes_a_picture(self):
        self.desktop("start", "--wm", "none")
        picture = self.folder / "picture.png"
        self.assertEqual(self.desktop("screenshot", str(picture)).returncode, 0)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def test_says_that_it_does_not_run(self):
        self.assertEqual(self.desktop("status").returncode, 1)
        missing = self.desktop("run", "true")
        self.assertEqual(missing.returncode, 125)
        self.assertIn("not running", missing.stderr)


if __name__ == "__main__":
    unittest.main()
