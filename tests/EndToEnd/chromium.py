"""Chromium, driven through the pipe that it offers to debuggers (the DevTools protocol)."""

import fcntl
import itertools
import json
import os
import threading
import time
from concurrent.futures import Future
from pathlib import Path

from browser import BLANK, Browser, Commit
from support import PATIENCE_SECONDS, wait_until


class DevTools:
    """Commands and their answers, and events; each a JSON text that ends with NUL."""

    def __init__(self, reading, writing, on_event):
        self._reading, self._writing = reading, writing
        self._on_event = on_event
        self._numbers = itertools.count(1)
        self._waiting = {}
        threading.Thread(target=self._listen, daemon=True).start()

    def send(self, method, session=None, **parameters):
        """The answer, once it comes."""
        command = {"id": next(self._numbers), "method": method, "params": parameters}
        if session:
            command["sessionId"] = session
        answer = self._waiting[command["id"]] = Future()
        os.write(self._writing, json.dumps(command).encode() + b"\0")
        return answer

    def call(self, method, session=None, **parameters):
        answer = self.send(method, session, **parameters).result(PATIENCE_SECONDS)
        if "error" in answer:
            raise RuntimeError(f"{method}: {answer['error']['message']}")
        return answer["result"]

    def _listen(self):
        unread = b""
        while piece := os.read(self._reading, 1 << 16):
            *messages, unread = (unread + piece).split(b"\0")
            for message in map(json.loads, messages):
                if "id" in message:
                    self._waiting.pop(message["id"]).set_result(message)
                else:
                    self._on_event(message["method"], message["params"], message.get("sessionId"))
        os.close(self._reading)
        os.close(self._writing)


class Chromium(Browser):
    NAME = "chromium"
    WINDOW_CLASS = "Chromium"
    NEW_PRIVATE_WINDOW = ("Control_L", "Shift_L", "n")

    def __init__(self, websites):
        super().__init__()
        self._port = websites.port
        self._tools = None
        self._sessions = {}  # of the debugger, by tab
        self._commits = []
        self._asking = set()  # sessions whose page asks before it is left

    def start(self):
        self._sessions, self._commits, self._asking = {}, [], set()
        our_end, its_end = self._launch()
        self._tools = DevTools(*our_end, self._note)
        for descriptor in its_end:
            os.close(descriptor)
        self._tools.call("Target.setAutoAttach", autoAttach=True, waitForDebuggerOnStart=False,
                         flatten=True, filter=[{"type": "page"}])
        wait_until("Chromium shows a tab", self.tabs)

    def _launch(self):
        """With one pipe to it and one from it, which it knows as 3 and 4."""
        theirs_in, ours_out = map(out_of_the_way, os.pipe())
        ours_in, theirs_out = map(out_of_the_way, os.pipe())
        command = [
            "chromium", "--no-first-run", "--disable-gpu", "--password-store=basic",
            "--remote-debugging-pipe", "--hide-crash-restore-bubble",
            f"--host-resolver-rules=MAP * 127.0.0.1:{self._port}"]
        if os.geteuid() == 0:
            command.append("--no-sandbox")
        self.spawn(["/bin/sh", "-c", f'exec "$@" 3<&{theirs_in} 4>&{theirs_out}', "sh",
                    *command, BLANK], pass_fds=(theirs_in, theirs_out))
        return (ours_in, ours_out), (theirs_in, theirs_out)

    def _note(self, event, told, session):
        match event:
            case "Target.attachedToTarget":
                self._sessions[told["targetInfo"]["targetId"]] = told["sessionId"]
                self._tools.send("Page.enable", told["sessionId"])
            case "Page.frameNavigated" if "parentId" not in told["frame"]:
                self._commits.append(Commit(time.monotonic(), told["frame"]["id"],
                                            told["frame"]["url"]))
            case "Page.navigatedWithinDocument":
                self._commits.append(Commit(time.monotonic(), told["frameId"], told["url"]))
            case "Page.javascriptDialogOpening":
                self._asking.add(session)
            case "Page.javascriptDialogClosed":
                self._asking.discard(session)

    def tabs(self):
        targets = self._tools.call("Target.getTargets")["targetInfos"]
        return {target["targetId"]: target["url"] for target in targets if target["type"] == "page"}

    def commits(self):
        return list(self._commits)

    def visit(self, tab, url):
        self._tools.send("Page.navigate", self._session(tab), url=url)

    def open_tab(self, url, in_front=True):
        return self._open(url, background=not in_front)

    def open_window(self, url):
        return self._open(url, newWindow=True)

    def show(self, tab):
        self._tools.call("Target.activateTarget", targetId=tab)

    def close(self, tab):
        self._tools.call("Target.closeTarget", targetId=tab)

    def asks_before_leaving(self):
        return bool(self._asking)

    def stay_on_page(self):
        self._tools.call("Page.handleJavaScriptDialog", next(iter(self._asking)), accept=False)

    def allow_private(self, allowed):
        """By the switch on the extension's page."""
        settings = self.open_tab("chrome://extensions")
        switch = """chrome.developerPrivate.getExtensionsInfo().then(([extension]) =>
            chrome.developerPrivate.updateExtensionConfiguration(
                {extensionId: extension.id, incognitoAccess: ALLOWED}))"""
        wait_until("the extension's page is there", lambda: self._tools.call(
            "Runtime.evaluate", self._session(settings),
            expression="chrome.developerPrivate !== undefined")["result"].get("value"))
        told = self._tools.call("Runtime.evaluate", self._session(settings), awaitPromise=True,
                                expression=switch.replace("ALLOWED", json.dumps(allowed)))
        if "exceptionDetails" in told:
            raise AssertionError(told["exceptionDetails"])
        self.close(settings)

    def _open(self, url, **where):
        return self._tools.call("Target.createTarget", url=url, **where)["targetId"]

    def _session(self, tab):
        wait_until("the debugger has the tab", lambda: tab in self._sessions)
        return self._sessions[tab]


def out_of_the_way(descriptor):
    """The descriptor with a number that no program expects something of."""
    moved = fcntl.fcntl(descriptor, fcntl.F_DUPFD_CLOEXEC, 10)
    os.close(descriptor)
    return moved
