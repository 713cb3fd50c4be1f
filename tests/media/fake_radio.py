#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""A radio that misbehaves to order, for one test: fake_radio.py MEDIA_FOLDER

Prints "port N". Then takes one command a line and answers each with one line, until its input ends:
  hits PATH   how many requests that path had      close   stop listening and cut every connection
  total       how many requests there were          plain PATH   how many of that path wanted no titles
  open        listen again on the same port        cut     cut every connection

/live/NAME     the file again and again, at the pace of sound. Query:
    burst=S    seconds sent ahead (2)              kbps=N     the pace (128)
    fails=N    the first N answered with code=C    then=NAME  what requests after the first get
    after=T    these say "Retry-After: T"; of "@N" the date and time N seconds from now
    drop=S     the first cut after S seconds       mute=S     the first sends nothing more after S seconds
    back=S     that silence ends after S seconds, with what it held back
    type=T     content type                        icy=1      answers "ICY 200 OK"
    title=HEX  bytes of one metadata text each     br=N       the header icy-br
    from=N     begins at that byte, as for who joins in the middle
    every=N    a title each N quarters of a second (1)
/file/NAME     with its length, as a web server does
/mms/NAME      an ASF file by Microsoft's media server protocol over HTTP, at the pace of sound
/text?body=..&type=..   a text; {base} in it is this server
/to?url=..     a redirection                       /loop      one to itself
/lists/NAME    a list of 32 others of its kind, without end
/hang          nothing, ever                       /garbage   noise without end
"""
import os
import random
import select
import socket
import struct
import sys
import threading
import time
import urllib.parse
from email.utils import formatdate

MEDIA = sys.argv[1]
METAINT = 4000


class Radio:
    def __init__(self):
        self.lock = threading.Lock()
        self.hits = {}
        self.plain = {}
        self.connections = set()
        self.listener = None
        self.port = 0
        self.open()

    def open(self):
        listener = socket.socket()
        listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        listener.bind(("127.0.0.1", self.port))
        listener.listen(64)
        self.port = listener.getsockname()[1]
        self.listener = listener
        threading.Thread(target=self.accept, args=(listener,), daemon=True).start()

    def close(self):
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()
        self.cut()

    def cut(self):
        with self.lock:
            for connection in self.connections:
                try:
                    connection.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass

    def accept(self, listener):
        while True:
            try:
                connection, _ = listener.accept()
            except OSError:
                return
            with self.lock:
                self.connections.add(connection)
            threading.Thread(target=self.serve, args=(connection,), daemon=True).start()

    def serve(self, connection):
        try:
            head = b""
            while b"\r\n\r\n" not in head:
                more = connection.recv(4096)
                if not more:
                    return
                head += more
            target = head.split(b" ")[1].decode("latin-1")
            path, _, query = target.partition("?")
            asked = dict(urllib.parse.parse_qsl(query, keep_blank_values=True, encoding="latin-1"))
            titles = [bytes.fromhex(v) for k, v in urllib.parse.parse_qsl(query) if k == "title"]
            with self.lock:
                self.hits[path] = self.hits.get(path, 0) + 1
                turn = self.hits[path]
                self.plain[path] = self.plain.get(path, 0) + (b"icy-metadata: 1" not in head.lower())
            if path.startswith("/mms/"):
                return self.mms(connection, path[5:], b"xPlayStrm=1" in head)
            self.answer(connection, path, asked, titles, turn, b"icy-metadata: 1" in head.lower())
        except OSError:
            pass
        finally:
            with self.lock:
                self.connections.discard(connection)
            connection.close()

    def answer(self, connection, path, asked, titles, turn, wants_titles):
        kind, _, name = path[1:].partition("/")
        if kind == "live":
            if turn <= int(asked.get("fails", 0)):
                fields = {"Content-Length": "0"}
                if "after" in asked:
                    after = asked["after"]
                    fields["Retry-After"] = formatdate(time.time() + int(after[1:]), usegmt=True) if after[0] == "@" else after
                return self.head(connection, f"HTTP/1.1 {asked.get('code', '404')} Away", fields)
            return self.live(connection, name if turn == 1 else asked.get("then", name), asked,
                             titles if wants_titles else [], turn)
        if kind == "file" and os.path.isfile(os.path.join(MEDIA, name)):
            return self.file(connection, name)
        if kind == "text":
            body = asked["body"].replace("{base}", f"http://127.0.0.1:{self.port}").encode("latin-1")
            self.head(connection, "HTTP/1.1 200 OK",
                      {"Content-Type": asked.get("type", "text/plain"), "Content-Length": len(body)})
            return connection.sendall(body)
        if kind == "lists":
            body = "".join(f"http://127.0.0.1:{self.port}/lists/{name}.{i}\n" for i in range(32)).encode("latin-1")
            self.head(connection, "HTTP/1.1 200 OK", {"Content-Type": "audio/x-mpegurl", "Content-Length": len(body)})
            return connection.sendall(body)
        if kind in ("to", "loop"):
            return self.head(connection, "HTTP/1.1 302 Found",
                             {"Location": asked.get("url", "/loop"), "Content-Length": "0"})
        if kind == "hang":
            return connection.recv(1)
        if kind == "garbage":
            self.head(connection, "HTTP/1.1 200 OK", {"Content-Type": "audio/mpeg"})
            noise = random.Random(1)
            while True:
                connection.sendall(bytes(noise.randrange(0, 250) for _ in range(4096)))
        return self.head(connection, "HTTP/1.1 404 Not Found", {"Content-Length": "0"})

    @staticmethod
    def head(connection, first, fields):
        lines = [first] + [f"{key}: {value}" for key, value in fields.items()] + ["Connection: close", "", ""]
        connection.sendall("\r\n".join(lines).encode("latin-1"))

    def file(self, connection, name):
        with open(os.path.join(MEDIA, name), "rb") as source:
            data = source.read()
        self.head(connection, "HTTP/1.1 200 OK", {"Content-Type": "application/octet-stream",
                                                  "Content-Length": len(data)})
        connection.sendall(data)

    # The client first asks for the header alone, then for header and packets. A chunk is a kind, its length, its number.
    def mms(self, connection, name, packets_too):
        with open(os.path.join(MEDIA, name), "rb") as source:
            data = source.read()
        data_object_head = 50
        header_end = struct.unpack_from("<Q", data, 16)[0] + data_object_head
        properties = data.index(bytes.fromhex("a1dcab8c47a9cf118ee400c00c205365"))
        packet_size, = struct.unpack_from("<I", data, properties + 92)

        def chunk(kind, number, content):
            length = len(content) + 8
            connection.sendall(kind + struct.pack("<HIHH", length, number, 0, length) + content)

        self.head(connection, "HTTP/1.0 200 OK", {"Content-Type": "application/x-mms-framed"})
        chunk(b"$H", 0, data[:header_end])
        if not packets_too:
            return connection.recv(1)
        start = time.monotonic()
        for number, at in enumerate(range(header_end, len(data) - packet_size + 1, packet_size)):
            time.sleep(max(0, number * packet_size / 16000 - 2 - (time.monotonic() - start)))
            chunk(b"$D", number, data[at:at + packet_size])
        return connection.sendall(b"$E" + struct.pack("<HI", 4, 0))

    def live(self, connection, name, asked, titles, turn):
        with open(os.path.join(MEDIA, name), "rb") as source:
            data = source.read()
        begin = int(asked.get("from", 0))
        data = data[begin:] + data[:begin]
        fields = {"Content-Type": asked.get("type", "audio/mpeg")}
        if "br" in asked:
            fields["icy-br"] = asked["br"]
        if titles:
            fields["icy-metaint"] = METAINT
        self.head(connection, "ICY 200 OK" if "icy" in asked else "HTTP/1.0 200 OK", fields)
        rate = float(asked.get("kbps", 128)) * 125
        start, sent = time.monotonic(), 0
        while True:
            now = time.monotonic() - start
            if turn == 1 and "drop" in asked and now >= float(asked["drop"]):
                return None
            if turn == 1 and "mute" in asked and now >= float(asked["mute"]):
                if "back" not in asked:
                    return connection.recv(1)
                if select.select([connection], [], [], float(asked["back"]))[0]:
                    return None  # the listener is gone
                turn = 0
                continue
            due = int((now + float(asked.get("burst", 2))) * rate)
            while sent < due:
                count = min(due - sent, METAINT - sent % METAINT, len(data) - sent % len(data))
                connection.sendall(data[sent % len(data):sent % len(data) + count])
                sent += count
                if titles and sent % METAINT == 0:
                    turn_of, rest = divmod(sent // METAINT - 1, int(asked.get("every", 1)))
                    block = titles[turn_of] if rest == 0 and turn_of < len(titles) else b""
                    length = (len(block) + 15) // 16
                    connection.sendall(bytes([length]) + block.ljust(length * 16, b"\0"))
            time.sleep(0.02)


def main():
    radio = Radio()
    print(f"port {radio.port}", flush=True)
    for line in sys.stdin:
        command, _, rest = line.strip().partition(" ")
        if command in ("hits", "plain"):
            with radio.lock:
                print(getattr(radio, command).get(rest, 0), flush=True)
        elif command == "total":
            with radio.lock:
                print(sum(radio.hits.values()), flush=True)
        elif command in ("close", "open", "cut"):
            getattr(radio, command)()
            print("done", flush=True)
    os._exit(0)


main()
