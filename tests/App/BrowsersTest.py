"""The browsers that the running program is told of at its socket."""

import json
import os
import signal
import socket
import stat
import struct
import unittest

import stage


class Companion:
    """A browser's host, played by the test."""

    def __init__(self, path, browser):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(stage.PATIENCE_SECONDS)
        self.socket.connect(str(path))
        self.say({"browser": browser})

    def say(self, message):
        text = json.dumps(message).encode()
        self.socket.sendall(struct.pack("=I", len(text)) + text)

    def heard(self):
        [length] = struct.unpack("=I", self.socket.recv(4, socket.MSG_WAITALL))
        return json.loads(self.socket.recv(length, socket.MSG_WAITALL))


class Browsers(stage.Stage):
    def setUp(self):
        super().setUp()
        self.start_bus()
        self.path = self.runtime / "tolvar" / "browser.sock"

    def companion(self, browser):
        companion = Companion(self.path, browser)
        self.addCleanup(companion.socket.close)
        self.assertEqual(companion.heard(), {"command": "list"})
        return companion

    def test_they_are_listed_while_they_are_connected(self):
        self.launch_and_wait()
        self.assert_run("browsers", out="No browser can be reached.\n")
        companions = [self.companion(name) for name in ("chromium", "firefox-esr", "chromium")]
        self.assert_run("browsers", out="chromium\nfirefox-esr\nchromium 2\n")
        companions[0].socket.close()
        stage.wait_until("it is gone", lambda: self.run_tolvar("browsers").stdout ==
                         "firefox-esr\nchromium 2\n")

    def test_a_session_sends_blocked_pages_away(self):
        self.launch_and_wait()
        browser = self.companion("chromium")
        self.assert_run("start", "Read", "--site", "example.com")
        browser.say({"shown": [{"window": 1, "tab": 2, "url": "https://notexample.com/"},
                               {"window": 3, "tab": 4, "url": "https://www.example.com/page"}]})
        self.assertEqual(browser.heard(), {"command": "blank", "tabs": [4]})

    def test_nobody_else_can_reach_the_socket_and_it_goes_with_the_program(self):
        program = self.launch_and_wait()
        self.assertEqual(stat.S_IMODE(self.path.parent.stat().st_mode), 0o700)
        self.assertEqual(stat.S_IMODE(self.path.stat().st_mode), 0o600)
        program.terminate()
        self.assertEqual(program.wait(timeout=stage.PATIENCE_SECONDS), 0)
        self.assertEqual(os.listdir(self.path.parent), [])

    def test_a_killed_program_is_followed_by_the_next(self):
        program = self.launch_and_wait()
        program.send_signal(signal.SIGKILL)
        program.wait(timeout=stage.PATIENCE_SECONDS)
        self.assertTrue(self.path.is_socket())
        self.launch_and_wait()
        self.companion("firefox-esr")
        self.assert_run("browsers", out="firefox-esr\n")

    def test_without_a_runtime_folder_they_meet_in_the_data_folder(self):
        # The bus is not looked for in the runtime folder here.
        del self.environment["XDG_RUNTIME_DIR"]
        self.path = self.folder / ".local" / "share" / "tolvar" / "browser" / "browser.sock"
        self.launch_and_wait()
        self.companion("firefox-esr")
        self.assert_run("browsers", out="firefox-esr\n")

    def test_they_meet_in_the_data_folder_where_the_runtime_folder_is_absent(self):
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder / "absent")
        self.path = self.folder / ".local" / "share" / "tolvar" / "browser" / "browser.sock"
        self.launch_and_wait()
        self.companion("firefox-esr")
        self.assert_run("browsers", out="firefox-esr\n")

    def test_where_they_cannot_be_awaited_the_rest_works(self):
        elsewhere = self.folder / "elsewhere"
        elsewhere.mkdir()
        self.path.parent.symlink_to(elsewhere)
        self.launch_and_wait()
        self.assert_run("browsers", out="No browser can be reached.\n")
        self.assert_run("start", "Read", "--site", "example.com")
        self.assertEqual(self.status()["goal"], "Read")
        self.assertEqual(os.listdir(elsewhere), [])


if __name__ == "__main__":
    unittest.main()
