"""A session bus and XDG folders of its own for each test, and the program in them, without any
display."""

import contextlib
import json
import os
import select
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import dbus.bus

TOLVAR = os.environ["TOLVAR"]
PATIENCE_SECONDS = 20
NAME = "app.tolvar.Tolvar"

# A shell that started the tests in the background may ignore it, and so would what they start.
signal.signal(signal.SIGINT, signal.default_int_handler)

CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    {rule}
  </policy>
</busconfig>
"""


def wait_until(what, holds):
    deadline = time.monotonic() + PATIENCE_SECONDS
    while not holds():
        if time.monotonic() > deadline:
            raise AssertionError(f"{what}: not so after {PATIENCE_SECONDS} s")
        time.sleep(0.005)


class Stage(unittest.TestCase):
    """Gives each test an environment in which no Tolvar runs yet, and ends what it started."""

    def setUp(self):
        folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        self.runtime = folder / "run"
        self.runtime.mkdir(mode=0o700)
        self.environment = {
            "HOME": str(folder),
            "PATH": os.environ["PATH"],
            "LC_ALL": "C.UTF-8",
            "XDG_RUNTIME_DIR": str(self.runtime),
            "XDG_DATA_DIRS": str(folder / "data"),
        }
        # What the sanitizers are told counts for the programs started here too.
        for name, value in os.environ.items():
            if name.endswith("SAN_OPTIONS"):
                self.environment[name] = value
        self.bus = None
        self.folder = folder

    def start_bus(self, rule=""):
        configuration = self.folder / "bus.conf"
        configuration.write_text(CONFIGURATION.format(folder=self.folder, rule=rule))
        bus = subprocess.Popen(
            ["dbus-daemon", "--nofork", "--print-address", f"--config-file={configuration}"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.bus = bus
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.addCleanup(self.end_bus, bus, dict(self.environment))

    def end_bus(self, bus, environment):
        if bus.poll() is None:
            # Only what runs here at the end of a test is left to this.
            self.environment = environment
            self.run_tolvar("quit")
            bus.kill()
        bus.wait()
        bus.stdout.close()

    def run_tolvar(self, *arguments, **options):
        return subprocess.run([TOLVAR, *arguments], env=self.environment, text=True, check=False,
                              capture_output=True, timeout=PATIENCE_SECONDS, **options)

    def assert_run(self, *arguments, status=0, out=None, error=""):
        """Runs a command and checks all that it says; `error` may be left to the caller (None)."""
        result = self.run_tolvar(*arguments)
        self.assertEqual(result.returncode, status, (arguments, result.stderr))
        if error is not None:
            self.assertEqual(result.stderr, error)
        if out is not None:
            self.assertEqual(result.stdout, out)
        return result

    def status(self):
        return json.loads(self.assert_run("status", "--json").stdout)

    def launch(self, **options):
        """The running program itself, as a child of this one."""
        process = subprocess.Popen([TOLVAR], env=self.environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE, text=True, **options)
        self.addCleanup(self.end, process)
        return process

    def launch_and_wait(self):
        process = self.launch()
        wait_until("Tolvar answers", lambda: self.run_tolvar("status").returncode == 0)
        return process

    def end(self, process):
        if process.poll() is None:
            process.terminate()
            process.wait(timeout=PATIENCE_SECONDS)
        for pipe in (process.stdout, process.stderr):
            if pipe:
                pipe.close()

    def edit_preferences(self, key, edit):
        """Replaces what is stored under the key by what `edit` makes of it; Tolvar must not run."""
        path = self.folder / ".local" / "share" / "tolvar" / "preferences.sqlite3"
        with contextlib.closing(sqlite3.connect(path)) as database, database:
            [[document]] = database.execute("SELECT value FROM preferences WHERE key = ?", [key])
            edited = json.dumps(edit(json.loads(document))).encode()
            database.execute("UPDATE preferences SET value = ? WHERE key = ?", [edited, key])

    def process_id(self):
        """Of the program that owns the name."""
        caller = dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        try:
            return int(caller.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus")
                       .GetConnectionUnixProcessID(NAME, dbus_interface="org.freedesktop.DBus"))
        finally:
            caller.close()


class Follower:
    """`tolvar status --follow`, line by line."""

    def __init__(self, stage, *options):
        self.process = subprocess.Popen([TOLVAR, "status", "--follow", *options],
                                        env=stage.environment, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE)
        self._unread = b""
        stage.addCleanup(self.end)

    def line(self):
        """The next line; fails when none comes."""
        deadline = time.monotonic() + PATIENCE_SECONDS
        while b"\n" not in self._unread:
            left = deadline - time.monotonic()
            ready, _, _ = select.select([self.process.stdout], [], [], max(left, 0))
            chunk = os.read(self.process.stdout.fileno(), 65536) if ready else b""
            if not chunk:
                raise AssertionError(f"no further line; read {self._unread!r}")
            self._unread += chunk
        line, self._unread = self._unread.split(b"\n", 1)
        return line.decode()

    def line_with(self, text):
        """The first of the next lines that holds the text."""
        while text not in (line := self.line()):
            pass
        return line

    def close(self):
        self.process.stdout.close()

    def ending(self):
        """Its exit status and what it complained of."""
        status = self.process.wait(timeout=PATIENCE_SECONDS)
        return status, self.process.stderr.read().decode()

    def end(self):
        with contextlib.suppress(ProcessLookupError):
            self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        self.process.stderr.close()
