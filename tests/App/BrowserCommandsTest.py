"""`tolvar browsers setup`, `remove` and `status` as a shell sees them, and what they leave in the
folders of a home."""

import json
import os
import socket
import struct
import unittest
from pathlib import Path

import stage

KNOWN = "chromium, chrome, brave, edge, vivaldi, opera, firefox"
CHROMIUM_MANIFEST = Path(".config/chromium/NativeMessagingHosts/app.tolvar.browser.json")
FIREFOX_MANIFEST = Path(".mozilla/native-messaging-hosts/app.tolvar.browser.json")


class BrowserCommands(stage.Stage):
    def setUp(self):
        super().setUp()
        self.programs = self.folder / "bin"
        self.programs.mkdir()
        self.environment["PATH"] = str(self.programs)

    def install(self, *programs):
        for program in programs:
            (self.programs / program).write_text("#!/bin/sh\n")
            (self.programs / program).chmod(0o755)

    def picture(self):
        """All that is in the home, with modes and contents."""
        return {str(path): (path.lstat().st_mode, path.read_bytes() if path.is_file() else None)
                for path in self.folder.rglob("*") if not path.is_socket()}

    def states(self):
        told = json.loads(self.assert_run("browsers", "status", "--json").stdout)
        return {browser["browser"]: browser["state"] for browser in told}

    def test_all_browsers_are_set_up_and_freed_without_a_trace(self):
        self.install("chromium", "brave-browser", "firefox-esr")
        before = self.picture()
        self.assertEqual(self.states(), {"chromium": "notSetUp", "brave": "notSetUp",
                                         "firefox": "notSetUp"})
        told = self.assert_run("browsers", "setup").stdout
        for name in ("Chromium", "Brave", "Firefox"):
            self.assertIn(f"{name} is set up; if it runs, quit it and start it again\n", told)
        self.assertEqual(self.states(), {"chromium": "setUp", "brave": "setUp",
                                         "firefox": "setUp"})
        told = self.assert_run("browsers", "remove").stdout
        for name in ("Chromium", "Brave", "Firefox"):
            self.assertIn(f"{name} is no longer set up; if it runs, quit it and start it again\n",
                          told)
        self.assertEqual(self.picture(), before)

    def test_a_browser_is_pointed_to_a_host_that_can_be_started(self):
        self.install("chromium", "firefox")
        self.assert_run("browsers", "setup")
        for manifest in (CHROMIUM_MANIFEST, FIREFOX_MANIFEST):
            host = Path(json.loads((self.folder / manifest).read_text())["path"])
            self.assertTrue(host.is_absolute() and os.access(host, os.X_OK), host)
            self.assertEqual(host.name, "tolvar-browser-host")
        [entry] = (self.folder / ".config/chromium/External Extensions").glob("*.json")
        package = Path(json.loads(entry.read_text())["external_crx"])
        self.assertEqual(package.read_bytes()[:4], b"Cr24")

    def test_one_browser_is_set_up_and_freed_alone(self):
        self.install("chromium", "firefox")
        self.assert_run("browsers", "setup", "Chromium",
                        out="Chromium is set up; if it runs, quit it and start it again\n")
        self.assertEqual(self.states(), {"chromium": "setUp", "firefox": "notSetUp"})
        self.assert_run("browsers", "remove", "firefox", out="Firefox was not set up\n")
        self.assert_run(
            "browsers", "remove", "chromium",
            out="Chromium is no longer set up; if it runs, quit it and start it again\n")
        self.assertEqual(self.states(), {"chromium": "notSetUp", "firefox": "notSetUp"})

    def test_a_manifest_of_another_tolvar_is_told_and_renewed(self):
        self.install("firefox")
        self.assert_run("browsers", "setup")
        manifest = self.folder / FIREFOX_MANIFEST
        right = manifest.read_text()
        manifest.write_text(right.replace("tolvar-browser-host", "moved"))
        self.assertEqual(self.states(), {"firefox": "outOfDate"})
        self.assertIn("firefox  Firefox  out of date\n", self.assert_run("browsers", "status").stdout)
        self.assert_run("browsers", "setup", "firefox")
        self.assertEqual(manifest.read_text(), right)

    def test_an_unknown_browser_is_wrong_usage(self):
        for command in ("setup", "remove"):
            self.assert_run("browsers", command, "lynx", status=2, out="",
                            error=f"tolvar: there is no browser “lynx”; Tolvar knows {KNOWN}\n")

    def test_a_browser_that_is_not_installed_cannot_be_set_up(self):
        self.assert_run("browsers", "setup", "opera", status=1, out="",
                        error="tolvar: Opera cannot be set up: it is not installed\n")
        self.assert_run("browsers", "setup", status=1, out="",
                        error="tolvar: there is no browser here that can be reached; Tolvar knows "
                              f"{KNOWN}\n")
        self.assert_run("browsers", "status", out="No browser that Tolvar knows is installed.\n")
        self.assert_run("browsers", "status", "--json", out="[]\n")
        self.assert_run("browsers", "remove", out="There is nothing to remove.\n")

    def test_a_browser_that_is_gone_is_left_out_and_can_be_freed(self):
        self.install("vivaldi", "firefox")
        before = self.picture()
        self.assert_run("browsers", "setup")
        (self.programs / "vivaldi").unlink()
        self.assertEqual(self.states(), {"vivaldi": "unreachable", "firefox": "setUp"})
        self.assert_run("browsers", "setup",
                        error="tolvar: Vivaldi cannot be reached: it is not installed\n")
        self.assert_run("browsers", "remove")
        self.install("vivaldi")
        self.assertEqual(self.picture(), before)

    def test_a_flatpak_is_told_and_does_not_keep_others_from_being_set_up(self):
        entries = self.folder / ".local/share/flatpak/exports/share/applications"
        entries.mkdir(parents=True)
        (entries / "org.mozilla.firefox.desktop").write_text("[Desktop Entry]\n")
        self.install("chromium")
        reason = "it is installed as a Flatpak, whose sandbox starts no program outside of it"
        self.assertIn(f"cannot be reached: {reason}\n", self.assert_run("browsers", "status").stdout)
        self.assert_run("browsers", "setup",
                        out="Chromium is set up; if it runs, quit it and start it again\n",
                        error=f"tolvar: Firefox cannot be reached: {reason}\n")
        self.assert_run("browsers", "setup", "firefox", status=1, out="",
                        error=f"tolvar: Firefox cannot be set up: {reason}\n")

    def test_the_others_are_set_up_when_one_fails(self):
        self.install("chromium", "firefox")
        (self.folder / ".config").mkdir()
        in_the_way = self.folder / ".config/chromium"
        in_the_way.write_text("no folder")
        result = self.assert_run("browsers", "setup", status=1, error=None)
        self.assertEqual(result.stderr, "tolvar: Chromium cannot be set up: the file "
                         f"“{self.folder / CHROMIUM_MANIFEST}” could not be written: "
                         "Not a directory\n")
        self.assertEqual(self.states(), {"chromium": "notSetUp", "firefox": "setUp"})

    def test_the_status_tells_who_is_connected(self):
        self.install("chromium", "firefox")
        self.assert_run("browsers", "setup")
        self.start_bus()
        self.launch_and_wait()
        self.assertEqual(self.states(), {"chromium": "setUp", "firefox": "setUp"})
        companion = socket.socket(socket.AF_UNIX)
        self.addCleanup(companion.close)
        companion.connect(str(self.runtime / "tolvar" / "browser.sock"))
        for frame in (b'{"browser":"chromium"}', b'{"shown":[]}'):
            companion.sendall(struct.pack("=I", len(frame)) + frame)
        stage.wait_until("Chromium is connected",
                         lambda: self.states()["chromium"] == "connected")
        self.assertIn("chromium  Chromium  connected\n",
                      self.assert_run("browsers", "status").stdout)
        self.assertEqual(self.states()["firefox"], "setUp")
        companion.close()
        stage.wait_until("Chromium is gone", lambda: self.states()["chromium"] == "setUp")


if __name__ == "__main__":
    unittest.main()
