"""Chromium, driven through the pipe that it offers to debuggers (the DevTools protocol)."""

import base64
import fcntl
import hashlib
import itertools
import json
import os
import subprocess
import threading
import time
from concurrent.futures import Future

from browser import BLANK, EXTENSION, Browser, Commit
from support import PATIENCE_SECONDS, wait_until


# It refuses to run with its sandbox where everything may be done.
COMMAND = ["chromium", "--no-first-run", *(["--no-sandbox"] if os.geteuid() == 0 else [])]


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
        manifest = json.loads((EXTENSION / "chromium" / "manifest.json").read_text())
        self._extension = extension_id(manifest["key"])
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
        self.spawn(["/bin/bash", "-c", f'exec "$@" 3<&{theirs_in} 4>&{theirs_out}', "bash",
                    *COMMAND, "--disable-gpu", "--password-store=basic", "--remote-debugging-pipe",
                    "--hide-crash-restore-bubble",
                    f"--host-resolver-rules=MAP * 127.0.0.1:{self._port}", BLANK],
                   pass_fds=(theirs_in, theirs_out))
        return (ours_in, ours_out), (theirs_in, theirs_out)

    def _note(self, event, told, session):
        match event:
            case "Target.attachedToTarget":
                self._follow(told["targetInfo"]["targetId"], told["sessionId"])
            case "Page.frameNavigated" if "parentId" not in told["frame"]:
                frame = told["frame"]
                self._add_commit(frame["id"], frame["url"] + frame.get("urlFragment", ""))
            case "Page.navigatedWithinDocument":
                self._add_commit(told["frameId"], told["url"])
            case "Page.javascriptDialogOpening":
                self._asking.add(session)
            case "Page.javascriptDialogClosed":
                self._asking.discard(session)

    def _follow(self, tab, session):
        """Knows of all that the tab shows from now on, and of what it shows already."""
        def add_present(answer):
            if "result" in answer.result():
                frame = answer.result()["result"]["frameTree"]["frame"]
                self._add_commit(tab, frame["url"] + frame.get("urlFragment", ""))

        self._sessions[tab] = session
        self._tools.send("Page.enable", session)
        self._tools.send("Page.getFrameTree", session).add_done_callback(add_present)
        self._tools.send("Runtime.runIfWaitingForDebugger", session)

    def _add_commit(self, tab, url):
        self._commits.append(Commit(self.now(), tab, url))

    def now(self):
        return time.monotonic()

    def tabs(self):
        """Those that the debugger has; what the list of targets calls an address is where a tab is on
        its way to."""
        shown = {commit.tab: commit.url for commit in self._commits}
        targets = self._tools.call("Target.getTargets")["targetInfos"]
        return {target["targetId"]: shown[target["targetId"]] for target in targets
                if target["type"] == "page" and target["targetId"] in shown}

    def commits(self):
        return list(self._commits)

    def visit(self, tab, url):
        self._tools.send("Page.navigate", self._sessions[tab], url=url)

    def awaits_address(self, tab):
        return not self._evaluate(tab, "document.hasFocus()")

    def open_tab(self, url, in_front=True):
        return self._open(url, background=not in_front)

    def open_window(self, url):
        return self._open(url, newWindow=True)

    def split(self, tab):
        self.window()
        return self.open_by(lambda: self.hands.press_together("Alt_L", "Shift_L", "n"))

    def show(self, tab):
        self._tools.call("Target.activateTarget", targetId=tab)

    def close(self, tab):
        self._tools.call("Target.closeTarget", targetId=tab)

    def asks_before_leaving(self):
        return bool(self._asking)

    def stay_on_page(self):
        self._tools.call("Page.handleJavaScriptDialog", next(iter(self._asking)), accept=False)

    def leave_page(self):
        self._tools.call("Page.handleJavaScriptDialog", next(iter(self._asking)), accept=True)

    def allow_private(self, allowed):
        """As the switch on the extension's page does it."""
        settings = self.open_tab("chrome://extensions")
        wait_until("the extension's page is there",
                   lambda: self._evaluate(settings, "chrome.developerPrivate !== undefined"))
        self._evaluate(settings, "chrome.developerPrivate.updateExtensionConfiguration"
                       + f"({{extensionId: '{self._extension}', incognitoAccess: {json.dumps(allowed)}}})")
        self.close(settings)

    def stop_extension(self):
        workers = self._workers()
        for worker in workers:
            self._tools.call("Target.closeTarget", targetId=worker)
        wait_until("the script has ended", lambda: not set(workers) & set(self._workers()))

    def open_other_profile(self):
        """In the same process, which the command finds."""
        def command():
            subprocess.run([*COMMAND, "--profile-directory=Other", BLANK], check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

        return self, self.open_by(command)

    def _workers(self):
        targets = self._tools.call("Target.getTargets", filter=[{"type": "service_worker"}])
        return [target["targetId"] for target in targets["targetInfos"]
                if self._extension in target["url"]]

    def _evaluate(self, tab, expression):
        told = self._tools.call("Runtime.evaluate", self._sessions[tab], expression=expression,
                                awaitPromise=True, userGesture=True)
        if "exceptionDetails" in told:
            raise AssertionError(told["exceptionDetails"])
        return told["result"].get("value")

    def _open(self, url, **where):
        tab = self._tools.call("Target.createTarget", url=url, **where)["targetId"]
        wait_until("the debugger has the tab", lambda: tab in self.tabs())
        return tab


def extension_id(key):
    """How Chromium calls the extension of that public key."""
    digits = hashlib.sha256(base64.b64decode(key)).hexdigest()[:32]
    return "".join("abcdefghijklmnop"[int(digit, 16)] for digit in digits)


def out_of_the_way(descriptor):
    """The descriptor with a number that no program expects something of."""
    moved = fcntl.fcntl(descriptor, fcntl.F_DUPFD_CLOEXEC, 10)
    os.close(descriptor)
    return moved
