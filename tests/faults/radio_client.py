# SPDX-License-Identifier: LGPL-2.1-or-later
"""A listener of the fake radio, and what its answers can be checked for."""
import random
import re
import socket
import ssl
import time

from misbehaviour import FAULTS
from tone import METAINT

LIMIT = 40  # seconds; bounds a check that fails


class Client:
    def __init__(self, radio, name, rest="", secure=True):
        self.data, self.ended, self.reset = b"", False, False
        fault, state = FAULTS[name], radio.states[name]
        self.link = socket.create_connection(("127.0.0.1", state.port or radio.port))
        self.link.settimeout(LIMIT)
        if fault.port == "tls" and secure:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_CLIENT)
            context.check_hostname, context.verify_mode = False, ssl.CERT_NONE
            self.link = context.wrap_socket(self.link)
        target = f"/{name}{rest or fault.suffix}"
        self.link.sendall(f"GET {target} HTTP/1.0\r\nIcy-MetaData: 1\r\n\r\n".encode())

    def more(self, timeout=LIMIT):
        """False when nothing came in that time, or ever will."""
        self.link.settimeout(timeout)
        try:
            got = self.link.recv(65536)
        except (socket.timeout, ssl.SSLWantReadError):
            return False
        except OSError as error:
            self.reset, self.ended, got = isinstance(error, ConnectionResetError), True, b""
        self.ended = self.ended or not got
        self.data += got
        return bool(got)

    def until(self, condition):
        end = time.monotonic() + LIMIT
        while not condition():
            assert time.monotonic() < end, "not in time"
            assert self.more(), f"ended after {self.data[-200:]!r}"
        return self

    def bytes(self, count):
        return self.until(lambda: len(self.data) >= count)

    def head(self):
        self.until(lambda: b"\r\n\r\n" in self.data)
        return self.data.partition(b"\r\n\r\n")[0].decode("latin-1")

    def body(self):
        return self.data.partition(b"\r\n\r\n")[2]

    def end(self):
        """Reads to the end."""
        end = time.monotonic() + LIMIT
        while not self.ended:
            assert time.monotonic() < end, "no end"
            self.more()
        return self

    def silence(self, shortest):
        """The length of the first silence that is at least so long, until the next bytes or the end."""
        self.until_quiet(shortest)
        since = time.monotonic() - shortest
        self.more()
        return time.monotonic() - since

    def until_quiet(self, seconds):
        end = time.monotonic() + LIMIT
        while self.more(seconds):
            assert time.monotonic() < end, "never quiet"
        assert not self.ended, "ended"


class Check:
    """The checks of one path; the misbehaviour is on."""

    def __init__(self, radio, name):
        self.radio, self.name = radio, name

    def client(self, **more):
        return Client(self.radio, self.name, **more)

    def answers(self, code, *patterns):
        client = self.client().end()
        head = client.head()
        assert f" {code} " in head.splitlines()[0] + " ", head
        for pattern in patterns:
            assert re.search(pattern, head), head
        return client

    def met(self, condition):
        """The condition on what comes after the beginning, on a connection that played before it."""
        self.radio.end(self.name)
        client = self.client()
        client.bytes(30000 if FAULTS[self.name].healthy.__name__ != "ogg" else 8000)
        before = len(client.data)
        self.radio.start(self.name)
        client.until(lambda: condition(client, client.data[before:]))
        return client

    def noise(self, seed, count):
        expected = random.Random(seed).randbytes(count)
        self.met(lambda _, data: expected in data)

    def stalls(self, shortest, longest):
        self.radio.end(self.name)
        client = self.client().bytes(30000)
        self.radio.start(self.name)
        took = client.silence(1)
        assert shortest <= took <= longest, took
        return client

    def ends(self):
        self.radio.end(self.name)
        client = self.client().bytes(30000)
        self.radio.start(self.name)
        return client.end()

    def quiet_then_cut(self):
        self.radio.end(self.name)
        client = self.client().bytes(30000)
        self.radio.start(self.name)
        client.until_quiet(2)
        self.radio.end(self.name)
        client.end()

    def quiet(self, start):
        client = self.client()
        client.until_quiet(1)
        assert re.fullmatch(start, client.data, re.S), client.data[:200]

    def titles(self):
        """The metadata blocks as they come."""
        self.radio.end(self.name)
        client = self.client().bytes(30000)
        self.radio.start(self.name)
        at = client.data.index(b"\r\n\r\n") + 4
        while True:
            at += METAINT
            client.bytes(at + 1)
            length = client.data[at] * 16
            client.bytes(at + 1 + length)
            yield client.data[at + 1:at + 1 + length]
            at += 1 + length

    def until_titles(self, wanted):
        missing = set(wanted)
        for block in self.titles():
            missing = {each for each in missing if not block.startswith(each)}
            if not missing:
                return
