"""The life of the running program: one at a time, started when needed, ended cleanly."""

import contextlib
import json
import os
import signal
import subprocess
import unittest

import stage

CANNOT_HIDE = "tolvar: applications cannot be hidden on this desktop; an X11 session is needed\n"


class WithABus(stage.Stage):
    def setUp(self):
        super().setUp()
        self.start_bus()

    def test_start_starts_tolvar_in_the_background(self):
        self.assert_run("start", "Read")
        self.assertEqual(self.status()["goal"], "Read")
        process = self.process_id()
        self.assertNotEqual(os.getsid(process), os.getsid(0), "the terminal would take it along")
        self.assertEqual(os.readlink(f"/proc/{process}/cwd"), "/")
        for descriptor in range(3):
            self.assertEqual(os.readlink(f"/proc/{process}/fd/{descriptor}"), "/dev/null")

    def test_start_is_answered_every_time_it_starts_tolvar(self):
        for goal in map(str, range(10)):
            self.assert_run("start", goal)
            self.assert_run("stop")
            self.assert_run("quit")
        self.assert_run("start", "Last")
        told = json.loads(self.assert_run("history", "--json").stdout)
        self.assertEqual([session["goal"] for session in told], list("9876543210"))

    def test_starts_at_the_same_moment_make_one_tolvar_and_one_session(self):
        starts = [subprocess.Popen([stage.TOLVAR, "start", f"Goal {number}"], env=self.environment,
                                   stderr=subprocess.DEVNULL) for number in range(4)]
        statuses = sorted(start.wait(timeout=stage.PATIENCE_SECONDS) for start in starts)
        self.assertEqual(statuses, [0, 1, 1, 1])

    def test_a_second_one_hands_over_to_the_first(self):
        first = self.launch_and_wait()
        second = self.launch()
        self.assertEqual(second.wait(timeout=stage.PATIENCE_SECONDS), 0)
        self.assertIsNone(first.poll())
        self.assertEqual(self.process_id(), first.pid)

    def test_it_says_at_once_what_this_desktop_cannot_do(self):
        self.assertEqual(self.launch().stderr.readline(), CANNOT_HIDE)

    def test_every_signal_that_asks_it_to_end_ends_it_cleanly(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            program = self.launch_and_wait()
            program.send_signal(number)
            self.assertEqual(program.wait(timeout=stage.PATIENCE_SECONDS), 0, number)
            self.assertEqual(self.run_tolvar("status").returncode, 3)

    def test_signals_that_its_parent_ignores_do_not_end_it(self):
        program = self.launch(preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        stage.wait_until("Tolvar answers", lambda: self.run_tolvar("status").returncode == 0)
        program.send_signal(signal.SIGHUP)
        with self.assertRaises(subprocess.TimeoutExpired):
            program.wait(timeout=0.3)
        program.terminate()
        self.assertEqual(program.wait(timeout=stage.PATIENCE_SECONDS), 0)

    def test_it_runs_without_standard_streams(self):
        program = subprocess.Popen(["sh", "-c", f"exec '{stage.TOLVAR}' <&- >&- 2>&-"],
                                   env=self.environment)
        self.addCleanup(self.end, program)
        stage.wait_until("Tolvar answers", lambda: self.run_tolvar("status").returncode == 0)
        for descriptor in range(3):
            self.assertEqual(os.readlink(f"/proc/{program.pid}/fd/{descriptor}"), "/dev/null")

    def test_a_stored_session_that_is_not_active_is_none(self):
        self.launch_and_wait()
        self.assert_run("start", "Old")
        self.assert_run("quit")
        self.edit_preferences("currentSession", lambda session: {**session, "isActive": False})
        self.launch_and_wait()
        self.assertEqual(self.status(), {"status": "ready"})
        for command in ("pause", "resume", "extend", "stop"):
            self.assert_run(command, status=1, error="tolvar: no session is running\n")
        self.assert_run("start", "New")
        self.assertEqual(self.status()["goal"], "New")
        self.assert_run("history", out="No session has ended yet.\n")

    def test_a_stored_session_of_no_sensible_length_does_not_end_it(self):
        program = self.launch_and_wait()
        for length in (1e300, -1e300):
            self.assert_run("start", "Endless")
            self.assert_run("quit")
            self.edit_preferences("currentSession",
                                  lambda session, to=length: {**session, "duration": to})
            program = self.launch_and_wait()
            self.run_tolvar("stop")
            self.assertIn("—", self.assert_run("history").stdout)
        self.assertIsNone(program.poll())

    def test_the_end_of_a_session_of_no_sensible_length_does_not_end_it(self):
        self.launch_and_wait()
        self.assert_run("start", "Past")
        self.assert_run("quit")
        self.edit_preferences("currentSession", lambda session: {**session, "duration": -1e300})
        program = self.launch_and_wait()
        stage.wait_until("the session is over", lambda: self.status() == {"status": "ready"})
        self.assertIn("completed", self.assert_run("history").stdout)
        self.assertIsNone(program.poll())

    def test_quit_returns_when_it_is_gone(self):
        for _ in range(5):
            program = self.launch_and_wait()
            self.assert_run("quit", out="")
            self.assertEqual(self.run_tolvar("status").returncode, 3)
            self.assertEqual(program.wait(timeout=stage.PATIENCE_SECONDS), 0)

    def test_a_session_goes_on_over_a_restart(self):
        self.assert_run("start", "Read", "--site", "example.com")
        before = self.status()
        self.assert_run("quit")
        self.launch_and_wait()
        after = self.status()
        self.assertEqual(after["goal"], "Read")
        self.assertEqual(after["blockedWebsites"], ["example.com"])
        self.assertGreaterEqual(after["elapsed"], before["elapsed"])

    def test_it_outlives_the_bus(self):
        program = self.launch_and_wait()
        self.assert_run("start", "Read", "--for", "1s")
        self.bus.kill()
        self.bus.wait()
        with contextlib.suppress(subprocess.TimeoutExpired):
            program.wait(timeout=1.5)
            self.fail(f"it ended with {program.returncode}: {program.stderr.read()}")
        program.terminate()
        self.assertEqual(program.wait(timeout=stage.PATIENCE_SECONDS), 0)

    def test_it_runs_where_no_data_can_be_kept(self):
        (self.folder / ".local").write_text("in the way")
        self.launch_and_wait()
        self.assert_run("start", "Read")


class InAnotherSession(stage.Stage):
    ELSEWHERE = "tolvar: Tolvar runs already in another session\n"

    def assert_one_at_a_time(self, first, second):
        self.environment = first
        program = self.launch()
        self.assertEqual(program.stderr.readline(), CANNOT_HIDE)
        self.environment = second
        self.assert_run(status=3, out="", error=self.ELSEWHERE)
        self.assert_run("start", "Read", status=3, error="tolvar: Tolvar could not be started\n")
        self.assertIsNone(program.poll())
        program.kill()
        program.wait()
        self.launch_and_wait()

    def test_another_one_without_a_bus_keeps_it_from_running(self):
        without = dict(self.environment)
        self.start_bus()
        self.assert_one_at_a_time(without, self.environment)

    def test_another_one_on_another_bus_keeps_it_from_running(self):
        self.start_bus()
        other = dict(self.environment)
        self.start_bus()
        self.assert_one_at_a_time(other, self.environment)


class WhereItMayNotRun(stage.Stage):
    def test_start_says_so_at_once(self):
        self.start_bus(f'<deny own="{stage.NAME}"/>')
        self.assert_run("start", "Read", status=3, error="tolvar: Tolvar could not be started\n")


class WithoutABus(stage.Stage):
    def lock(self):
        return self.folder / ".local" / "share" / "tolvar" / "instance.lock"

    def launch_and_wait_for_lock(self):
        program = self.launch()
        self.assertEqual(program.stderr.readline(), CANNOT_HIDE)
        return program

    def test_it_runs_and_keeps_a_second_one_from_running(self):
        first = self.launch_and_wait_for_lock()
        self.assertEqual(self.lock().parent.stat().st_mode & 0o777, 0o700)
        self.assert_run(status=3, error="tolvar: Tolvar runs already, and there is no session bus "
                                        "to reach it by\n")
        self.assertIsNone(first.poll())

    def test_it_gives_the_place_back_when_it_ends(self):
        first = self.launch_and_wait_for_lock()
        first.terminate()
        self.assertEqual(first.wait(timeout=stage.PATIENCE_SECONDS), 0)
        self.launch_and_wait_for_lock()

    def test_the_place_of_a_killed_one_is_free(self):
        first = self.launch_and_wait_for_lock()
        first.kill()
        first.wait()
        self.launch_and_wait_for_lock()


if __name__ == "__main__":
    unittest.main()
