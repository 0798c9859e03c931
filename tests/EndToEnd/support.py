"""The stage of the end-to-end tests: the program, the windows and the notifications of the private
desktop that the test runs in (scripts/desktop with)."""

import json
import os
import signal
import sqlite3
import subprocess
import time
from pathlib import Path

import dbus
import Xlib.display
import Xlib.error
from Xlib import XK, X
from Xlib.ext import xtest
from Xlib.protocol import event

TOLVAR = os.environ["TOLVAR"]
WINDOW_MANAGER = os.environ["TOLVAR_DESKTOP_WM"]
PATIENCE_SECONDS = 20


def wait_until(what, holds, seconds=PATIENCE_SECONDS):
    """Returns the seconds it took until `holds()` was true."""
    began = time.monotonic()
    while not holds():
        if time.monotonic() - began > seconds:
            raise AssertionError(f"{what}: not so after {seconds} s")
        time.sleep(0.001)
    return time.monotonic() - began


def stored(key):
    """A JSON document of the preferences, as another program reads it."""
    file = Path(os.environ["XDG_DATA_HOME"]) / "tolvar" / "preferences.sqlite3"
    with sqlite3.connect(f"file:{file}?mode=ro", uri=True) as database:
        row = database.execute("SELECT value FROM preferences WHERE key = ?", (key,)).fetchone()
    return json.loads(row[0]) if row else None


class Program:
    """Tolvar and its command line."""

    def __init__(self):
        self._process = None

    @property
    def pid(self):
        return self._process.pid

    def launch(self):
        self._process = subprocess.Popen([TOLVAR], stdout=subprocess.DEVNULL)

    def start(self):
        """Runs it and waits until it answers."""
        self.launch()
        wait_until("Tolvar answers", lambda: self.ask("status").returncode == 0)

    def ask(self, *arguments):
        return subprocess.run([TOLVAR, *arguments], text=True, capture_output=True, check=False,
                              timeout=PATIENCE_SECONDS)

    def tell(self, *arguments):
        """A command that must be done."""
        result = self.ask(*arguments)
        if result.returncode != 0:
            raise AssertionError(f"{arguments}: {result.returncode}: {result.stderr}")
        return result.stdout

    def status(self):
        return json.loads(self.tell("status", "--json"))

    def history(self):
        return json.loads(self.tell("history", "--json"))

    def kill(self):
        """Ends it without any warning."""
        self._process.send_signal(signal.SIGKILL)
        self._process.wait()

    def end(self):
        if self._process and self._process.poll() is None:
            self.ask("quit")
            self._process.wait(timeout=PATIENCE_SECONDS)


class Windows:
    """What another program sees of the windows, and what a pager does to them."""

    def __init__(self):
        self._display = Xlib.display.Display()
        self._root = self._display.screen().root

    def ids(self, window_class):
        """The windows of the class, in the order in which they came."""
        return [window for window in self._property(self._root, "_NET_CLIENT_LIST") or []
                if self._class(window) == window_class]

    def wait_for(self, window_class):
        wait_until(f"a window of {window_class}",
                   lambda: any(map(self.is_in_view, self.ids(window_class))))
        return self.ids(window_class)[-1]

    def is_in_view(self, window):
        try:
            attributes = self._resource(window).get_attributes()
            return attributes.map_state == X.IsViewable
        except Xlib.error.BadWindow:
            return False

    def active(self):
        return (self._property(self._root, "_NET_ACTIVE_WINDOW") or [0])[0]

    def has_keyboard(self, window):
        focus = self._display.get_input_focus().focus
        return getattr(focus, "id", focus) == window

    def activate(self, window):
        """As a pager does it: a request with source 2 to the root window."""
        message = event.ClientMessage(
            window=self._resource(window), client_type=self._display.intern_atom("_NET_ACTIVE_WINDOW"),
            data=(32, [2, X.CurrentTime, 0, 0, 0]))
        self._root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.flush()

    def place(self, window):
        """(x, y, width, height) on the screen."""
        size = self._resource(window).get_geometry()
        corner = self._root.translate_coords(self._resource(window), 0, 0)
        return (corner.x, corner.y, size.width, size.height)

    def title(self, window):
        name = self._property(self._resource(window), "_NET_WM_NAME")
        return bytes(name).decode() if name else ""

    def menu_is_open(self):
        """Whether Tolvar has a window that no window manager sees."""
        return any(self._class(window.id) == "tolvar" and self.is_in_view(window.id)
                   and window.get_attributes().override_redirect
                   for window in self._root.query_tree().children)

    def item_in_tray(self):
        """The window of Tolvar's item in an X11 tray; nothing while it is in none."""
        for window in self._below(self._root):
            try:
                embeds = window.get_full_property(self._display.intern_atom("_XEMBED_INFO"), 0)
                if embeds and (window.get_wm_class() or ("",))[0] == "tolvar" \
                        and self.is_in_view(window.id):
                    return window.id
            except Xlib.error.XError:
                continue
        return None

    def _below(self, window):
        try:
            children = window.query_tree().children
        except Xlib.error.XError:
            return
        for child in children:
            yield child
            yield from self._below(child)

    def bears_mark(self, window):
        """Whether Tolvar's mark of a window that it hid is on it."""
        return self._property(self._resource(window), "_TOLVAR_HIDDEN") is not None

    def _resource(self, window):
        return self._display.create_resource_object("window", window)

    def _property(self, window, name):
        try:
            found = window.get_full_property(self._display.intern_atom(name), X.AnyPropertyType)
        except Xlib.error.BadWindow:
            return None
        return found and list(found.value)

    def _class(self, window):
        try:
            return (self._resource(window).get_wm_class() or (None, None))[1]
        except Xlib.error.BadWindow:
            return None


class Hands:
    """A pointer and a keyboard."""

    def __init__(self):
        self._display = Xlib.display.Display()

    def click(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(self._display, X.ButtonPress, 1)
        xtest.fake_input(self._display, X.ButtonRelease, 1)
        self._display.sync()

    def drag(self, start, across, down, steps=8):
        """From a place on the screen by so many pixels, in steps as a hand makes them."""
        xtest.fake_input(self._display, X.MotionNotify, x=start[0], y=start[1])
        xtest.fake_input(self._display, X.ButtonPress, 1)
        for step in range(1, steps + 1):
            xtest.fake_input(self._display, X.MotionNotify,
                             x=start[0] + across * step // steps,
                             y=start[1] + down * step // steps)
            self._display.sync()
        xtest.fake_input(self._display, X.ButtonRelease, 1)
        self._display.sync()

    def turn_wheel(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(self._display, X.ButtonPress, 5)
        xtest.fake_input(self._display, X.ButtonRelease, 5)
        self._display.sync()

    def press(self, *names):
        for name in names:
            code = self._display.keysym_to_keycode(XK.string_to_keysym(name))
            xtest.fake_input(self._display, X.KeyPress, code)
            xtest.fake_input(self._display, X.KeyRelease, code)
        self._display.sync()

    def press_together(self, *names):
        """The last key while those before it are held."""
        codes = [self._display.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes:
            xtest.fake_input(self._display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self._display, X.KeyRelease, code)
        self._display.sync()

    def write(self, text):
        """Small letters, digits, dots and slashes."""
        names = {".": "period", "/": "slash", "-": "minus"}
        self.press(*(names.get(letter, letter) for letter in text))


class Alerts:
    """The window that says that something was blocked."""

    def __init__(self, windows):
        self._windows = windows
        self._hands = Hands()

    def text(self):
        """What it says; nothing while there is none."""
        window = self._window()
        return window and self._windows.title(window)

    def wait_for(self, name):
        wait_until(f"an alert of {name}",
                   lambda: self.text() == f"You're tolvar, {name} is blocked")

    def dismiss(self):
        """By the key for that, when there is one."""
        if window := self._window():
            self._windows.activate(window)
            wait_until("the alert has the keyboard", lambda: self._windows.active() == window)
            self._hands.press("Escape")
            wait_until("the alert is gone", lambda: not self._window())

    def _window(self):
        return next((window for window in self._windows.ids("tolvar")
                     if self._windows.title(window).startswith("You're tolvar,")
                     and self._windows.is_in_view(window)), None)


class Notifications:
    """What dunst shows and has shown."""

    def __init__(self):
        server = dbus.SessionBus().get_object("org.freedesktop.Notifications",
                                              "/org/freedesktop/Notifications")
        self._control = dbus.Interface(server, "org.dunstproject.cmd0")
        self._properties = dbus.Interface(server, "org.freedesktop.DBus.Properties")

    def shown(self):
        """How many are on screen."""
        return int(self._properties.Get("org.dunstproject.cmd0", "displayedLength"))

    def close_and_list(self):
        """Closes them all; every notification there was, as (title, text)."""
        self._control.NotificationCloseAll()
        wait_until("the notifications are closed", lambda: self.shown() == 0)
        return [(str(entry["summary"]), str(entry["body"]))
                for entry in self._control.NotificationListHistory()]


class Guests:
    """Programs that the tests look at; all end with the test."""

    def __init__(self):
        self._running = []

    def start(self, *command):
        guest = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._running.append(guest)
        return guest

    def end(self):
        for guest in self._running:
            guest.kill()
            guest.wait()
