"""What must hold in every browser while websites are blocked, told as scenarios in a real one."""

import itertools
import os
import signal
import time
from pathlib import Path

from browser import BLANK, Home
from support import Alerts, Program, Windows, wait_until
from websites import DRAWN, Websites, clingy, link, redirect, stateful

BLOCKED = "distraction.example"
PAGE = f"http://{BLOCKED}/"
WORK = "http://work.example/"
POLL_SECONDS = 2
# A page that is let alone has seen a poll.
LEFT_ALONE_SECONDS = POLL_SECONDS + 0.5
# Nobody waits for the poll: of so many visits, so many end so soon after the page is shown. Each
# begins when the one before has ended, so polling alone would let nearly two seconds pass each time.
VISITS, ENOUGH_VISITS, AT_ONCE_SECONDS = 20, 9, 0.5


class Blocking:
    """The scenarios; who has a browser mixes them in (see make_browser)."""

    @classmethod
    def setUpClass(cls):
        cls.home = Home()
        cls.websites = Websites()
        cls.addClassCleanup(cls.websites.end)
        cls.program = Program()
        cls.addClassCleanup(cls.program.end)
        cls.browser = cls.make_browser()
        cls.addClassCleanup(cls.browser.end)
        cls.program.tell("browsers", "setup", cls.browser.NAME)
        cls.program.start()
        cls.alerts = Alerts(Windows())
        cls.browser.start()
        cls.wait_for_connection()

    @classmethod
    def wait_for_connection(cls):
        wait_until("the browser is connected",
                   lambda: cls.browser.NAME in cls.program.tell("browsers").split())

    def setUp(self):
        self.tab = self.browser.start_over()
        self.addCleanup(self.alerts.dismiss)

    def focus(self, *sites):
        self.program.tell("start", "Write report", "--for", "30m",
                          *(word for site in sites or (BLOCKED,) for word in ("--site", site)))
        self.addCleanup(self.program.ask, "stop")

    def assert_goes_blank(self, tab=None):
        tab = tab or self.tab
        wait_until("the page is blank", lambda: self.browser.url(tab) == BLANK)

    def assert_blocked_on_the_way(self, url=PAGE, tab=None):
        """The tab shows the page and then no more."""
        tab = tab or self.tab
        wait_until(f"{url} is shown", lambda: (tab, url) in self.shown())
        self.assert_goes_blank(tab)

    def assert_stays(self, url, tab=None):
        """The tab goes there and is let alone."""
        tab = tab or self.tab
        wait_until(f"{url} is shown", lambda: self.browser.url(tab) == url)
        self.assert_let_alone({tab: url})

    def assert_let_alone(self, pages):
        end = time.monotonic() + LEFT_ALONE_SECONDS
        while time.monotonic() < end:
            tabs = self.browser.tabs()
            self.assertEqual({tab: tabs.get(tab) for tab in pages}, pages)
            time.sleep(0.05)
        self.assertIsNone(self.alerts.text())

    def assert_told(self):
        self.alerts.wait_for(BLOCKED)
        self.alerts.dismiss()

    def shown(self):
        return [(commit.tab, commit.url) for commit in self.browser.commits()]

    def test_a_typed_address_is_blocked(self):
        self.focus()
        # Not one that the browser completes from where it has been.
        self.browser.type_address(self.tab, f"{BLOCKED}/typed")
        self.assert_blocked_on_the_way(f"{PAGE}typed")
        self.assert_told()

    def test_a_link_is_blocked(self):
        self.focus()
        self.visit_and_click(link("work.example", PAGE))
        self.assert_blocked_on_the_way()

    def visit_and_click(self, url):
        self.browser.visit(self.tab, url)
        wait_until("the page is there", lambda: self.browser.url(self.tab) == url)
        wait_until("the page can be clicked", lambda: self.browser.title().startswith(DRAWN))
        self.browser.click_page(lambda: not self.browser.title().startswith(DRAWN))

    def test_a_redirect_is_blocked(self):
        self.focus()
        self.browser.visit(self.tab, redirect("work.example", PAGE))
        self.assert_blocked_on_the_way()

    def test_the_way_back_is_blocked(self):
        for url in (PAGE, WORK):
            self.browser.visit(self.tab, url)
            wait_until(f"{url} is shown", lambda: self.browser.url(self.tab) == url)
        self.focus()
        self.browser.go_back()
        wait_until("the page is shown again", lambda: self.shown().count((self.tab, PAGE)) == 2)
        self.assert_goes_blank()

    def test_a_page_that_changes_its_own_address_is_let_alone(self):
        self.focus()
        self.visit_and_click(stateful("work.example"))
        wait_until("the address changes", lambda: "/later/" in self.browser.url(self.tab))
        self.assert_let_alone({self.tab: self.browser.url(self.tab)})

    def test_a_new_tab_is_blocked_and_its_opener_is_not(self):
        opener = link("work.example", PAGE, in_new_tab=True)
        self.focus()
        tab = self.browser.open_by(lambda: self.visit_and_click(opener))
        self.assert_goes_blank(tab)
        self.assertEqual(self.browser.url(self.tab), opener)

    def test_both_halves_of_a_split_window_are_blocked(self):
        self.focus()
        other = self.browser.split(self.tab)
        for tab in (self.tab, other):
            self.browser.visit(tab, PAGE)
            self.assert_blocked_on_the_way(tab=tab)

    def test_a_tab_in_the_background_is_let_alone_until_it_is_shown(self):
        self.focus()
        tab = self.browser.open_tab(PAGE, in_front=False)
        self.assert_stays(PAGE, tab)
        self.browser.show(tab)
        self.assert_goes_blank(tab)
        self.assert_told()

    def test_both_of_two_windows_are_blocked_and_one_alert_tells(self):
        self.browser.visit(self.tab, PAGE)
        other = self.browser.open_window(PAGE + "other")
        wait_until("both are shown", lambda: set(self.browser.tabs().values())
                   == {PAGE, PAGE + "other"})
        self.focus()
        self.assert_goes_blank()
        self.assert_goes_blank(other)
        self.assert_told()
        self.assert_let_alone({self.tab: BLANK, other: BLANK})

    def test_hosts_below_a_blocked_one_are_blocked_and_those_that_look_like_it_are_not(self):
        self.focus()
        for url in (f"http://m.{BLOCKED}/", f"http://www.{BLOCKED}/a?b#c"):
            self.browser.visit(self.tab, url)
            self.assert_blocked_on_the_way(url)
            self.assert_told()
        pages = {}
        for url in (f"http://not{BLOCKED}/", f"http://{BLOCKED}.work.example/", WORK + BLOCKED):
            pages[self.browser.open_window(url)] = url
        wait_until("they are shown", lambda: self.browser.tabs().items() >= pages.items())
        self.assert_let_alone(pages)

    def test_an_empty_page_is_let_alone(self):
        self.focus()
        before = self.browser.commits()
        self.assert_let_alone({self.tab: BLANK})
        self.assertEqual(self.browser.commits(), before)

    def test_a_page_that_was_there_before_is_blocked_when_the_session_begins(self):
        self.browser.visit(self.tab, PAGE)
        wait_until("it is shown", lambda: self.browser.url(self.tab) == PAGE)
        self.focus()
        self.assert_goes_blank()
        self.assert_told()

    def test_pages_are_let_alone_in_a_pause_and_after_the_end(self):
        self.focus()
        self.program.tell("pause")
        self.browser.visit(self.tab, PAGE)
        self.assert_stays(PAGE)
        self.program.tell("resume")
        self.assert_goes_blank()
        self.assert_told()
        self.program.tell("stop")
        self.browser.visit(self.tab, PAGE)
        self.assert_stays(PAGE)

    def test_a_page_that_asks_before_it_is_left_is_sent_away_again_and_told_of_once(self):
        url = clingy(BLOCKED)
        self.visit_and_click(url)
        self.focus()
        self.wait_for_the_question()
        self.assert_told()
        if self.browser.WAITS_FOR_ITS_ANSWER:
            self.browser.stay_on_page()
            self.wait_for_the_question()
            self.assert_let_alone({self.tab: url})
            self.browser.leave_page()
        self.assert_goes_blank()
        self.assert_let_alone({self.tab: BLANK})

    def wait_for_the_question(self):
        wait_until("the browser asks whether to leave", self.browser.asks_before_leaving)

    def test_private_windows_are_blocked_when_the_user_allowed_them_and_only_then(self):
        self.focus()
        for allowed in (False, True):
            self.browser.allow_private(allowed)
            self.wait_for_connection()
            tab = self.browser.open_private_window()
            self.browser.visit(tab, PAGE)
            if allowed:
                self.assert_blocked_on_the_way(tab=tab)
            else:
                self.assert_stays(PAGE, tab)
            self.browser.close(tab)

    def test_two_profiles_at_once_are_blocked(self):
        self.focus()
        browser, tab = self.browser.open_other_profile()
        self.addCleanup(self.start_browser_anew)
        self.addCleanup(browser.end)
        name = self.browser.NAME
        wait_until("both are connected", lambda: self.program.tell("browsers").splitlines()
                   == [name, f"{name} 2"])
        browser.visit(tab, PAGE)
        self.browser.visit(self.tab, PAGE)
        for browser, tab in ((browser, tab), (self.browser, self.tab)):
            wait_until("the page was shown and is gone", lambda: shown_in(browser, tab, PAGE, BLANK))

    def start_browser_anew(self):
        self.kill_the_browser()
        self.wait_for_connection()

    def test_pages_are_blank_at_once(self):
        self.focus()
        took = []
        while len(took) < VISITS and sum(map(in_time, took)) < ENOUGH_VISITS:
            took.append(self.seconds_until_blank(f"{PAGE}{len(took)}"))
        self.assertGreaterEqual(sum(map(in_time, took)), ENOUGH_VISITS, took)

    def seconds_until_blank(self, url):
        """From the moment the browser shows the page."""
        self.browser.visit(self.tab, url)
        wait_until(f"{url} is shown and gone", lambda: len(self.shown_from(url)) > 1)
        page, gone = self.shown_from(url)[:2]
        self.assertEqual(gone.url, BLANK)
        return gone.at - page.at

    def shown_from(self, url):
        """What the tab has shown since it showed that."""
        commits = [commit for commit in self.browser.commits() if commit.tab == self.tab]
        return list(itertools.dropwhile(lambda commit: commit.url != url, commits))

    def test_blocking_goes_on_when_any_of_those_who_work_together_was_killed(self):
        self.focus()
        for kill in (self.kill_the_host, self.stop_the_extension, self.kill_the_program,
                     self.kill_the_browser):
            with self.subTest(kill.__name__):
                kill()
                url = f"{PAGE}{kill.__name__}"
                self.browser.visit(self.tab, url)
                self.assert_blocked_on_the_way(url)
                self.assert_told()

    def kill_the_host(self):
        # So often that looking for it ever more rarely would be noticed.
        for _ in range(6):
            [host] = hosts_of(self.browser.process.pid)
            os.kill(host, signal.SIGKILL)
            took = wait_until("there is another host",
                              lambda: hosts_of(self.browser.process.pid) not in ([], [host]))
            # A second would do where nothing else wants the machine.
            self.assertLess(took, 5)
            self.wait_for_connection()

    def stop_the_extension(self):
        [host] = hosts_of(self.browser.process.pid)
        self.browser.stop_extension()
        wait_until("its host has ended", lambda: host not in hosts_of(self.browser.process.pid))

    def kill_the_program(self):
        self.program.kill()
        self.program.start()

    def kill_the_browser(self):
        self.browser.kill()
        wait_until("the program sees it go",
                   lambda: self.browser.NAME not in self.program.tell("browsers").split())
        self.browser.start()
        self.tab = next(iter(self.browser.tabs()))


def shown_in(browser, tab, page, then):
    """Whether the tab has shown the page and now shows what comes then."""
    shown = [commit.url for commit in browser.commits() if commit.tab == tab]
    return page in shown and shown[-1] == then


def in_time(seconds):
    return seconds <= AT_ONCE_SECONDS


def hosts_of(browser):
    """The native-messaging hosts that the browser runs."""
    return [int(process.name) for process in Path("/proc").glob("[0-9]*")
            if name_and_parent(process) == ("tolvar-browser-", browser)]


def name_and_parent(process):
    """The name as the system keeps it: 15 letters of it."""
    try:
        name, rest = (process / "stat").read_text().split(" (", 1)[1].rsplit(") ", 1)
    except OSError:
        return None
    return name, int(rest.split()[1])
