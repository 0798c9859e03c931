// Tells Tolvar which tab each window of this browser shows, and sends a tab to about:blank when Tolvar
// says so. It decides nothing itself and speaks to no one but the native-messaging host on this
// computer; with no host it does nothing.
//
//   to the host     {"shown": [{"window": 4711, "tab": 93, "url": "https://example.com/"}]}
//   from the host   {"command": "list"}                  say again what is shown
//                   {"command": "blank", "tabs": [93]}   send these tabs to about:blank
//
// The browser may end this script while the host is away and starts it afresh at the next event, so
// nothing here needs to outlive it.
"use strict";

const api = globalThis.browser ?? globalThis.chrome;

const hostName = "app.tolvar.browser";
const blank = "about:blank";
const firstDelay = 250; // ms until a lost host is looked for again; doubled while it cannot be had
const longestDelay = 40000; // longer than browsers keep an idle script: without a host it ends
const steadyAfter = 5000; // ms after which a host counts as one that can be had
const longestUrl = 8192; // characters
const longestUrls = 128 * 1024; // characters of all in a picture: even escaped, the host accepts it at once

/** The present connection to the host; null between two of them. */
let connection = null;
let delay = firstDelay;

/** A host that runs, and the picture of the windows that it was sent last. */
class Connection {
    constructor(port) {
        this.port = port;
        this.began = Date.now();
        this.sent = [];
        this.asked = false; // for a picture, even one that was sent before
        this.looking = false;
        this.lookAgain = false;
    }

    /** Sends the picture if it differs from the one sent last, or if it was asked for. Looks once more
        where something happened while it looked, so that the last picture sent is a true one. */
    async look(asked = false) {
        this.asked ||= asked;
        this.lookAgain = true;
        if (this.looking) {
            return;
        }
        this.looking = true;
        try {
            while (this.lookAgain && this === connection) {
                this.lookAgain = false;
                this.send(await shownTabs());
            }
        } finally {
            // Also where the browser could not tell: the next event asks it again.
            this.looking = false;
        }
    }

    send(shown) {
        if (this === connection && (this.asked || !equal(shown, this.sent))) {
            this.asked = false;
            this.sent = shown;
            this.port.postMessage({shown});
        }
    }

    obey(message) {
        if (message?.command === "list") {
            this.look(true);
        } else if (message?.command === "blank" && Array.isArray(message.tabs)) {
            this.sent.filter(({tab}) => message.tabs.includes(tab)).forEach(sendAway);
        }
    }
}

/** The tab in front in every window, and where a window is split in two, the one beside it. */
async function shownTabs() {
    const front = await api.tabs.query({active: true});
    const splits = front.map(tab => tab.splitViewId).filter(split => split !== undefined && split !== -1);
    const halves = await Promise.all(splits.map(splitViewId => api.tabs.query({splitViewId})));
    const shown = [...front, ...halves.flat().filter(tab => !tab.active)];
    const longest = Math.min(longestUrl, Math.floor(longestUrls / shown.length));
    return shown.map(({windowId, id, url}) => ({window: windowId, tab: id, url: shortened(url ?? "", longest)}));
}

/** Of an address too long to send, what says whose page it is. */
function shortened(url, longest) {
    return url.length <= longest ? url : new URL(url).origin.slice(0, longest);
}

function equal(some, others) {
    return JSON.stringify(some) === JSON.stringify(others);
}

/** Leaves a tab alone that went to another host since it was told of: Tolvar hears of that anyway. One
    that is blank already, or about to be, is not sent twice: the second time could hit the next page. A
    tab that is gone, or held by the user at this moment, is Tolvar's to see at its next look. */
async function sendAway({tab, url}) {
    try {
        const {host} = new URL(url);
        const now = await api.tabs.get(tab);
        if (host !== "" && host === new URL(now.url).host && now.pendingUrl !== blank) {
            await api.tabs.update(tab, {url: blank});
        }
    } catch {
        // Gone or held.
    }
}

function connect() {
    const port = api.runtime.connectNative(hostName);
    const made = connection = new Connection(port);
    port.onMessage.addListener(message => {
        delay = firstDelay;
        made.obey(message);
    });
    port.onDisconnect.addListener(() => {
        void api.runtime.lastError; // read, so that the browser does not report it as an error of ours
        connectLater(made);
    });
    made.look(true);
}

/** Soon after a host that ran, ever later while none can be started. */
function connectLater(lost) {
    connection = null;
    delay = Date.now() - lost.began > steadyAfter ? firstDelay : delay;
    setTimeout(connect, delay);
    delay = Math.min(2 * delay, longestDelay);
}

const look = () => connection?.look();

api.tabs.onUpdated.addListener((_tab, change) => ("url" in change || "splitViewId" in change) && look());
for (const event of [
    api.tabs.onActivated, api.tabs.onAttached, api.tabs.onDetached, api.tabs.onRemoved,
    api.tabs.onReplaced, api.windows.onCreated, api.windows.onRemoved,
]) {
    event.addListener(look);
}

// Whoever listens here is started together with the browser; what starts the script connects.
api.runtime.onStartup.addListener(() => {});
api.runtime.onInstalled.addListener(() => {});
connect();
