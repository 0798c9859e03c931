"""A desktop for as long as one command runs."""

import os
import shutil
import signal
import sys
from pathlib import Path

from . import processes
from .session import DesktopError, Session, complete_environment, make_root, supervise


def run(window_manager: str, command: list[str]) -> int:
    """The desktop lives in a second process, so that it is also cleared away when this one is
    killed outright."""
    root = make_root()
    parent = os.getpid()
    supervisor = processes.fork_off(
        lambda: supervise_command(root, window_manager, command, parent))
    for number in processes.ENDING_SIGNALS:
        signal.signal(number, lambda number, _frame: os.kill(supervisor, number))
    _, status = os.waitpid(supervisor, 0)
    shutil.rmtree(root, ignore_errors=True)
    return processes.exit_code(status)


def supervise_command(root: Path, window_manager: str, command: list[str], parent: int) -> int:
    def work(session: Session) -> int:
        if os.getppid() != parent:
            raise processes.Interrupted(signal.SIGTERM)
        try:
            pid = session.family.spawn(command, complete_environment(session.environment))
        except OSError as error:
            raise DesktopError(f"{command[0]}: {error.strerror}") from error
        status = session.family.wait_for(pid)
        if ended := session.ended_servers():
            print(f"desktop: ended before the command did: {', '.join(ended)}", file=sys.stderr)
        return status

    processes.prctl(processes.PR_SET_PDEATHSIG, signal.SIGTERM)
    return supervise(root, window_manager, work)
