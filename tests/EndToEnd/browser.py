"""What is common to the browsers of the end-to-end tests."""

import os
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

from support import Hands, Windows, wait_until

EXTENSION = Path(os.environ["TOLVAR"]).parent.parent / "share" / "tolvar" / "browser"
BLANK = "about:blank"


@dataclass(frozen=True)
class Commit:
    """A tab came to show an address."""

    at: float  # seconds, see Browser.now()
    tab: object
    url: str


class Home:
    """A user's home folder that nothing has been in yet."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(
            prefix="home-", dir=Path(os.environ["XDG_RUNTIME_DIR"]).parent,
            ignore_cleanup_errors=True)
        self.path = Path(self._folder.name)
        os.environ["HOME"] = self._folder.name


class Browser:
    """A real browser with a profile of its own. What it shows is what it says itself, through the way
    that it offers to debuggers; what is done in it is done by keys and pointer where it matters.

    A tab is named by a value that stays while it lives.
    """

    WINDOW_CLASS = ""
    NEW_PRIVATE_WINDOW = ()
    # Or takes it for a yes when the tab is sent away once more while it asks whether to leave.
    WAITS_FOR_ITS_ANSWER = True

    def __init__(self):
        self.process = None
        self.windows = Windows()
        self.hands = Hands()

    # To be said by each browser.

    def start(self):
        """Runs it and waits until it shows a tab."""
        raise NotImplementedError

    def tabs(self):
        """The address of every tab, in every window, by the tab."""
        raise NotImplementedError

    def commits(self):
        """All that was shown since the browser started, oldest first."""
        raise NotImplementedError

    def now(self):
        """By the clock of the commits."""
        raise NotImplementedError

    def visit(self, tab, url):
        """Has the tab go there, and does not wait for it."""
        raise NotImplementedError

    def awaits_address(self, tab):
        """Whether the field for addresses has the keyboard while the tab is in front."""
        raise NotImplementedError

    def open_tab(self, url, in_front=True):
        raise NotImplementedError

    def open_window(self, url):
        raise NotImplementedError

    def split(self, tab):
        """Shows another tab beside it, the one in front of the two, and returns that."""
        raise NotImplementedError

    def show(self, tab):
        """Brings the tab to the front of its window."""
        raise NotImplementedError

    def close(self, tab):
        raise NotImplementedError

    def asks_before_leaving(self):
        """Whether it asks in some tab whether the page is to be left."""
        raise NotImplementedError

    def stay_on_page(self):
        """Answers that question, where the browser waits for it."""
        raise NotImplementedError

    def leave_page(self):
        """Answers it the other way."""
        raise NotImplementedError

    def allow_private(self, allowed):
        """What the user says about the extension and private windows."""
        raise NotImplementedError

    def stop_extension(self):
        """Ends the extension's script, which the browser starts again when something happens."""
        raise NotImplementedError

    def open_other_profile(self):
        """Returns whom to ask about it and its tab."""
        raise NotImplementedError

    # The same for all.

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        wait_until("its windows are gone", lambda: not self.windows.ids(self.WINDOW_CLASS))

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def url(self, tab):
        return self.tabs().get(tab)

    def start_over(self):
        """Leaves one window with one empty tab, which is returned."""
        kept = self.open_tab(BLANK)
        for tab in self.tabs():
            if tab != kept:
                self.close(tab)
        wait_until("one tab is left", lambda: list(self.tabs()) == [kept]
                   and len(self.windows.ids(self.WINDOW_CLASS)) == 1)
        return kept

    def open_by(self, action):
        """The tab that comes from an action."""
        before = set(self.tabs())
        action()
        wait_until("a tab opens", lambda: set(self.tabs()) - before)
        return (set(self.tabs()) - before).pop()

    def window(self):
        """The window that came last, with the keyboard."""
        window = self.windows.wait_for(self.WINDOW_CLASS)
        self.windows.activate(window)
        wait_until("the browser has the keyboard", lambda: self.windows.active() == window)
        return window

    def type_address(self, tab, address):
        """Into the field for addresses, while the tab is in front."""
        self.window()
        self.hands.press_together("Control_L", "l")
        wait_until("one can type an address", lambda: self.awaits_address(tab))
        self.hands.write(address)
        self.hands.press("Return")

    def title(self):
        """Of the window that came last, which has the keyboard."""
        return self.windows.title(self.window())

    def click_page(self, was_clicked):
        """In the middle of the window, where the page is. A page that has just been drawn may miss a
        click; who clicks sees that and clicks once more."""
        x, y, width, height = self.windows.place(self.window())
        again = 0

        def is_done():
            nonlocal again
            if not was_clicked() and time.monotonic() > again:
                again = time.monotonic() + 3
                self.hands.click(x + width // 2, y + height // 2)
            return was_clicked()

        wait_until("the page was clicked", is_done)

    def go_back(self):
        self.window()
        self.hands.press_together("Alt_L", "Left")

    def open_private_window(self):
        """Returns its tab. A private window never takes the place of another."""
        others = set(self.windows.ids(self.WINDOW_CLASS))
        self.window()
        tab = self.open_by(lambda: self.hands.press_together(*self.NEW_PRIVATE_WINDOW))
        wait_until("the private window is there",
                   lambda: set(self.windows.ids(self.WINDOW_CLASS)) - others)
        return tab

    def spawn(self, command, **options):
        self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL, start_new_session=True, **options)
