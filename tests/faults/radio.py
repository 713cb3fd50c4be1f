#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""A radio whose every path misbehaves in its own way when told to, and plays a tone otherwise.

As a module:    with Radio(MEDIA_FOLDER) as radio: radio.url("stall-5"); radio.start("stall-5"); radio.end("stall-5")
As a program:   radio.py MEDIA_FOLDER prints "port N" and serves until its input ends.
The folder is one that tests/media/make_media filled; sound that is missing there is made beside it, in a temporary one.

Control, by GET at that port:
    /control/list           the table as JSON: name, address, description, seconds, ends_patience, begins, recovers
    /control/start/NAME     the misbehaviour begins       /control/end/NAME    all is well again
    /control/hits/NAME      how many requests its path had

`misbehaviour.FAULTS` is the table. A fault that begins at "open" cuts the connections that play and is met by the next ones;
one that begins in the "stream" is met by the connections that play, and by every later one once it has sent its burst; one
that begins at the "handshake" cuts as well. Loopback only.
"""
import json
import os
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time

from connection import Connection, State
from misbehaviour import FAULTS
from tone import Cut

NOWHERE = "x" * 70 + ".invalid"  # a label longer than 63 characters, which no name server is asked about
EXTRA_SOUND = {
    "mono.ogg": (660, 10, 22050, 1, ["-c:a", "libvorbis", "-b:a", "48k"]),
    "mono.mp3": (660, 10, 22050, 1, ["-b:a", "64k", "-write_xing", "0", "-id3v2_version", "0"]),
}


class Radio:
    def __init__(self, media):
        self.media_folder = media
        self.folder = tempfile.TemporaryDirectory()
        self.lock = threading.Lock()
        self.links = {}  # connection: path
        self.sounds = {}
        self.closed = threading.Event()
        self.states = {name: State() for name in FAULTS}
        self.tls = None
        self.listener, self.port = self.listen(0, None)
        for name, fault in FAULTS.items():
            if fault.port:
                self.states[name].listener, self.states[name].port = self.listen(0, name)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.closed.set()
        for listener in [self.listener] + [state.listener for state in self.states.values() if state.listener]:
            listener.close()
        self.cut(None)
        self.folder.cleanup()

    # What a driver calls.
    def url(self, name):
        fault, state = FAULTS[name], self.states[name]
        if fault.port == "name":
            return f"http://{NOWHERE}:{self.port}/{name}"
        scheme = "https" if fault.port == "tls" else "http"
        return f"{scheme}://127.0.0.1:{state.port or self.port}/{name}{fault.suffix}"

    def start(self, name):
        state = self.states[name]
        state.began = time.monotonic()
        state.epoch += 1
        self.turn(state, True)
        if FAULTS[name].port == "closed":
            state.listener.shutdown(socket.SHUT_RDWR)
            state.listener.close()
        if FAULTS[name].begins != "stream":
            self.cut(name)

    def end(self, name):
        state = self.states[name]
        if FAULTS[name].port == "closed" and state.active:
            state.listener, state.port = self.listen(state.port, name)
        self.turn(state, False)

    @staticmethod
    def turn(state, active):
        with state.changed:
            state.active = active
            state.changed.notify_all()

    def cut(self, name):
        with self.lock:
            for link, path in self.links.items():
                if name in (None, path):
                    try:
                        link.shutdown(socket.SHUT_RDWR)
                    except OSError:
                        pass

    def sound(self, name):
        with self.lock:
            if name not in self.sounds:
                path = os.path.join(self.media_folder, name)
                if name in EXTRA_SOUND:
                    path = self.make_sound(name)
                with open(path, "rb") as source:
                    self.sounds[name] = source.read()
            return self.sounds[name]

    # The server.
    def make_sound(self, name):
        hertz, seconds, rate, channels, options = EXTRA_SOUND[name]
        path = os.path.join(self.folder.name, name)
        subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i",
                        f"sine=frequency={hertz}:duration={seconds}:sample_rate={rate}", "-ac", str(channels),
                        "-map_metadata", "-1", *options, path], check=True)
        return path

    def tls_context(self):
        with self.lock:
            if self.tls is None:
                path = os.path.join(self.folder.name, "self.pem")
                subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                                "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1", "-addext",
                                "subjectAltName=IP:127.0.0.1", "-keyout", path, "-out", path + ".crt"],
                               check=True, stderr=subprocess.DEVNULL)
                self.tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
                self.tls.load_cert_chain(path + ".crt", path)
            return self.tls

    def listen(self, port, name):
        listener = socket.socket()
        listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        listener.bind(("127.0.0.1", port))
        listener.listen(64)
        threading.Thread(target=self.accept, args=(listener, name), daemon=True).start()
        return listener, listener.getsockname()[1]

    def accept(self, listener, name):
        while True:
            try:
                link, _ = listener.accept()
            except OSError:
                return
            link.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            threading.Thread(target=self.serve, args=(link, name), daemon=True).start()

    def serve(self, link, own):
        with self.lock:
            self.links[link] = own
        try:
            if own is not None and FAULTS[own].port == "tls":
                plain = link
                if self.states[own].active and FAULTS[own].begins == "handshake":
                    self.states[own].hits += 1
                    return FAULTS[own].handler(Connection(self, own, plain, "", b""))
                link = self.tls_context().wrap_socket(plain, server_side=True)
                with self.lock:
                    self.links[link] = self.links.pop(plain)
            self.answer(link)
        except (OSError, Cut, IndexError):
            pass
        finally:
            with self.lock:
                self.links.pop(link, None)
            link.close()
        return None

    def answer(self, link):
        head = b""
        while b"\r\n\r\n" not in head:
            more = link.recv(4096)
            if not more or len(head) > 65536:
                return
            head += more
        path = head.split(b" ")[1].decode("latin-1").partition("?")[0]
        first, _, rest = path[1:].partition("/")
        name = first.partition(".")[0]
        if first == "control":
            self.control(link, rest)
        elif name in FAULTS:
            with self.lock:
                self.links[link] = name
                self.states[name].hits += 1
            Connection(self, name, link, rest, head).serve()

    def control(self, link, command):
        verb, _, name, body = *command.partition("/"), "unknown"
        if verb == "list":
            body = json.dumps([{"name": name, "address": self.url(name), "description": fault.description,
                                "seconds": fault.seconds, "ends_patience": fault.ends_patience,
                                "begins": fault.begins, "recovers": fault.recovers} for name, fault in FAULTS.items()])
        elif name in FAULTS and verb in ("start", "end"):
            getattr(self, verb)(name)
            body = "done"
        elif name in FAULTS and verb == "hits":
            body = str(self.states[name].hits)
        found = "404 Not Found" if body == "unknown" else "200 OK"
        link.sendall(f"HTTP/1.1 {found}\r\nContent-Length: {len(body)}\r\nConnection: close\r\n\r\n{body}".encode())


def main():
    with Radio(sys.argv[1]) as radio:
        print(f"port {radio.port}", flush=True)
        for _ in sys.stdin:
            pass


if __name__ == "__main__":
    main()
