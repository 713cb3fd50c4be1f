#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""tools/make-stations --probe leaves out what does not answer: test_station_probe.py LIST_CHECK [TEST...]"""
import json
import os
import socket
import sys
import threading

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from station_case import Case, main  # noqa: E402

from station_probe import Prober  # noqa: E402


class Servers:
    """Loopback servers, one a behaviour; counts who connects."""

    ANSWERS = {
        "good": b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n\xff\xfb\x90", "icy": b"ICY 200 OK\r\nicy-name: x\r\n\r\nzvuk",
        "missing": b"HTTP/1.0 404 Not Found\r\n\r\n", "page": b"HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<html>",
        "nothing": b"HTTP/1.0 200 OK\r\n\r\n", "torn": b"HTTP/1.0 200", "noise": bytes(range(256)) + b"\r\n\r\n",
        "endless": b"HTTP/1.0 200 OK\r\n" + b"X: y\r\n" * 100000, "silent": None, "loop": "loop", "to_good": "good", "to_file": "file:///etc/passwd",
        "to_private": "http://10.255.255.1/",
    }

    def __init__(self):
        self.count, self.ports, self.lines = dict.fromkeys(self.ANSWERS, 0), {}, []
        self.ended = threading.Event()
        for name in self.ANSWERS:
            line = socket.create_server(("127.0.0.1", 0))
            self.ports[name] = line.getsockname()[1]
            self.lines.append(line)
            threading.Thread(target=self.serve, args=(name, line), daemon=True).start()

    def address(self, name):
        return f"http://127.0.0.1:{self.ports[name]}/{name}"

    def serve(self, name, line):
        while True:
            try:
                guest, _ = line.accept()
            except OSError:
                return
            self.count[name] += 1
            threading.Thread(target=self.answer, args=(name, guest), daemon=True).start()

    def answer(self, name, guest):
        with guest:
            try:
                guest.recv(65536)
                what = self.ANSWERS[name]
                if what is None:
                    self.ended.wait(30)
                elif isinstance(what, str):
                    where = self.address(what) if what in self.ANSWERS else what
                    guest.sendall(f"HTTP/1.0 302 Found\r\nLocation: {where}\r\n\r\n".encode())
                else:
                    guest.sendall(what)
            except OSError:
                pass

    def end(self):
        self.ended.set()
        for line in self.lines:
            line.close()


class Probe(Case):
    def setUp(self):
        super().setUp()
        self.servers = Servers()
        self.addCleanup(self.servers.end)
        self.gone = socket.create_server(("127.0.0.1", 0))
        port = self.gone.getsockname()[1]
        self.gone.close()
        self.entries = [{"name": f"Stanice {name}", "url": self.servers.address(name)} for name in self.servers.ANSWERS]
        self.entries.append({"name": "Stanice refused", "url": f"http://127.0.0.1:{port}/"})

    def test_dead_ones_are_left_out(self):
        path = self.put("a.json", json.dumps(self.entries))
        told = self.run_tool("--probe", "--private", "--seconds", "2", "--verbose", path)
        self.assertEqual(set(self.by_name()), {"Stanice good", "Stanice icy", "Stanice to_good"}, told)
        for reason in ("answers 404", "sends text/html", "sends nothing", "breaks off", "speaks no HTTP", "too long a head",
                       "leads from one address to the next", "of no kind that plays"):
            self.assertIn(reason, told)
        self.assertEqual(self.servers.count["loop"], 4, "the address and three redirects")
        self.same_as_converted()

    def test_without_leave_no_private_network_is_asked(self):
        path = self.put("a.json", json.dumps(self.entries + [{"name": "Venku", "url": "http://x.invalid/"}]))
        told = self.run_tool("--probe", "--seconds", "2", path, wanted=1)
        self.assertIn("nothing answers", told)
        self.assertEqual(set(self.servers.count.values()), {0})
        self.assertIn("private network", Prober(2, 1).why_dead(self.servers.address("good")))
        self.assertEqual(self.servers.count["good"], 0)

    def test_a_dead_quality_leaves_its_number_free(self):
        good, dead = self.servers.address("good"), self.servers.address("missing")
        entries = [{"name": "Jedno", "url": dead, "bitrate": 64}, {"name": "Jedno", "url": good, "bitrate": 128}]
        path = self.put("a.json", json.dumps(entries))
        self.run_tool("--private", path)
        self.run_tool("--private", "--probe", "--seconds", "5", path)
        (fields,) = self.records().values()
        self.assertEqual((fields[6:8], fields[11:13]), (["", good], ["", "128"]))

    def test_when_nothing_answers_the_old_list_stays(self):
        good = self.put("good.json", json.dumps(self.entries[:1]))
        self.run_tool("--private", good)
        before = self.written("seznam.tt")
        bad = self.put("bad.json", json.dumps(self.entries[-1:]))
        self.run_tool("--private", "--probe", "--seconds", "2", bad, wanted=1)
        self.assertEqual(self.written("seznam.tt"), before)


if __name__ == "__main__":
    main()
