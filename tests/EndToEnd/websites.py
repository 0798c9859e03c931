"""Pages for the browsers of the end-to-end tests, under whatever host they are asked for."""

import sys
import threading
from html import escape
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import parse_qs, quote, urlsplit


class Websites:
    """A server on this computer for http alone. A browser gets here from any host, because its own
    looking up of names leads here or because it takes the server for its proxy.

    A page is one area that can be clicked: it does what the page is for. Its title tells when it can be,
    and that it was.
    """

    def __init__(self):
        self._server = Server(("127.0.0.1", 0), Visit)
        self.port = self._server.server_port
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def end(self):
        self._server.shutdown()
        self._server.server_close()


def link(host, target, in_new_tab=False):
    """The address of a page whose click leads on."""
    return f"http://{host}/{'open' if in_new_tab else 'link'}?to={quote(target, safe='')}"


def redirect(host, target):
    """The address of a page that sends its visitor on at once."""
    return f"http://{host}/redirect?to={quote(target, safe='')}"


def stateful(host):
    """The address of a page whose click changes its address without loading anything."""
    return f"http://{host}/stateful"


def clingy(host):
    """The address of a page that, once clicked, has the browser ask before it is left."""
    return f"http://{host}/clingy"


class Server(ThreadingHTTPServer):
    def handle_error(self, request, client_address):
        """Browsers hang up when a tab is sent elsewhere."""
        if not isinstance(sys.exception(), ConnectionError):
            super().handle_error(request, client_address)


CLICKS = {
    "/link": "location.href = '{to}'",
    "/open": "window.open('{to}')",
    "/stateful": "history.pushState(null, '', '/later/' + history.length)",
    "/clingy": "onbeforeunload = event => event.preventDefault()",
}


DRAWN, CLICKED = "This page is drawn", "This page was clicked"
WHEN_DRAWN = f"requestAnimationFrame(() => setTimeout(() => document.title = '{DRAWN}'))"


class Visit(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        address = urlsplit(self.path)
        target = parse_qs(address.query).get("to", [""])[0]
        if address.path == "/redirect":
            self._answer(302, "", [("Location", target)])
        elif address.path == "/favicon.ico":
            self._answer(404, "")
        elif address.path == "/generate_204":
            # A browser that wonders whether it must log in somewhere first need not.
            self._answer(204, "")
        else:
            self._answer(200, page(self.headers["Host"], CLICKS.get(address.path, ""), target))

    def _answer(self, status, text, headers=()):
        body = text.encode()
        self.send_response(status)
        for name, value in (*headers, ("Content-Type", "text/html; charset=utf-8"),
                            ("Content-Length", len(body)), ("Cache-Control", "no-store")):
            self.send_header(name, str(value))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


def page(host, on_click, target):
    action = escape(f"document.title = '{CLICKED}'; " + on_click.format(to=target))
    return (f"<!doctype html><body onclick=\"{action}\" onload=\"{WHEN_DRAWN}\" "
            f"style='margin:0;height:100vh;background:seagreen;color:white'><h1>{escape(host)}</h1>")
