# SPDX-License-Identifier: LGPL-2.1-or-later
"""One connection to the fake radio: what its misbehaviours work with."""
import socket
import threading

from misbehaviour import FAULTS
from tone import Cut


class State:
    """What is going on at one path. `epoch` counts its beginnings."""

    def __init__(self):
        self.active = False
        self.epoch = 0
        self.began = 0.0
        self.hits = 0
        self.listener = None  # of a path with a port of its own
        self.port = 0
        self.changed = threading.Condition()  # it begins, ends, or the radio closes


class Connection:
    """One request: what a misbehaviour works with."""

    def __init__(self, radio, name, link, rest, head):
        self.radio, self.name, self.link, self.rest, self.head_bytes = radio, name, link, rest, head
        self.fault, self.state = FAULTS[name], radio.states[name]
        self.born = self.state.epoch if not self.state.active else self.state.epoch - 1
        self.met = self.born  # the last beginning that this connection has met
        self.chunked = False

    @property
    def active(self):
        return self.state.active

    @property
    def wants_titles(self):
        return b"icy-metadata: 1" in self.head_bytes.lower()

    def url(self, path):
        return f"http://127.0.0.1:{self.radio.port}{path}"

    def send(self, data):
        if self.chunked and data:
            data = b"%x\r\n" % len(data) + data + b"\r\n"
        self.link.sendall(data)

    def raw(self, data):
        self.link.sendall(data)

    def head(self, first="HTTP/1.0 200 OK", **fields):
        fields = {key.replace("_", "-"): value for key, value in fields.items()}
        lines = [first] + [f"{key}: {value}" for key, value in fields.items()] + ["Connection: close", "", ""]
        self.raw("\r\n".join(lines).encode("latin-1"))

    def page(self, body, kind="text/plain", first="HTTP/1.1 200 OK"):
        body = body if isinstance(body, bytes) else body.encode("latin-1")
        self.head(first, Content_Type=kind, Content_Length=len(body))
        self.raw(body)

    def silence(self):
        """Nothing until the misbehaviour ends or the other side leaves."""
        self.link.settimeout(0.05)
        while self.active:
            try:
                if not self.link.recv(4096):
                    raise Cut
            except socket.timeout:
                pass
        self.link.settimeout(None)

    def rest_for(self, seconds):
        """Nothing for that long, however the misbehaviour goes on."""
        self.radio.closed.wait(seconds)

    def pace(self, seconds):
        """Lets that time pass between two pieces; less when the misbehaviour begins or ends."""
        with self.state.changed:
            self.state.changed.wait(seconds)

    def must_cut(self):
        return self.radio.closed.is_set() or (self.active and self.fault.begins != "stream")

    def serve(self):
        if self.active and self.fault.begins == "open":
            return self.fault.handler(self)
        return self.fault.healthy(self)

    def play(self, tone):
        """The tone for ever; what the path does wrong in the middle of it is done once a beginning. What is wrong with
        titles is done by the tone itself."""
        while True:
            if self.must_cut():
                raise Cut
            if self.active and self.met != self.state.epoch and not tone.titles and tone.sent >= tone.rate:
                self.met = self.state.epoch
                self.fault.handler(self, tone)
                continue
            tone.step(self)
            self.pace(0.02)
