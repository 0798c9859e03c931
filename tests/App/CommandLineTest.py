"""The command line as a shell sees it: what is printed where, and the exit status."""

import json
import os
import unittest

import dbus.bus
import stage

HINT = "tolvar: try tolvar --help\n"
NOT_RUNNING = "tolvar: Tolvar is not running\n"
COMMANDS = ("pause", "resume", "extend", "stop", "status", "history", "presets", "categories",
            "apps", "browsers", "quit")


class WithoutTolvar(stage.Stage):
    def test_every_command_but_start_says_that_tolvar_does_not_run(self):
        self.start_bus()
        for command in COMMANDS:
            self.assert_run(command, status=3, out="", error=NOT_RUNNING)

    def test_every_command_says_that_there_is_no_bus(self):
        for command in (*COMMANDS, "start Read", "status --follow"):
            self.assert_run(*command.split(), status=3, out="",
                            error="tolvar: there is no session bus to reach Tolvar by\n")

    def test_help_and_version_need_no_tolvar(self):
        self.assertIn("tolvar start GOAL", self.assert_run("--help").stdout)
        self.assertRegex(self.assert_run("--version").stdout, r"\Atolvar \d+\.\d+\.\d+\n\Z")

    def test_wrong_usage_is_told_without_reaching_for_tolvar(self):
        for arguments, complaint in (
                (["bogus"], "there is no command “bogus”"),
                (["start", " "], "start needs a goal, for example: tolvar start \"Write report\""),
                (["start", "Read", "--for", "0"],
                 "“0” is not a length of time; try 25m, 1h30m, 90s or 1500"),
                (["pause", "now"], "pause takes no “now”")):
            self.assert_run(*arguments, status=2, out="", error=f"tolvar: {complaint}\n{HINT}")

    def test_the_c_locale_costs_no_word(self):
        self.environment["LC_ALL"] = "C"
        self.assert_run("--version", error="")
        self.start_bus()
        self.assert_run("status", status=3, error=NOT_RUNNING)

    def test_a_tolvar_that_says_nothing_is_not_waited_for_endlessly(self):
        self.start_bus()
        mute = dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(mute.close)
        mute.request_name(stage.NAME)
        self.assert_run("pause", status=3, out="", error="tolvar: Tolvar does not answer\n")


class Sessions(stage.Stage):
    def setUp(self):
        super().setUp()
        self.start_bus()
        self.launch_and_wait()

    def test_a_session_from_start_to_history(self):
        self.assert_run("status", out="Ready\n")
        self.assert_run("start", "  Write report ", "--site", "https://www.Example.com/x", out="")
        told = self.status()
        self.assertEqual(told["status"], "focusing")
        self.assertEqual(told["goal"], "Write report")
        self.assertEqual(told["duration"], 1500)
        self.assertEqual(told["blockedWebsites"], ["example.com"])
        self.assertIn(told["clock"], ("25:00", "24:59", "24:58"))
        self.assertNotIn("pauseRemaining", told)

        self.assert_run("pause", out="")
        self.assertEqual(self.status()["status"], "paused")
        self.assertIn(self.status()["pauseRemaining"], range(110, 121))
        self.assert_run("resume", out="")
        self.assert_run("extend", out="")
        self.assert_run("extend", "--by", "1h", out="")
        self.assertEqual(self.status()["duration"], 5400)
        self.assert_run("stop", out="")
        self.assertEqual(self.status(), {"status": "ready"})

        [session] = json.loads(self.assert_run("history", "--json").stdout)
        self.assertEqual(session["goal"], "Write report")
        self.assertEqual(session["outcome"], "endedEarly")
        self.assertEqual(session["duration"], 5400)
        self.assertRegex(session["start"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z$")
        self.assertLess(session["start"], session["end"])
        table = self.assert_run("history").stdout.splitlines()
        self.assertTrue(table[1].endswith("ended early  Write report"), table)

    def test_what_does_not_apply_now_exits_with_one(self):
        for command in ("pause", "resume", "extend", "stop"):
            self.assert_run(command, status=1, out="", error="tolvar: no session is running\n")
        self.assert_run("start", "Read")
        self.assert_run("start", "Other", status=1, error="tolvar: a session is running already\n")
        self.assert_run("resume", status=1, error="tolvar: the session is not paused\n")
        self.assert_run("pause")
        self.assert_run("pause", status=1, error="tolvar: the session is paused already\n")
        self.assert_run("resume")
        self.assert_run("pause")
        self.assert_run("resume")
        self.assert_run("pause", status=1, error="tolvar: this session has no pauses left\n")
        self.assertEqual(self.status()["goal"], "Read")

    def test_names_that_do_not_exist_exit_with_two(self):
        complaint = self.assert_run("start", "Read", "--category", "Sports", status=2,
                                    error=None).stderr
        self.assertIn("there is no category “Sports”; the categories are Social Media, ", complaint)
        self.assertEqual(complaint.count("\n"), 1)
        self.assert_run("start", "Read", "--preset", "Deep", status=2,
                        error="tolvar: there is no preset “Deep”; there are no presets\n")
        self.assert_run("start", "Read", "--site", "youtube", status=2,
                        error="tolvar: “youtube” is not a website\n")
        self.assertEqual(self.status(), {"status": "ready"})

    def test_an_application_that_is_not_installed_is_blocked_with_a_warning(self):
        result = self.assert_run("start", "Read", "--app", "Minecraft", error=None)
        self.assertIn("tolvar: no application “Minecraft” is installed; it is blocked all the "
                      "same\n", result.stderr)
        self.assertIn("tolvar: applications cannot be hidden on this desktop\n", result.stderr)
        self.assertEqual(self.status()["blockedApps"], ["Minecraft"])

    def test_lists_are_empty_json_arrays_or_a_sentence(self):
        for command, sentence in (("history", "No session has ended yet."),
                                  ("presets", "There are no presets."),
                                  ("browsers", "No browser can be reached.")):
            self.assert_run(command, out=f"{sentence}\n")
            self.assert_run(command, "--json", out="[]\n")

    def test_categories_and_applications_are_listed(self):
        categories = json.loads(self.assert_run("categories", "--json").stdout)
        self.assertEqual(categories[0]["id"], "Social Media")
        self.assertTrue(categories[0]["websites"])
        entries = self.folder / "data" / "applications"
        entries.mkdir(parents=True)
        (entries / "org.example.Tool.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Own Tool\nExec=true\n")
        self.assertIn({"name": "Own Tool", "id": "org.example.Tool"},
                      json.loads(self.assert_run("apps", "--json").stdout))
        self.assertIn("Own Tool  org.example.Tool", self.assert_run("apps").stdout)
        self.assert_run("start", "Read", "--app", "org.example.tool", error=None)
        self.assertEqual(self.status()["blockedApps"], ["Own Tool"])

    def test_the_history_can_be_cut_short(self):
        for goal in ("First", "Second", "Third"):
            self.assert_run("start", goal)
            self.assert_run("stop")
        told = json.loads(self.assert_run("history", "--json", "--limit", "2").stdout)
        self.assertEqual([session["goal"] for session in told], ["Third", "Second"])

    def test_bars_get_their_own_formats(self):
        self.assert_run("status", "--format", "polybar", out="\n")
        self.assert_run("start", "Read")
        self.assertRegex(self.assert_run("status", "--format", "polybar").stdout,
                         r"\A2[45]:\d\d Read\n\Z")
        told = json.loads(self.assert_run("status", "--format", "waybar").stdout)
        self.assertEqual(told["class"], "focusing")
        self.assertRegex(told["text"], r"^2[45]:\d\d$")

    def test_a_goal_keeps_its_letters(self):
        goal = "Ünïcode — 見る \"quoted\" <b> \\ $HOME"
        self.assert_run("start", "--", goal)
        self.assertEqual(self.status()["goal"], goal)

    def test_output_that_cannot_be_written_is_a_failure(self):
        for arguments in (["status"], ["status", "--follow"], ["categories", "--json"], ["--help"]):
            with open("/dev/full", "w", encoding="utf-8") as full:
                result = stage.subprocess.run(
                    [stage.TOLVAR, *arguments], env=self.environment, stdout=full, text=True,
                    stderr=stage.subprocess.PIPE, check=False, timeout=stage.PATIENCE_SECONDS)
            self.assertEqual((result.returncode, result.stderr),
                             (1, "tolvar: cannot write: No space left on device\n"), arguments)

    def test_a_closed_output_is_none_to_write_to(self):
        result = stage.subprocess.run(["sh", "-c", f"exec '{stage.TOLVAR}' status <&- >&-"],
                                      env=self.environment, stderr=stage.subprocess.PIPE,
                                      text=True, check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (1, "tolvar: cannot write: Bad file descriptor\n"))

    def test_output_that_nobody_reads_is_no_failure(self):
        reader, writer = os.pipe()
        os.close(reader)
        with os.fdopen(writer, "w") as closed:
            result = stage.subprocess.run([stage.TOLVAR, "categories"], env=self.environment,
                                          stdout=closed, stderr=stage.subprocess.PIPE, check=False)
        self.assertEqual((result.returncode, result.stderr), (0, b""))


class Following(stage.Stage):
    def setUp(self):
        super().setUp()
        self.start_bus()

    def test_a_line_comes_at_every_change(self):
        self.launch_and_wait()
        follower = stage.Follower(self, "--json")
        self.assertEqual(json.loads(follower.line()), {"status": "ready"})
        self.assert_run("start", "Read")
        self.assertEqual(json.loads(follower.line())["status"], "focusing")
        self.assertEqual(json.loads(follower.line())["status"], "focusing")
        self.assert_run("pause")
        follower.line_with('"status":"paused"')
        self.assert_run("stop")
        follower.line_with('{"status":"ready"}')

    def test_it_says_that_tolvar_quits_and_goes_on_when_it_returns(self):
        self.launch_and_wait()
        follower = stage.Follower(self)
        self.assertEqual(follower.line(), "Ready")
        self.assert_run("quit")
        self.assertEqual(follower.line(), "Not running")
        self.assert_run("start", "Read")
        follower.line_with("Focusing on Read")

    def test_it_waits_for_a_tolvar_that_does_not_run_yet(self):
        follower = stage.Follower(self, "--json")
        self.assertEqual(json.loads(follower.line()), {"status": "off"})
        self.launch_and_wait()
        self.assertEqual(json.loads(follower.line()), {"status": "ready"})

    def test_it_notices_a_tolvar_that_was_killed(self):
        program = self.launch_and_wait()
        follower = stage.Follower(self, "--json")
        follower.line()
        program.kill()
        self.assertEqual(json.loads(follower.line()), {"status": "off"})

    def test_it_ends_quietly_when_nobody_reads_any_more(self):
        self.launch_and_wait()
        follower = stage.Follower(self)
        follower.line()
        follower.close()
        self.assertEqual(follower.ending(), (0, ""))

    def test_it_ends_quietly_also_while_lines_are_coming(self):
        self.launch_and_wait()
        self.assert_run("start", "Read")
        follower = stage.Follower(self)
        follower.line()
        follower.close()
        self.assertEqual(follower.ending(), (0, ""))

    def test_it_ends_when_the_bus_does(self):
        self.launch_and_wait()
        follower = stage.Follower(self)
        follower.line()
        self.bus.kill()
        self.assertEqual(follower.ending(), (3, "tolvar: the session bus is gone\n"))

    def test_many_can_follow(self):
        self.launch_and_wait()
        followers = [stage.Follower(self) for _ in range(5)]
        for follower in followers:
            self.assertEqual(follower.line(), "Ready")
        followers.pop().end()
        self.assert_run("start", "Read")
        for follower in followers:
            follower.line_with("Focusing on Read")


if __name__ == "__main__":
    unittest.main()
