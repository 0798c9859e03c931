"""Firefox, driven through the socket that it offers to debuggers (Marionette)."""

import itertools
import json
import shutil
import socket
import time

from browser import BLANK, EXTENSION, Browser, Commit
from support import PATIENCE_SECONDS, wait_until

EXTENSION_ID = "browser@tolvar.app"

# Every script finds these.
PRELUDE = """
const windows = () => [...Services.wm.getEnumerator("navigator:browser")].filter(w => w.gBrowser);
const tabs = () => windows().flatMap(w => w.gBrowser.tabs);
const tabOf = id => tabs().find(tab => tab.linkedBrowser.browserId === id);
const front = () => Services.wm.getMostRecentWindow("navigator:browser");
const principal = Services.scriptSecurityManager.getSystemPrincipal();
const {NavigableManager: memory} =
    ChromeUtils.importESModule("chrome://remote/content/shared/NavigableManager.sys.mjs");
"""

# Keeps a journal of what all tabs show, and keeps Marionette from answering "Leave page?" itself.
WATCH = """
const journal = memory.journal = [];
const listener = {onLocationChange(browser, progress, _request, location) {
    if (progress.isTopLevel) journal.push([Date.now() / 1000, browser.browserId, location.spec]);
}};
const watch = window => window.gBrowser.addTabsProgressListener(listener);
windows().forEach(watch);
Services.obs.addObserver(watch, "browser-delayed-startup-finished");
for (const marionette of Services.obs.enumerateObservers("common-dialog-loaded"))
    Services.obs.removeObserver(marionette, "common-dialog-loaded");
"""

ALLOW_PRIVATE = """
const {ExtensionPermissions} =
    ChromeUtils.importESModule("resource://gre/modules/ExtensionPermissions.sys.mjs");
const {AddonManager} = ChromeUtils.importESModule("resource://gre/modules/AddonManager.sys.mjs");
const [id, allowed, done] = arguments;
const permission = {permissions: ["internal:privateBrowsingAllowed"], origins: []};
ExtensionPermissions[allowed ? "add" : "remove"](id, permission)
    .then(() => AddonManager.getAddonByID(id)).then(addon => addon.reload()).then(() => done(true));
"""

ASKS = """
return tabs()
    .flatMap(tab => tab.ownerDocument.defaultView.gBrowser.getTabDialogBox(tab.linkedBrowser)
        .getContentDialogManager()._dialogs)
    .some(dialog => dialog.frameContentWindow?.Dialog?.args.inPermitUnload);
"""


class Marionette:
    """Commands and their answers, one by one; each a JSON text behind its length."""

    def __init__(self, port):
        self._socket = socket.create_connection(("127.0.0.1", port), PATIENCE_SECONDS)
        self._stream = self._socket.makefile("rb")
        self._numbers = itertools.count(1)
        self._read()

    def call(self, method, **parameters):
        command = json.dumps([0, next(self._numbers), method, parameters]).encode()
        self._socket.sendall(b"%d:%b" % (len(command), command))
        _, _, error, result = self._read()
        if error:
            raise RuntimeError(f"{method}: {error['message']}")
        return result

    def _read(self):
        length = b""
        while not length.endswith(b":"):
            digit = self._stream.read(1)
            if not digit:
                raise ConnectionError("Firefox has ended")
            length += digit
        return json.loads(self._stream.read(int(length[:-1])))


class Firefox(Browser):
    NAME = "firefox-esr"
    WINDOW_CLASS = "firefox-esr"
    NEW_PRIVATE_WINDOW = ("Control_L", "Shift_L", "p")
    WAITS_FOR_ITS_ANSWER = False

    def __init__(self, websites, home, profile="profile"):
        super().__init__()
        self._websites, self._home = websites, home
        self._profile = home / profile
        # The extension is in it as if the user had added it.
        (self._profile / "extensions").mkdir(parents=True)
        shutil.copy(EXTENSION / "tolvar.xpi", self._profile / "extensions" / f"{EXTENSION_ID}.xpi")
        (self._profile / "user.js").write_text("".join(
            f"user_pref({json.dumps(name)}, {json.dumps(value)});\n"
            for name, value in preferences(websites.port).items()))
        self._marionette = None

    def start(self):
        port_file = self._profile / "MarionetteActivePort"
        port_file.unlink(missing_ok=True)
        self.spawn(["firefox-esr", "--no-remote", "--profile", str(self._profile), "--marionette",
                    "--remote-allow-system-access", BLANK])
        wait_until("Firefox can be driven", lambda: port_file.exists() and port_file.read_text())
        self._marionette = Marionette(int(port_file.read_text()))
        self._marionette.call("WebDriver:NewSession")
        self._marionette.call("Marionette:SetContext", value="chrome")
        wait_until("Firefox shows a tab", self.tabs)
        self._run(WATCH)

    def tabs(self):
        return dict(self._run("return tabs().map(tab => "
                              "[tab.linkedBrowser.browserId, tab.linkedBrowser.currentURI.spec])"))

    def commits(self):
        return [Commit(*entry) for entry in self._run("return memory.journal")]

    def now(self):
        return time.time()

    def visit(self, tab, url):
        self._run("tabOf(arguments[0]).linkedBrowser.fixupAndLoadURIString(arguments[1], "
                  "{triggeringPrincipal: principal})", tab, url)

    def awaits_address(self, tab):
        return self._run("return tabOf(arguments[0]).ownerDocument.defaultView.gURLBar.focused", tab)

    def open_tab(self, url, in_front=True):
        return self._run("return windows()[0].gBrowser.addTab(arguments[0], {triggeringPrincipal:"
                         " principal, inBackground: !arguments[1]}).linkedBrowser.browserId", url, in_front)

    def open_window(self, url):
        return self.open_by(lambda: self._run("front().openTrustedLinkIn(arguments[0], 'window')", url))

    def split(self, tab):
        other = self.open_tab(BLANK)
        self._run("const tab = tabOf(arguments[0]); "
                  "tab.ownerDocument.defaultView.gBrowser.addTabSplitView([tab, tabOf(arguments[1])])",
                  tab, other)
        self.show(other)
        return other

    def show(self, tab):
        self._run("const tab = tabOf(arguments[0]); tab.ownerDocument.defaultView.gBrowser.selectedTab = tab", tab)

    def close(self, tab):
        self._run("const tab = tabOf(arguments[0]); "
                  "tab.ownerDocument.defaultView.gBrowser.removeTab(tab, {skipPermitUnload: true})", tab)

    def asks_before_leaving(self):
        return self._run(ASKS)

    def allow_private(self, allowed):
        """As the switch on the extension's page does it."""
        self._run(ALLOW_PRIVATE, EXTENSION_ID, allowed, method="WebDriver:ExecuteAsyncScript")

    def stop_extension(self):
        stopped = self._run("const [id, done] = arguments; WebExtensionPolicy.getByID(id).extension"
                            ".terminateBackground({ignoreDevToolsAttached: true,"
                            " disableResetIdleForTest: true}).then(() => done(true))",
                            EXTENSION_ID, method="WebDriver:ExecuteAsyncScript")
        assert stopped

    def open_other_profile(self):
        """In a process of its own."""
        other = Firefox(self._websites, self._home, "other")
        other.start()
        return other, next(iter(other.tabs()))

    def _run(self, script, *arguments, method="WebDriver:ExecuteScript"):
        return self._marionette.call(method, script=PRELUDE + script, args=arguments)["value"]


def preferences(port):
    """A quiet profile whose every page comes from the port, and that takes an extension nobody signed."""
    return {
        "marionette.port": 0,
        "remote.prefs.recommended": False,
        "network.proxy.type": 1,
        "network.proxy.http": "127.0.0.1",
        "network.proxy.http_port": port,
        "dom.security.https_first": False,
        "xpinstall.signatures.required": False,
        "extensions.autoDisableScopes": 0,
        "browser.startup.homepage": BLANK,
        "browser.startup.page": 1,
        "browser.newtabpage.enabled": False,
        "browser.aboutwelcome.enabled": False,
        "browser.tabs.warnOnClose": False,
        "browser.shell.checkDefaultBrowser": False,
        "browser.sessionstore.resume_from_crash": False,
        "browser.urlbar.suggest.quicksuggest": False,
        "toolkit.startup.max_resumed_crashes": -1,
        "datareporting.policy.dataSubmissionEnabled": False,
        "termsofuse.bypassNotification": True,
        "network.captive-portal-service.enabled": False,
        "network.connectivity-service.enabled": False,
        "app.update.enabled": False,
        "browser.safebrowsing.downloads.enabled": False,
    }
