#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""The small radio answers what the demonstration's own server answers: test_demo_radio.py PROGRAM"""
import contextlib
import os
import socket
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.request

TOP = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(TOP, "demo"))
sys.dont_write_bytecode = True
import directory_data  # noqa: E402
import directory_server  # noqa: E402
import export_radio  # noqa: E402
import pages  # noqa: E402
from stations import STATIONS  # noqa: E402

PROGRAM = sys.argv.pop(1)
STREAM = STATIONS[0].path(1)
INTERVAL = 16000
RATE = 16000  # bytes a second of the sound made here


def sound(row):
    """Bytes that tell their place, and no more than the machine of a test should hold."""
    return b"".join(b"%015d\n" % place for place in range(0, RATE * 24, 16)) if row[1] == STREAM else b"sound of " + row[3].encode() * 4000


class TestRadio(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="rádio s mezerou ")
        export_radio.write(cls.folder.name)
        os.mkdir(os.path.join(cls.folder.name, "zvuk"))
        for row in export_radio.streams():
            with open(os.path.join(cls.folder.name, "zvuk", row[3]), "wb") as out:
                out.write(sound(row))
        cls.started = []
        cls.port = cls.start("0")
        cls.base = f"http://127.0.0.1:{cls.port}"

    @classmethod
    def start(cls, port):
        process = subprocess.Popen([PROGRAM, cls.folder.name, port], stdout=subprocess.PIPE, text=True)
        cls.started.append(process)
        return int(process.stdout.readline())

    @classmethod
    def tearDownClass(cls):
        for process in cls.started:
            process.kill()
            process.wait()
            process.stdout.close()
        cls.folder.cleanup()

    def get(self, path):
        with urllib.request.urlopen(self.base + path, timeout=30) as answer:
            return answer.read()

    def raw(self, request, count=65536):
        with socket.create_connection(("127.0.0.1", self.port), timeout=30) as line:
            line.sendall(request)
            got = b""
            with contextlib.suppress(ConnectionResetError):  # closed before everything was taken
                while len(got) < count and (more := line.recv(65536)):
                    got += more
            return got

    def test_the_list_is_the_servers_and_the_probe_tells_its_length(self):
        path = directory_server.LIST_PATH
        data = self.get(path + "?idh=a")
        self.assertEqual(data, directory_data.downloaded_list(self.base, 320))
        self.assertEqual(self.get(path + "?size=1&idh=a"), b"size:%d\r\n" % len(data))

    def test_the_pages_are_the_servers(self):
        station = directory_data.entries(320)[200].identifier
        for path in ("/", "/faq", directory_data.ADVERT_PATH, "/novinky.php", f"/radio/{station.lower()}"):
            self.assertEqual(self.get(path + "?od=lumotune").decode(), pages.page(path, {}, 320, 1), path)
        self.assertEqual(self.get(f"/orb/diskuze.php?idh=a&tid={station}").decode(), pages.discussion({"tid": station}, 320, 1))
        self.assertIn("přihlášeni", self.get("/login/demo/12-3/orb*l*x/1").decode())
        self.assertEqual(self.get("/orb/lt_all.php?idh=a&stanice=LUMO01"), b"lt:ok\r\n")

    def test_a_stream_begins_at_once_and_comes_no_faster_than_it_plays(self):
        begun = time.monotonic()
        with socket.create_connection(("127.0.0.1", self.port), timeout=30) as line:
            line.sendall(f"GET {STREAM} HTTP/1.1\r\nIcy-MetaData: 1\r\n\r\n".encode())
            got = b""
            while b"\r\n\r\n" not in got:
                got += line.recv(4096)
            head, _, body = got.partition(b"\r\n\r\n")
            while len(body) < INTERVAL * 3 + 600:
                body += line.recv(4096)
        self.assertGreater(time.monotonic() - begun, len(body) / RATE - 2.2, "two seconds are sent ahead")
        self.assertIn("icy-name: Rádio Úsvit".encode(), head)
        self.assertIn(b"icy-metaint: 16000", head)
        length = body[INTERVAL] * 16
        title = body[INTERVAL + 1:INTERVAL + 1 + length].rstrip(b"\0").decode()
        self.assertIn(title, [f"StreamTitle='{each}';" for each in STATIONS[0].titles])
        # Behind the title the sound goes on where it was.
        joined = body[:INTERVAL] + body[INTERVAL + 1 + length:INTERVAL * 2 + 1 + length]
        start = joined.index(b"\n") + 1
        numbers = [int(joined[at:at + 15]) for at in range(start, len(joined) - 15, 16)]
        self.assertTrue(all(later == (earlier + 16) % (RATE * 24) for earlier, later in zip(numbers, numbers[1:])))

    def test_who_does_not_ask_gets_no_titles(self):
        head = self.raw(f"GET {STREAM} HTTP/1.1\r\n\r\n".encode(), 4096).partition(b"\r\n\r\n")[0]
        self.assertNotIn(b"icy-metaint", head)
        ogg = next(row for row in export_radio.streams() if row[1].endswith(".ogg"))
        head = self.raw(f"GET {ogg[1]} HTTP/1.1\r\nIcy-MetaData: 1\r\n\r\n".encode(), 200).partition(b"\r\n\r\n")[0]
        self.assertNotIn(b"icy-metaint", head)

    def test_a_head_alone(self):
        answer = self.raw(b"HEAD / HTTP/1.1\r\n\r\n")
        self.assertTrue(answer.startswith(b"HTTP/1.0 200 OK\r\n") and answer.endswith(b"\r\n\r\n"))

    def test_what_is_not_there(self):
        for target in ("/../odpovedi.tsv", "/zvuk/lumo01-128.mp3", "/odpovedi.bin", "/%2e%2e/x", "/nic"):
            self.assertTrue(self.raw(f"GET {target} HTTP/1.1\r\n\r\n".encode()).startswith(b"HTTP/1.0 404"), target)

    def test_what_is_no_request(self):
        for text in (b"\r\n\r\n", b"POST / HTTP/1.1\r\n\r\n", b"GET / HTTP/1.1\r\na: " + b"x" * 9000, b"\0" * 9000):
            answer = self.raw(text)
            self.assertTrue(answer == b"" or answer.startswith(b"HTTP/1.0 400"), text[:20])

    def test_only_so_many_connections(self):
        port = self.start("0")
        lines = []
        try:
            for _ in range(32):
                lines.append(socket.create_connection(("127.0.0.1", port), timeout=30))
                lines[-1].sendall(f"GET {STREAM} HTTP/1.1\r\n\r\n".encode())
                self.assertTrue(lines[-1].recv(64).startswith(b"HTTP/1.0 200"))
            with socket.create_connection(("127.0.0.1", port), timeout=30) as one_more:
                self.assertEqual(one_more.recv(64), b"", "closed unanswered")
        finally:
            for line in lines:
                line.close()

    def test_a_port_that_is_taken_is_replaced(self):
        self.assertNotIn(self.start(str(self.port)), (0, self.port))

    def test_only_this_machine_reaches_it(self):
        with open("/proc/net/tcp", encoding="ascii") as table:
            places = [line.split()[1] for line in table if line.split()[3] == "0A"]
        self.assertEqual([place for place in places if place.endswith(f":{self.port:04X}")], [f"0100007F:{self.port:04X}"])


if __name__ == "__main__":
    unittest.main()
