#!/usr/bin/python3
"""The measurements of scripts/measure-browsers, in the private desktop that it runs this in."""

import argparse
import statistics
import sys
import time
from pathlib import Path

from blocking import BLOCKED, PAGE, hosts_of
from BlockingChromiumTest import BlockingInChromium
from BlockingFirefoxTest import BlockingInFirefox
from support import wait_until

BLANK_MS = 120
SCENARIOS = {"chromium": BlockingInChromium, "firefox-esr": BlockingInFirefox}


class Process:
    def __init__(self, pid):
        self._proc = Path(f"/proc/{pid}")

    def wakes(self):
        return sum(number_of("voluntary_ctxt_switches", status)
                   for status in self._proc.glob("task/*/status"))

    def bytes_read(self):
        """From pipes and files, not from sockets."""
        return number_of("rchar", self._proc / "io")

    def memory(self):
        """PSS, and what nobody shares, in MiB."""
        rollup = self._proc / "smaps_rollup"
        private = number_of("Private_Clean", rollup) + number_of("Private_Dirty", rollup)
        return number_of("Pss", rollup) / 1024, private / 1024


def number_of(name, file):
    return next(int(line.split()[1]) for line in file.read_text().splitlines()
                if line.startswith(f"{name}:"))


def extension_process(browser):
    """The process that extensions run in, below the browser's."""
    for proc in Path("/proc").glob("[0-9]*"):
        try:
            command = (proc / "cmdline").read_bytes()
            name = (proc / "comm").read_text().strip()
            parents = ancestors(int(proc.name))
        except (OSError, IndexError):
            continue
        if browser in parents and (b"--extension-process" in command or name == "WebExtensions"):
            return int(proc.name)
    raise RuntimeError("no process of extensions")


def ancestors(pid):
    found = []
    while pid > 1:
        pid = int(Path(f"/proc/{pid}/stat").read_text().rsplit(") ", 1)[1].split()[1])
        found.append(pid)
    return found


class Rows:
    def __init__(self):
        self.within = True

    def add(self, what, value, unit, budget=None):
        verdict = "" if budget is None else "ok" if value <= budget else "OVER"
        self.within = self.within and verdict != "OVER"
        allowed = "" if budget is None else f"{budget:g}"
        print(f"{what:54} {value:9.2f} {allowed:>8} {unit:5} {verdict}", flush=True)


def visit_blocked(scene, visits):
    """Milliseconds from the wish to about:blank, and from the page being shown to it."""
    from_wish, from_page = [], []
    scene.focus(BLOCKED)
    for number in range(visits):
        url = f"{PAGE}{number}"
        wished = scene.browser.now()
        took = scene.seconds_until_blank(url)
        page, gone = scene.shown_from(url)[:2]
        from_page.append(1000 * took)
        from_wish.append(1000 * (gone.at - wished))
        if number == 0:
            scene.assert_told()
        # The page that is now empty is drawn before the next one is wished for.
        time.sleep(0.2)
    return from_wish, from_page


def visit_others(scene, processes, sites):
    """What the processes read from pipes and how often they woke, a visit."""
    before = [(process.bytes_read(), process.wakes()) for process in processes]
    for number in range(sites):
        url = f"http://site{number}.example/"
        scene.browser.visit(scene.tab, url)
        wait_until("it is shown", lambda: scene.browser.url(scene.tab) == url)
        time.sleep(1)
    return [((process.bytes_read() - read) / sites, (process.wakes() - wakes) / sites)
            for process, (read, wakes) in zip(processes, before)]


def measure(rows, scenario, arguments):
    scenario.setUpClass()
    scene = scenario("test_a_link_is_blocked")
    scene.setUp()
    name = scene.browser.NAME
    from_wish, from_page = visit_blocked(scene, arguments.visits)
    rows.add(f"{name}: page wished for to about:blank, median", statistics.median(from_wish), "ms",
             BLANK_MS)
    rows.add(f"{name}: page wished for to about:blank, worst", max(from_wish), "ms")
    rows.add(f"{name}: page shown to about:blank, median", statistics.median(from_page), "ms")
    rows.add(f"{name}: page shown to about:blank, worst", max(from_page), "ms")

    [host_pid] = hosts_of(scene.browser.process.pid)
    host, program = Process(host_pid), Process(scene.program.pid)
    (host_bytes, host_wakes), (_, program_wakes) = visit_others(
        scene, [host, program], arguments.sites)
    # The host passes on all that comes through its pipe.
    rows.add(f"{name}: other page, bytes through host and socket", host_bytes, "B")
    rows.add(f"{name}: other page (1 s), wake-ups of the host", host_wakes, "")
    rows.add(f"{name}: other page (1 s), wake-ups of the program", program_wakes, "")
    extension = Process(extension_process(scene.browser.process.pid))
    for what, process in (("host", host), ("process of extensions", extension)):
        pss, private = process.memory()
        rows.add(f"{name}: memory of the {what}, PSS", pss, "MiB")
        rows.add(f"{name}: memory of the {what}, private", private, "MiB")
    scene.doCleanups()
    scenario.doClassCleanups()


def main():
    parser = argparse.ArgumentParser(prog="measure-browsers")
    parser.add_argument("--visits", type=int, default=50)
    parser.add_argument("--sites", type=int, default=20)
    parser.add_argument("browsers", nargs="*", metavar="BROWSER")
    arguments = parser.parse_args()
    print(f"{'':54} {'measured':>9} {'budget':>8}")
    rows = Rows()
    for name in arguments.browsers or SCENARIOS:
        measure(rows, SCENARIOS[name], arguments)
    return 0 if rows.within else 1


if __name__ == "__main__":
    sys.exit(main())
