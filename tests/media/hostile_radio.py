#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""A server that means harm, for one test: hostile_radio.py MEDIA_FOLDER

Prints "port N" and, after "tls" was read, a port for each kind of certificate (see hostile_tls.py) and the file of the
test's own root. Takes one command a line, answers each with one line, until its input ends:
  hits PATH   how many requests that path had        sent PATH   how many bytes went out for it
  heads PATH  the header lines of its last request, joined by |
  tls         "root FILE good N self N expired N wrong N silent N torn N"

/live/NAME       the file again and again, at the pace of sound (128 kbps)
/file/NAME       with its length
/drip/NAME       first=N bytes at once, then one byte every ms=N
/packets/NAME    first=N bytes at once, then bytes=N every ms=N
/text/NAME       body=.. type=..; {base} in it is this server; pieces=1 sends it line by line
/to/NAME         a redirection to url=..           /code/N          an answer with that code and nothing else
/tag/NAME        a tag of mb=N megabytes, then /live/440.mp3
/tags/NAME       small tags without end
/list/endless    an HLS list without end            /list/large      one of mb=N, with its length
/list/master     an HLS list that names itself      /list/chain      one that names another each time
/list/still      a live list that never changes; target=N seconds, segments of 550
/list/rolling    one that goes on, a segment each 2 seconds
/list/hasty      one of segments that claim to last a millisecond
/list/turning    as rolling, the third time a choice of itself; /list/tagged: the same behind a tag of 5 MiB
/list/vanishing  as rolling, the third time without segments
/list/nameless   as rolling, segments without ending /list/renaming   the same from the second time on
/list/torn       a list with a short piece of sound, from the second time on with the line with=..
Any path: password=1 wants a name and password, cookie=TEXT sets a cookie.
/mms/NAME        a media server that sends after=N packets and falls silent; drip=1 sends single bytes instead
"""
import os
import signal
import socket
import struct
import sys
import tempfile
import threading
import time
import urllib.parse

from hostile_tls import make_certificates, silent, torn

MEDIA = sys.argv[1]
BYTES_A_SECOND = 16000


def media(name):
    with open(os.path.join(MEDIA, name), "rb") as source:
        return source.read()


class Server:
    def __init__(self):
        self.lock = threading.Lock()
        self.hits = {}
        self.sent = {}
        self.heads = {}
        self.born = time.monotonic()
        self.port = self.listen(lambda connection: connection)

    def listen(self, wrap):
        listener = socket.socket()
        listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        listener.bind(("127.0.0.1", 0))
        listener.listen(64)
        threading.Thread(target=self.accept, args=(listener, wrap), daemon=True).start()
        return listener.getsockname()[1]

    def accept(self, listener, wrap):
        while True:
            connection, _ = listener.accept()
            threading.Thread(target=self.serve, args=(connection, wrap), daemon=True).start()

    def serve(self, connection, wrap):
        try:
            connection = wrap(connection)
            head = b""
            while b"\r\n\r\n" not in head:
                more = connection.recv(4096)
                if not more:
                    return
                head += more
            path, _, query = head.split(b" ")[1].decode("latin-1").partition("?")
            asked = dict(urllib.parse.parse_qsl(query, keep_blank_values=True, encoding="latin-1"))
            with self.lock:
                self.hits[path] = self.hits.get(path, 0) + 1
                self.heads[path] = "|".join(head.decode("latin-1").split("\r\n")).rstrip("|")
            kind, _, name = path[1:].partition("/")
            if "password" in asked and b"\r\nAuthorization: " not in head:
                connection.sendall(b"HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n")
                return
            self.base = f"http://127.0.0.1:{self.port}"
            Answer(self, connection, path, asked).give(kind, name, head)
        except OSError:
            pass
        finally:
            connection.close()


class Answer:
    def __init__(self, server, connection, path, asked):
        self.server, self.connection, self.path, self.asked = server, connection, path, asked

    def give(self, kind, name, head):
        method = getattr(self, kind, None) if kind in (
            "live", "file", "drip", "packets", "text", "to", "code", "tag", "tags", "list", "mms") else None
        if method is None:
            return self.head("HTTP/1.1 404 Not Found", {"Content-Length": "0"})
        return method(name) if kind != "mms" else self.mms(name, b"xPlayStrm=1" in head)

    def send(self, data):
        self.connection.sendall(data)
        with self.server.lock:
            self.server.sent[self.path] = self.server.sent.get(self.path, 0) + len(data)

    def head(self, first, fields):
        if "cookie" in self.asked:
            fields["Set-Cookie"] = self.asked["cookie"]
        lines = [first] + [f"{key}: {value}" for key, value in fields.items()] + ["Connection: close", "", ""]
        self.connection.sendall("\r\n".join(lines).encode("latin-1"))

    def ok(self, kind="audio/mpeg", **fields):
        self.head("HTTP/1.1 200 OK", {"Content-Type": kind, **fields})

    def live(self, name):
        self.ok()
        self.flow(media(name))

    def flow(self, data):
        start, sent = time.monotonic(), 0
        while True:
            due = int((time.monotonic() - start + 2) * BYTES_A_SECOND)
            while sent < due:
                count = min(due - sent, len(data) - sent % len(data))
                self.send(data[sent % len(data):sent % len(data) + count])
                sent += count
            time.sleep(0.02)

    def file(self, name):
        try:
            data = media(name)[:int(self.asked.get("bytes", 1 << 30))]
        except OSError:
            return self.head("HTTP/1.1 404 Not Found", {"Content-Length": "0"})
        self.ok("application/octet-stream", **{"Content-Length": len(data)})
        return self.send(data)

    def drip(self, name):
        self.asked["bytes"] = 1
        self.packets(name)

    def packets(self, name):
        data = media(name)
        first, count = int(self.asked.get("first", 0)), int(self.asked["bytes"])
        self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.ok(self.asked.get("type", "audio/mpeg"))
        self.send(data[:first])
        at = first
        while True:
            time.sleep(float(self.asked["ms"]) / 1000)
            self.send(data[at % len(data):at % len(data) + count])
            at += count

    def text(self, _):
        body = self.asked.get("body", "").replace("{base}", self.server.base).encode("latin-1")
        kind = self.asked.get("type", "text/plain")
        if "pieces" not in self.asked:
            self.ok(kind, **{"Content-Length": len(body)})
            return self.send(body)
        self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.ok(kind)
        for line in body.splitlines(keepends=True):
            self.send(line)
            time.sleep(0.1)
        return None

    def code(self, name):
        self.head(f"HTTP/1.1 {name} Away", {"Content-Length": "0"})

    def to(self, _):
        url = self.asked.get("url", "/nothing").replace("{base}", self.server.base)
        self.head("HTTP/1.1 302 Found", {"Location": url, "Content-Length": "0"})

    @staticmethod
    def tag_head(size):
        return b"ID3\x03\x00\x00" + bytes(size >> shift & 0x7f for shift in (21, 14, 7, 0))

    def tag(self, _):
        frame = int(self.asked["mb"]) << 20
        name = b"image/png\0\x03\0"
        self.ok()
        self.send(self.tag_head(frame + 10))
        self.send(b"APIC" + struct.pack(">IH", frame, 0) + b"\0" + name)
        left = frame - 1 - len(name)
        while left > 0:
            count = min(left, 1 << 16)
            self.send(b"\x55" * count)
            left -= count
        self.flow(media("440.mp3"))

    def tags(self, _):
        self.ok()
        number = 0
        while True:
            number += 1
            text = b"\0" + str(number).encode() + b"\0" + b"x" * 60000
            self.send(self.tag_head(len(text) + 10) + b"TXXX" + struct.pack(">IH", len(text), 0) + text)

    def list(self, name):
        kind = "application/vnd.apple.mpegurl"
        start = b"#EXTM3U\n#EXT-X-VERSION:3\n"
        choice = start + b"#EXT-X-STREAM-INF:BANDWIDTH=128000\n" + self.path.encode() + b"\n"
        target = int(self.asked.get("target", 2))
        hits = self.server.hits["/list/" + name]
        if name.startswith("endless"):
            self.ok(kind)
            self.send(start + b"#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:1\n")
            while True:
                self.send(b"#EXTINF:2,\nsegment.ts\n" * 1000)
        if name.startswith("large"):
            body = start + b"#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:1\n"
            body += b"#EXTINF:2,\n/file/5500.ts\n" * (int(self.asked["mb"]) * 40330) + b"#EXT-X-ENDLIST\n"
        elif name.startswith("chain"):
            body = start + b"#EXT-X-STREAM-INF:BANDWIDTH=1\n/list/chain?n=%d\n" % (int(self.asked.get("n", 0)) + 1)
        elif name.startswith("variants"):
            body = start + b"".join(b"#EXT-X-STREAM-INF:BANDWIDTH=%d\n/v%d.m3u8\n" % (n, n) for n in range(40000))
        elif name.startswith("vanishing") and hits == 3:
            body = start + b"#EXT-X-TARGETDURATION:2\n"
        elif name.startswith("torn"):  # a short piece of sound, then at once a list that FFmpeg refuses
            body = start + b"#EXT-X-TARGETDURATION:1\n#EXTINF:0.001,\n/file/440.mp3?bytes=3000\n"
            body += (self.asked["with"].encode() + b"\n#EXTINF:1,\n/file/440.mp3\n") * (hits > 1)
        elif name.startswith("master") or name.startswith(("turning", "tagged")) and hits == 3:
            body = (self.tag_head(5 << 20) + bytes(5 << 20) if name.startswith("tagged") else b"") + choice
        elif name.startswith("hasty"):
            first = int((time.monotonic() - self.server.born) * 1000)
            body = start + f"#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:{first}\n".encode()
            body += b"".join(b"#EXTINF:0.001,\n/text/%d.ts?body=x\n" % n for n in range(first, first + 5))
            self.server.sent["openings"] = sum(self.server.hits.values())
        else:
            first = 0 if name.startswith("still") else int((time.monotonic() - self.server.born) / 2)
            body = start + f"#EXT-X-TARGETDURATION:{target}\n#EXT-X-MEDIA-SEQUENCE:{first}\n".encode()
            nameless = name.startswith("nameless") or name.startswith("renaming") and hits > 1
            segment = b"#EXTINF:2,\n" + (b"/to/x?url=/file/550%d.ts&n=%d\n" if nameless else b"/file/550%d.ts?n=%d\n")
            body += b"".join(segment % (n % 3, n) for n in range(first, first + 3))
        self.ok(kind, **{"Content-Length": len(body)})
        self.send(body)

    def mms(self, name, packets_too):
        data = media(name)
        data_object_head = 50
        header_end = struct.unpack_from("<Q", data, 16)[0] + data_object_head
        properties = data.index(bytes.fromhex("a1dcab8c47a9cf118ee400c00c205365"))
        packet_size, = struct.unpack_from("<I", data, properties + 92)

        def chunk(kind, number, content):
            length = len(content) + 8
            return kind + struct.pack("<HIHH", length, number, 0, length) + content

        self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.head("HTTP/1.0 200 OK", {"Content-Type": "application/x-mms-framed"})
        self.send(chunk(b"$H", 0, data[:header_end]))
        after = int(self.asked.get("after", 40))
        if packets_too:
            for number, at in enumerate(range(header_end, len(data) - packet_size + 1, packet_size)):
                packet = chunk(b"$D", number, data[at:at + packet_size])
                if number < after:
                    self.send(packet)
                    continue
                for byte in packet if "drip" in self.asked else b"":
                    time.sleep(0.2)
                    self.send(bytes([byte]))
                if "drip" not in self.asked:
                    break
        self.connection.recv(1)


def main():
    folder = tempfile.TemporaryDirectory()

    def end(*_):
        folder.cleanup()
        os._exit(0)

    signal.signal(signal.SIGTERM, end)
    server = Server()
    print(f"port {server.port}", flush=True)
    for line in sys.stdin:
        command, _, rest = line.strip().partition(" ")
        if command == "tls":
            root, contexts = make_certificates(folder.name)
            ports = {kind: server.listen(lambda c, context=context: context.wrap_socket(c, server_side=True))
                     for kind, context in contexts.items()}
            ports.update(silent=server.listen(silent), torn=server.listen(torn))
            print(f"root {root} " + " ".join(f"{kind} {port}" for kind, port in ports.items()), flush=True)
        elif command in ("hits", "sent", "heads"):
            with server.lock:
                print(getattr(server, command).get(rest, 0), flush=True)
    end()


main()
