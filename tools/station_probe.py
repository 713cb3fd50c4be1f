# SPDX-License-Identifier: LGPL-2.1-or-later
"""Whether stations answer: one request an address, bounded in time, bytes, redirects and connections a host.

The addresses come from strangers. A host is looked up once and the connection goes to the address that was looked at, so that no
name leads to a machine of the private network; certificates do not matter, because nothing is sent or believed.
"""
import collections
import concurrent.futures
import ipaddress
import random
import socket
import ssl
import threading
import time
import urllib.parse

MAX_HEAD = 16 * 1024     # bytes
MAX_REDIRECTS = 3
AT_ONE_HOST = 2          # connections
NO_SOUND = ("text/html", "application/json", "image/")


class Dead(Exception):
    """Why an address does not play."""


class Prober:
    def __init__(self, seconds, at_once, private_too=False):
        self.seconds, self.at_once, self.private_too = seconds, at_once, private_too
        self.hosts = collections.defaultdict(lambda: threading.Semaphore(AT_ONE_HOST))
        self.lock = threading.Lock()
        self.tls = ssl._create_unverified_context()  # noqa: SLF001 - see above

    def alive(self, addresses, told=lambda done: None):
        """{address: "" or why it is dead}. mms is not asked: it speaks no plain HTTP."""
        asked = [address for address in addresses if address.startswith("http")]
        result = dict.fromkeys(addresses, "")
        random.Random(0).shuffle(asked)  # of neighbours most are at one host, where they wait for each other
        with concurrent.futures.ThreadPoolExecutor(self.at_once) as pool:
            for done, (address, reason) in enumerate(zip(asked, pool.map(self.why_dead, asked)), 1):
                result[address] = reason
                told(done)
        return result

    def why_dead(self, address):
        with self.lock:
            turn = self.hosts[urllib.parse.urlsplit(address).netloc]
        with turn:
            try:
                self.follow(address)
                return ""
            except Dead as reason:
                return str(reason)
            except (OSError, ValueError) as reason:
                return str(reason).strip() or type(reason).__name__

    def follow(self, address):
        end = time.monotonic() + self.seconds
        for _ in range(MAX_REDIRECTS + 1):
            status, head, body = self.ask(address, end)
            if status in (301, 302, 303, 307, 308) and head.get("location"):
                address = urllib.parse.urljoin(address, head["location"])
                continue
            if status != 200:
                raise Dead(f"answers {status}")
            kind = head.get("content-type", "").lower()
            if kind.startswith(NO_SOUND):
                raise Dead(f"sends {kind.split(';')[0]}")
            if not body:
                raise Dead("sends nothing")
            return
        raise Dead("leads from one address to the next")

    def ask(self, address, end):
        """(status, fields of the head, first bytes of the body)"""
        parts = urllib.parse.urlsplit(address)
        if parts.scheme not in ("http", "https") or not parts.hostname or parts.username or any(sign <= " " for sign in address):
            raise Dead("leads to an address of no kind that plays")
        port = parts.port or (443 if parts.scheme == "https" else 80)
        path = (parts.path or "/") + (f"?{parts.query}" if parts.query else "")
        with self.connect(parts.hostname, port, end) as plain:
            line = self.tls.wrap_socket(plain, server_hostname=parts.hostname) if parts.scheme == "https" else plain
            with line:
                line.sendall(f"GET {path} HTTP/1.0\r\nHost: {parts.netloc}\r\nUser-Agent: Lumotune-make-stations\r\n"
                             "Accept: */*\r\n\r\n".encode("ascii", "replace"))
                return self.answer(line, end)

    def connect(self, host, port, end):
        for *_, place in socket.getaddrinfo(host, port, type=socket.SOCK_STREAM)[:1]:
            if not self.private_too and not ipaddress.ip_address(place[0].partition("%")[0]).is_global:
                raise Dead("leads into a private network")
            return socket.create_connection(place[:2], timeout=left(end))
        raise Dead("has no address")

    def answer(self, line, end):
        data = b""
        while b"\r\n\r\n" not in data:
            data += self.piece(line, end)
            if len(data) > MAX_HEAD:
                raise Dead("sends too long a head")
        head, _, body = data.partition(b"\r\n\r\n")
        first, *rest = head.decode("latin-1").split("\r\n")
        words = first.split()
        if len(words) < 2 or not words[0].upper().startswith(("HTTP/", "ICY")) or not words[1].isdigit():
            raise Dead("speaks no HTTP")
        fields = {name.strip().lower(): value.strip() for name, _, value in (each.partition(":") for each in rest)}
        if int(words[1]) == 200 and not body:
            body = self.piece(line, end, may_end=True)
        return int(words[1]), fields, body

    def piece(self, line, end, may_end=False):
        line.settimeout(left(end))
        data = line.recv(4096)
        if not data and not may_end:
            raise Dead("breaks off")
        return data


def left(end):
    seconds = end - time.monotonic()
    if seconds <= 0:
        raise Dead("is too slow")
    return seconds
