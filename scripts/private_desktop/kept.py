"""The desktop of this checkout that stays until it is stopped."""

import fcntl
import json
import os
import select
import shlex
import signal
import socket
from pathlib import Path

from . import processes
from .session import (FOREIGN_VARIABLES, DesktopError, Session, complete_environment, make_root,
                      supervise, wait_until)

ROOT = Path(__file__).resolve().parents[2]
STATE = Path(os.environ.get("TOLVAR_DESKTOP_STATE", ROOT / "build" / "desktop"))


def find() -> dict | None:
    """What is known of the started desktop, or nothing when none runs."""
    try:
        with open(STATE / "lock") as lock:
            fcntl.flock(lock, fcntl.LOCK_SH | fcntl.LOCK_NB)
        return None
    except FileNotFoundError:
        return None
    except BlockingIOError:
        pass
    try:
        return json.loads((STATE / "state.json").read_text())
    except FileNotFoundError:
        return None


def require() -> dict:
    if not (desktop := find()):
        raise DesktopError("not running: scripts/desktop start")
    return desktop


def start(window_manager: str) -> dict:
    """Starts the kept desktop unless it runs; returns what is to be known of it."""
    if desktop := find():
        if desktop["window_manager"] != window_manager:
            raise DesktopError(f"it runs already, with {desktop['window_manager']}")
        return desktop
    STATE.mkdir(parents=True, exist_ok=True)
    with open(STATE / "lock", "w") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        (STATE / "state.json").unlink(missing_ok=True)
        answer, answer_end = os.pipe()
        processes.fork_off(lambda: keep_desktop(window_manager, answer_end))
    os.close(answer_end)
    with open(answer) as messages:
        complaint = messages.read()
    if not (desktop := find()):
        raise DesktopError(complaint.removeprefix("desktop: ").strip() or "it did not start")
    return desktop


def keep_desktop(window_manager: str, answer: int) -> int:
    """The kept desktop's own process. Whatever it writes until the desktop is ready goes to the
    end of the pipe `answer`, which is closed then."""
    os.setsid()
    nowhere = os.open(os.devnull, os.O_RDWR)
    os.dup2(nowhere, 0)
    os.dup2(answer, 1)
    os.dup2(answer, 2)
    os.close(answer)
    os.chdir("/")

    def work(session: Session) -> int:
        with socket.socket(socket.AF_UNIX) as control:
            control.bind(str(session.root / "control"))
            control.listen()
            publish(session)
            os.dup2(nowhere, 1)
            os.dup2(nowhere, 2)
            serve(session, control)
        return 0

    try:
        return supervise(make_root(), window_manager, work)
    finally:
        (STATE / "state.json").unlink(missing_ok=True)


def publish(session: Session) -> None:
    state = {"supervisor": os.getpid(), "root": str(session.root),
             "window_manager": session.window_manager, "environment": session.environment}
    fresh = STATE / "state.json.new"
    fresh.write_text(json.dumps(state, indent=1))
    fresh.rename(STATE / "state.json")


def serve(session: Session, control: socket.socket) -> None:
    """Starts the programs that are asked for, until an ending signal comes or the display ends."""
    signals, signals_end = os.pipe()
    for end in (signals, signals_end):
        os.set_blocking(end, False)
    signal.signal(signal.SIGCHLD, lambda *_: None)
    signal.set_wakeup_fd(signals_end, warn_on_full_buffer=False)
    while "Xvfb" not in session.ended_servers():
        readable, _, _ = select.select([signals, control], [], [])
        if signals in readable:
            os.read(signals, 4096)
        if control in readable:
            connection, _ = control.accept()
            with connection, connection.makefile("rw") as stream:
                answer_request(session, stream)


def answer_request(session: Session, stream) -> None:
    try:
        request = json.loads(stream.readline())
        name = Path(request["command"][0]).name
        session.spawn_in_background(
            request["command"], request["environment"], name, cwd=request["directory"])
        stream.write("started\n")
    except (OSError, ValueError, KeyError) as error:
        stream.write(f"{error}\n")


def stop() -> None:
    if not (desktop := find()):
        return
    os.kill(desktop["supervisor"], signal.SIGTERM)
    wait_until("the end of the desktop", lambda: find() is None, 4 * processes.GRACE_SECONDS)


def run(command: list[str], background: bool) -> int:
    desktop = require()
    environment = complete_environment(desktop["environment"])
    if background:
        return start_in_background(desktop, command, environment)
    try:
        os.execvpe(command[0], command, environment)
    except OSError as error:
        raise DesktopError(f"{command[0]}: {error.strerror}") from error


def start_in_background(desktop: dict, command: list[str], environment: dict[str, str]) -> int:
    request = {"command": command, "environment": environment, "directory": os.getcwd()}
    with socket.socket(socket.AF_UNIX) as control:
        control.connect(f"{desktop['root']}/control")
        with control.makefile("rw") as stream:
            stream.write(json.dumps(request) + "\n")
            stream.flush()
            answer = stream.readline().strip()
    if answer != "started":
        raise DesktopError(answer)
    return 0


def shell_line(environment: dict[str, str]) -> str:
    assignments = " ".join(f"{name}={shlex.quote(value)}" for name, value in environment.items())
    return f"unset {' '.join(FOREIGN_VARIABLES)}; export {assignments}"
