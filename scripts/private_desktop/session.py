"""The servers that make a desktop, and the environment to live in it."""

import os
import secrets
import select
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import dbus
import dbus.bus
import Xlib.display
import Xlib.error

from . import processes

FILES = Path(__file__).resolve().parent
WINDOW_MANAGERS = {
    "openbox": ["openbox", "--sm-disable", "--config-file", str(FILES / "openbox.xml")],
    "xfwm4": ["xfwm4", "--compositor=off"],
    "metacity": ["metacity", "--compositor=none", "--sm-disable"],
    "kwin_x11": ["kwin_x11"],
    "i3": ["i3", "-c", str(FILES / "i3.conf")],
    "none": [],
}
READY_SECONDS = 60
WALLPAPER = 0x3A3B3D


class DesktopError(Exception):
    """Something that keeps the desktop from starting or being reached."""


def wait_until(what: str, holds, seconds: float = READY_SECONDS) -> None:
    """Returns as soon as `holds()` is true; raises when it is not in time."""
    deadline = time.monotonic() + seconds
    while not holds():
        if time.monotonic() > deadline:
            raise DesktopError(f"{what}: not there after {seconds} s")
        time.sleep(0.01)


def read_line(pipe: int) -> str:
    """The first line that comes through the pipe, empty when none comes in time."""
    text = b""
    while select.select([pipe], [], [], READY_SECONDS)[0] and (piece := os.read(pipe, 64)):
        text += piece
        if text.endswith(b"\n"):
            return text.decode().strip()
    return ""


FOREIGN_VARIABLES = (
    "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "SESSION_MANAGER", "DESKTOP_SESSION", "DESKTOP_STARTUP_ID",
    "XDG_CURRENT_DESKTOP", "XDG_SESSION_ID", "XDG_SESSION_DESKTOP", "XDG_ACTIVATION_TOKEN",
    "GIO_LAUNCHED_DESKTOP_FILE", "GIO_LAUNCHED_DESKTOP_FILE_PID", "DBUS_STARTER_ADDRESS",
    "DBUS_STARTER_BUS_TYPE", "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "I3SOCK", "SWAYSOCK",
    "PULSE_SERVER",
)


def private_environment(root: Path, window_manager: str) -> dict[str, str]:
    """What a program needs to know to live in the desktop under `root`, its display apart."""
    folders = {
        "XDG_DATA_HOME": root / "data",
        "XDG_CONFIG_HOME": root / "config",
        "XDG_CACHE_HOME": root / "cache",
        "XDG_STATE_HOME": root / "state",
        "XDG_RUNTIME_DIR": root / "runtime",
    }
    for folder in folders.values():
        folder.mkdir(mode=0o700)
    environment = {name: str(folder) for name, folder in folders.items()}
    environment |= {
        "XDG_DATA_DIRS": "/usr/local/share:/usr/share",
        "XDG_CONFIG_DIRS": "/etc/xdg",
        "XDG_SESSION_TYPE": "x11",
        "XAUTHORITY": str(root / "Xauthority"),
        "DBUS_SESSION_BUS_ADDRESS": f"unix:path={root}/runtime/bus",
        "GSETTINGS_BACKEND": "memory",
        "GTK_USE_PORTAL": "0",
        "NO_AT_BRIDGE": "1",
        # Nobody listens there, whatever the machine could play on.
        "ALSOFT_DRIVERS": "null",
        "TOLVAR_DESKTOP_WM": window_manager,
    }
    if "UTF-8" not in (os.environ.get("LC_ALL") or os.environ.get("LANG", "")).upper():
        environment["LC_ALL"] = "C.UTF-8"
    return environment


def complete_environment(private: dict[str, str]) -> dict[str, str]:
    kept = {name: value for name, value in os.environ.items() if name not in FOREIGN_VARIABLES}
    return kept | private


class Cookie:
    """The secret that lets a program use the display, in the file of the server and its clients."""

    FAMILY_LOCAL = 0x0100
    FAMILY_WILD = 0xFFFF

    def __init__(self, path: Path):
        self._path = path
        self._secret = secrets.token_bytes(16)
        path.touch(mode=0o600)
        self._add(self.FAMILY_WILD, b"", b"")

    def add_display(self, number: str) -> None:
        """Not every client knows the wild entry."""
        self._add(self.FAMILY_LOCAL, socket.gethostname().encode(), number.encode())

    def _add(self, family: int, address: bytes, number: bytes) -> None:
        fields = (address, number, b"MIT-MAGIC-COOKIE-1", self._secret)
        with self._path.open("ab") as file:
            file.write(struct.pack(">H", family))
            for field in fields:
                file.write(struct.pack(">H", len(field)) + field)


class Session:
    """The servers of one desktop and everything started in it, all children of this process."""

    def __init__(self, root: Path, window_manager: str):
        self.root = root
        self.window_manager = window_manager
        self.environment = private_environment(root, window_manager)
        self.logs = root / "log"
        self.logs.mkdir()
        self.family = processes.Family()
        self._servers: dict[str, int] = {}
        self._display = self._bus = None

    def start(self) -> None:
        cookie = Cookie(self.root / "Xauthority")
        (self.root / "home").mkdir()
        shutil.copy(FILES / "kwinrc", self.root / "config")
        self._start_display(cookie)
        self._start_bus()
        self._connect()
        self._paint_wallpaper()
        self._start_notification_server()
        self._start_window_manager_and_tray()
        self._wait_for_notification_server()
        self._disconnect()

    def spawn_in_background(self, command: list[str], environment: dict[str, str],
                            log_name: str, **options) -> int:
        with open(self.logs / f"{log_name}.log", "ab") as log:
            return self.family.spawn(command, environment, stdin=subprocess.DEVNULL, stdout=log,
                                     stderr=log, start_new_session=True, **options)

    def ended_servers(self) -> list[str]:
        return [name for name, pid in self._servers.items() if self.family.has_ended(pid)]

    def end(self) -> None:
        self.family.end(last=set(self._servers.values()))

    def log_tails(self) -> str:
        tails = []
        for log in sorted(self.logs.iterdir()):
            lines = log.read_text(errors="replace").splitlines()[-5:]
            tails += [f"  {log.stem}: {line}" for line in lines]
        return "\n".join(tails)

    def _start_server(self, name: str, command: list[str], **options) -> None:
        environment = complete_environment(self.environment) | {"HOME": str(self.root / "home")}
        try:
            self._servers[name] = self.spawn_in_background(
                command, environment, name, cwd="/", **options)
        except FileNotFoundError as error:
            raise DesktopError(f"{command[0]} is not installed: run scripts/setup") from error

    def _start_display(self, cookie: Cookie) -> None:
        number, write_end = os.pipe()
        self._start_server(
            "Xvfb",
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x800x24", "-dpi", "96",
             "-nolisten", "tcp", "-noreset", "-auth", str(self.root / "Xauthority")],
            pass_fds=(write_end,))
        os.close(write_end)
        display = read_line(number)
        os.close(number)
        if not display:
            raise DesktopError("Xvfb did not start")
        cookie.add_display(display)
        self.environment["DISPLAY"] = f":{display}"

    def _start_bus(self) -> None:
        self._start_server(
            "dbus-daemon",
            ["dbus-daemon", f"--config-file={FILES / 'session.conf'}", "--nofork", "--nopidfile",
             f"--address={self.environment['DBUS_SESSION_BUS_ADDRESS']}"])

    def _connect(self) -> None:
        os.environ["XAUTHORITY"] = self.environment["XAUTHORITY"]
        self._display = self._connection("the display", self._connect_to_display)
        self._bus = self._connection("the session bus", self._connect_to_bus)

    def _paint_wallpaper(self) -> None:
        root = self._display.screen().root
        root.change_attributes(background_pixel=WALLPAPER)
        root.clear_area()
        self._display.flush()

    def _start_notification_server(self) -> None:
        self._start_server("dunst", ["dunst", "-conf", str(FILES / "dunstrc")])

    def _start_window_manager_and_tray(self) -> None:
        if self.window_manager == "none":
            return
        check = self._display.intern_atom("_NET_SUPPORTING_WM_CHECK")
        tray = self._display.intern_atom("_NET_SYSTEM_TRAY_S0")
        root = self._display.screen().root
        self._start_server(self.window_manager, WINDOW_MANAGERS[self.window_manager])
        self._wait_for_servers(self.window_manager,
                               lambda: root.get_full_property(check, 0) is not None)
        # A tray that finds no window manager sleeps before it looks again.
        self._start_server("tint2", ["tint2", "-c", str(FILES / "tint2rc")])
        self._wait_for_servers("the tray", lambda: self._display.get_selection_owner(tray) != 0)

    def _wait_for_notification_server(self) -> None:
        self._wait_for_servers("the notification server",
                               lambda: self._bus.name_has_owner("org.freedesktop.Notifications"))

    def _disconnect(self) -> None:
        self._bus.close()
        self._display.close()

    def _connect_to_display(self):
        try:
            return Xlib.display.Display(self.environment["DISPLAY"])
        except Xlib.error.DisplayConnectionError:
            return None

    def _connect_to_bus(self):
        try:
            return dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        except dbus.DBusException:
            return None

    def _connection(self, what: str, connect):
        """A server answers a little later than it is there."""
        connections = []
        self._wait_for_servers(what, lambda: connections.append(connect()) or connections[-1])
        return connections[-1]

    def _wait_for_servers(self, what: str, is_there) -> None:
        def checked() -> bool:
            for name in self.ended_servers():
                raise DesktopError(f"{name} ended while the desktop started")
            return is_there()

        wait_until(what, checked)


def supervise(root: Path, window_manager: str, work) -> int:
    """Runs `work(session)` with a desktop around it; nothing of the desktop is left when it
    returns, whatever happened. Returns the exit status."""
    processes.raise_on_ending_signals()
    session = Session(root, window_manager)
    try:
        try:
            session.start()
            return work(session)
        finally:
            processes.ignore_ending_signals()
    except DesktopError as error:
        print(f"desktop: {error}\n{session.log_tails()}", file=sys.stderr, flush=True)
        return processes.FAILED
    except processes.Interrupted as interrupted:
        return interrupted.status
    finally:
        session.end()
        shutil.rmtree(root, ignore_errors=True)


def make_root() -> Path:
    return Path(tempfile.mkdtemp(prefix="tolvar-desktop-"))
