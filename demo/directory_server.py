#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""The community's server on this machine: the station list with its size probe, the play report, the web pages.

    demo/directory_server.py [--port N] [--port-file FILE] [--request-log FILE] [--list FILE] [--set NAME=VALUE ...]

--list gives a list of your own, as tools/make-stations makes it, in place of the invented one. The demonstration radio serves the same pages at its own address. How the server behaves, and misbehaves, is steered by
its settings (the table SETTINGS below), from the command line or while it runs:

    /control/set?probe=huge&list=stall    changes settings and answers with all of them
    /control/reset                        back to what the server was started with
    /control/requests                     every request line since the start or the last reset
    /control/list                         the bytes that the next full list consists of

Requests may be written with backslashes. Listens on the loopback address only. Ends on SIGTERM.
"""
import argparse
import collections
import http.server
import os
import select
import signal
import socket
import struct
import sys
import threading
import time
import urllib.parse

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import directory_data  # noqa: E402
import pages  # noqa: E402
from replies import head, reply  # noqa: E402

LIST_PATH = "/lumotune.brelt/lt_list.php"
REPORT_PATH = "/orb/lt_all.php"
PIECE_SECONDS = 0.05   # between two pieces of a slow reply
HOLD_SECONDS = 300     # how long a stalled reply is held open at most
SITE_HOST = "orb.cz"

# Name: (the value at start, what it may be: a type or the words allowed, what it does).
SETTINGS = {
    "stations": ("320", int, "how many stations the list has"),
    "version": ("1", int, "which list; a later one differs by its last station"),
    "seconds": ("3.5", float, "how long the list takes to arrive"),
    "probe_seconds": ("0.3", float, "how long the probe's answer is delayed"),
    "info": ("openurl", ("none", *directory_data.INFO_ACTIONS), "what a click on the information line does"),
    "advert": ("shown", ("shown", "hidden", "none"), "the advertisement line"),
    "orders": ("", str, "further lines of the list that the window obeys, with | between them"),
    "probe": ("good", ("good", "refused", "refused_by_address", "no_size", "nothing", "partial", "two", "negative", "zero",
                       "word", "huge", "less", "more", "binary", "long_line", "not_found", "broken", "stall", "dies"),
              "the answer to the size probe"),
    "list": ("good", ("good", "changes", "stall", "silent", "less", "more", "empty", "binary", "not_found", "broken",
                      "dies"), "the answer to the request of the list; changes: each one is a later version"),
    "reply": ("lt:ok", str, "the lines of the play report's reply, with | between them"),
    "report": ("good", ("good", "not_found", "stall"), "the answer to a play report"),
}


class Directory:
    """What the server knows, whatever program it runs in. `answer` is called on many threads."""

    def __init__(self, base, log_path=None, settings=(), own_list=None):
        self.base, self.log_path = base, log_path
        self.own_list = own_list  # bytes, whatever the settings say of stations
        self.stopping = False
        self.lock = threading.Lock()
        self.requests = collections.deque(maxlen=10000)
        self.begin = {name: row[0] for name, row in SETTINGS.items()}
        self.settings = dict(self.begin)
        self.change(settings)
        self.begin = dict(self.settings)

    def change(self, pairs):
        """Raises ValueError, and changes nothing, when a name or a value is unknown."""
        for name, value in pairs:
            if name not in SETTINGS:
                raise ValueError(f"no setting is called {name}")
            kind = SETTINGS[name][1]
            if isinstance(kind, tuple) and value not in kind:
                raise ValueError(f"{name} is one of {', '.join(kind)}")
            if kind in (int, float) and not 0 <= kind(value) <= 1000000:
                raise ValueError(f"{name} is out of range")
        with self.lock:
            self.settings.update(pairs)

    def of(self, name):
        kind = SETTINGS[name][1]
        return kind(self.settings[name]) if kind in (int, float) else self.settings[name]

    def note(self, line):
        """Keeps a request line, for those who look at what the program asked."""
        line = "".join(c if c.isprintable() else "?" for c in line)
        with self.lock:
            self.requests.append(line)
            if self.log_path:
                with open(self.log_path, "a", encoding="utf-8") as out:
                    out.write(line + "\n")

    def list_bytes(self, number=None):
        if self.of("list") == "empty":
            return b"<end>\r\n"
        if self.own_list is not None:
            return self.own_list
        return directory_data.downloaded_list(self.base, self.of("stations"), number or self.of("version"), self.of("info"),
                                              self.of("advert"), [line for line in self.of("orders").split("|") if line])

    def answer(self, handler):
        """Whether the request was one for this server; it is then answered."""
        path, _, query = handler.path.replace("\\", "/").partition("?")
        values = dict(urllib.parse.parse_qsl(query, keep_blank_values=True))
        if path == LIST_PATH:
            self.probe(handler) if values.get("size") == "1" else self.full_list(handler)
        elif path == REPORT_PATH:
            self.report(handler)
        elif path.startswith("/control/"):
            self.control(handler, path[len("/control/"):], query)
        else:
            page = pages.page(path, values, self.of("stations"), self.of("version"))
            if page is None:
                return False
            reply(handler, page.encode("utf-8"), "text/html; charset=utf-8")
        return True

    def control(self, handler, what, query):
        if what == "set":
            try:
                self.change(urllib.parse.parse_qsl(query, keep_blank_values=True))
            except ValueError as wrong:
                return reply(handler, f"{wrong}\n".encode(), status=400)
        elif what == "reset":
            with self.lock:
                self.settings = dict(self.begin)
                self.requests.clear()
        elif what == "requests":
            with self.lock:
                return reply(handler, "".join(line + "\n" for line in self.requests).encode("utf-8"))
        elif what == "list":
            return reply(handler, self.list_bytes(), "application/octet-stream")
        else:
            return reply(handler, b"no such control\n", status=404)
        return reply(handler, "".join(f"{name}={value}\n" for name, value in self.settings.items()).encode("utf-8"))

    def probe(self, handler):
        how, size = self.of("probe"), len(self.list_bytes())
        good = f"size:{size}\r\n".encode()
        self.wait(handler, self.of("probe_seconds"))
        if how == "stall":
            return self.wait(handler, HOLD_SECONDS)
        if how in ("not_found", "broken"):
            return reply(handler, b"nic tu neni\r\n", status=404 if how == "not_found" else 500)
        if how == "dies":
            return self.send(handler, good, 0, die_at=3)
        host = urllib.parse.urlsplit(self.base).hostname
        answers = {
            "good": good, "refused": f"{SITE_HOST}:error\r\n{good.decode()}".encode(),
            "refused_by_address": f"{host}:error\r\n".encode(), "no_size": b"velikost neznama\r\n", "nothing": b"",
            "partial": b"size", "two": b"size:1\r\n" + good, "negative": b"size:-%d\r\n" % size, "zero": b"size:0\r\n",
            "word": b"size:mnoho\r\n", "huge": b"size:1" + b"0" * 30 + b"\r\n", "less": b"size:%d\r\n" % (size // 2),
            "more": b"size:%d\r\n" % (size * 2), "binary": bytes(range(256)) * 16, "long_line": b"x" * 1000000 + b"\r\n" + good,
        }
        return reply(handler, answers[how])

    def full_list(self, handler):
        how, seconds = self.of("list"), self.of("seconds")
        data = self.list_bytes()
        if how == "changes":
            with self.lock:
                self.settings["version"] = str(int(self.settings["version"]) + 1)
        if how in ("not_found", "broken"):
            return reply(handler, b"nic tu neni\r\n", status=404 if how == "not_found" else 500)
        if how == "silent":
            return self.wait(handler, HOLD_SECONDS)
        if how == "less":
            data = data[:len(data) * 2 // 3]
        elif how == "more":
            data += b"a jeste neco navic\r\n"
        elif how == "binary":
            data = (bytes(range(256)) * (len(data) // 256 + 1))[:len(data)]
        return self.send(handler, data, seconds, stall_at=len(data) // 2 if how == "stall" else None,
                         die_at=len(data) // 2 if how == "dies" else None)

    def report(self, handler):
        how = self.of("report")
        if how == "stall":
            return self.wait(handler, HOLD_SECONDS)
        if how == "not_found":
            return reply(handler, b"", status=404)
        lines = self.of("reply").split("|")
        return reply(handler, "".join(line + "\r\n" for line in lines).encode(directory_data.ENCODING, "replace"))

    def send(self, handler, data, seconds, stall_at=None, die_at=None):
        """Sends the reply piece by piece over that time; from a place on nothing more comes, or the line breaks."""
        head(handler, len(data))
        end = next((place for place in (stall_at, die_at) if place is not None), len(data))
        pieces = max(1, int(seconds / PIECE_SECONDS))
        for number in range(pieces):
            handler.wfile.write(data[len(data) * number // pieces:min(end, len(data) * (number + 1) // pieces)])
            if len(data) * (number + 1) // pieces >= end:
                break
            if not self.wait(handler, seconds / pieces):
                return None
        if stall_at is not None:
            self.wait(handler, HOLD_SECONDS)
        if die_at is not None:
            # A reset, as when the machine goes away.
            handler.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            handler.connection.close()
        return None

    def wait(self, handler, seconds):
        """Whether the time passed with the client still there and the server running."""
        end = time.monotonic() + seconds
        while not self.stopping:
            left = end - time.monotonic()
            if left <= 0:
                return True
            if select.select([handler.connection], [], [], min(left, 0.2))[0] and not handler.connection.recv(4096):
                return False
        return False


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.0"
    server_version = "directory_server"
    timeout = 60

    def log_message(self, form, *args):
        pass

    def handle(self):
        try:
            super().handle()
        except (BrokenPipeError, ConnectionResetError, TimeoutError):
            pass  # the client went away

    def do_GET(self):
        directory = self.server.directory
        if not self.path.startswith("/control/"):
            directory.note(self.requestline)
        try:
            if not directory.answer(self):
                self.send_error(404)
        except (BrokenPipeError, ConnectionResetError, TimeoutError, ValueError):
            pass

    do_HEAD = do_GET


def add_options(parser):
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--port-file")
    parser.add_argument("--request-log")
    parser.add_argument("--list", type=argparse.FileType("rb"), metavar="FILE")
    parser.add_argument("--set", action="append", default=[], metavar="NAME=VALUE")


def make_server(options, handler):
    http.server.ThreadingHTTPServer.request_queue_size = 64
    server = http.server.ThreadingHTTPServer(("127.0.0.1", options.port), handler)
    server.daemon_threads = True
    pairs = [tuple(text.partition("=")[::2]) for text in options.set]
    own_list = options.list.read() if options.list else None
    server.directory = Directory(f"http://127.0.0.1:{server.server_address[1]}", options.request_log, pairs, own_list)
    return server


def run(server, name, port_file):
    """Serves until the process is asked to end. The port file is complete as soon as it is there."""
    port = server.server_address[1]
    print(f"{name}: http://127.0.0.1:{port}/", flush=True)
    if port_file:
        with open(port_file + ".new", "w", encoding="ascii") as out:
            out.write(f"{port}\n")
        os.replace(port_file + ".new", port_file)

    def stop(*_):
        server.directory.stopping = True
        threading.Thread(target=server.shutdown).start()

    signal.signal(signal.SIGTERM, stop)
    signal.signal(signal.SIGINT, stop)
    server.serve_forever(poll_interval=0.2)


def main():
    parser = argparse.ArgumentParser(description="The community's server on this machine.")
    add_options(parser)
    options = parser.parse_args()
    try:
        server = make_server(options, Handler)
    except ValueError as wrong:
        parser.error(str(wrong))
    run(server, "directory_server", options.port_file)


if __name__ == "__main__":
    main()
