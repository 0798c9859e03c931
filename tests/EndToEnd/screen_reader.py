"""What a screen reader knows of the program, and does to it: the accessibility bus (AT-SPI 2) of
the private desktop, and nothing else."""

import atexit
import subprocess

import dbus

from support import wait_until

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


def _open_accessibility_bus():
    """As a desktop does at login, and as a screen reader asks programs to be read."""
    launcher = subprocess.Popen([LAUNCHER, "--launch-immediately"], stderr=subprocess.DEVNULL)
    atexit.register(launcher.terminate)
    bus = dbus.SessionBus()
    wait_until("the accessibility bus is there", lambda: bus.name_has_owner("org.a11y.Bus"))
    status = dbus.Interface(bus.get_object("org.a11y.Bus", "/org/a11y/bus"), dbus.PROPERTIES_IFACE)
    status.Set("org.a11y.Status", "IsEnabled", True)


# The library looks for the bus once, when it is imported.
_open_accessibility_bus()
import pyatspi  # noqa: E402


class ScreenReader:
    """Reads the program."""

    def everything(self):
        """Whatever of the program is showing."""
        for program in pyatspi.Registry.getDesktop(0):
            if program and program.name == "tolvar":
                yield from _showing(program)

    def names(self, role):
        return [thing.name for thing in self.everything() if thing.getRoleName() == role]

    def find(self, role, name):
        """The one thing of this role that is called so, as soon as it is there."""
        found = []

        def is_there():
            found[:] = [thing for thing in self.everything()
                        if thing.getRoleName() == role and thing.name == name]
            return bool(found)

        try:
            wait_until(f"{role} “{name}”", is_there)
        except AssertionError as missing:
            there = "\n".join(f"  {thing.getRoleName()} “{thing.name}”"
                              for thing in self.everything())
            raise AssertionError(f"{missing}; there are:\n{there}") from None
        return found[0]

    def press(self, name, role="push button"):
        action = self.find(role, name).queryAction()
        names = [action.getName(index) for index in range(action.nActions)]
        action.doAction(names.index("Press" if "Press" in names else "Toggle"))

    def write(self, name, text):
        self.find("text", name).queryEditableText().setTextContents(text)

    def has_state(self, role, name, state):
        return self.find(role, name).getState().contains(state)


def _showing(thing):
    try:
        if thing.getRoleName() != "application" and not thing.getState().contains(
                pyatspi.STATE_SHOWING):
            return
        yield thing
        children = list(thing)
    except Exception:  # it is gone: every answer of a thing that is no more is an error of its own
        return
    for child in children:
        if child:
            yield from _showing(child)
