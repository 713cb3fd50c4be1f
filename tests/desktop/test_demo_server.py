# SPDX-License-Identifier: LGPL-2.1-or-later
"""The demonstration's community server and its radio."""
import http.client
import os
import socket
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import directory_data  # noqa: E402
from demo_folder import COUNT, LIST, PROBE, Folder  # noqa: E402
from desk import Radio  # noqa: E402
from directory_server_control import DirectoryServer, OwnServer  # noqa: E402


class TestServer(Folder):
    def __init__(self):
        super().__init__()
        self.server = OwnServer(self.folder, "--set", "seconds=0", "--set", "probe_seconds=0", "--request-log", self.path("log"))

    def tear_down(self):
        self.server.stop()
        super().tear_down()

    def test_the_probe_tells_the_length_of_the_list_exactly(self):
        status, probe = self.server.get(PROBE)
        assert status == 200
        status, data = self.server.get(LIST)
        assert status == 200 and probe == b"size:%d\r\n" % len(data)
        assert data == directory_data.downloaded_list(self.server.base, COUNT) == self.server.list_bytes()
        self.server.set(stations=1000)
        assert len(self.server.get(LIST)[1]) > 2 * len(data)

    def test_the_probe_lies_in_every_way(self):
        size = len(self.server.list_bytes())
        for how, wanted in (("refused", b"orb.cz:error"), ("refused_by_address", b"127.0.0.1:error"), ("nothing", b""),
                            ("partial", b"size"), ("two", b"size:1\r\nsize:%d" % size), ("negative", b"size:-"),
                            ("zero", b"size:0\r\n"), ("word", b"size:mnoho"), ("huge", b"size:1" + b"0" * 30),
                            ("less", b"size:%d\r\n" % (size // 2)), ("more", b"size:%d\r\n" % (2 * size)),
                            ("binary", b"\0\1\2"), ("long_line", b"x" * 1000000), ("no_size", b"velikost")):
            self.server.set(probe=how)
            status, data = self.server.get(PROBE)
            assert status == 200 and data.startswith(wanted), (how, data[:40])
            assert how != "nothing" or data == b""
        for how, wanted in (("not_found", 404), ("broken", 500)):
            self.server.set(probe=how)
            assert self.server.get(PROBE)[0] == wanted

    def test_the_list_lies_in_every_way(self):
        good = self.server.list_bytes()
        for how, wanted in (("less", good[:len(good) * 2 // 3]), ("more", good + b"a jeste neco navic\r\n"),
                            ("empty", b"<end>\r\n")):
            self.server.set(list=how)
            assert self.server.get(LIST) == (200, wanted), how
        assert self.server.get(PROBE)[1] == b"size:7\r\n", "an empty list is announced as such"
        self.server.set(list="binary")
        binary = self.server.get(LIST)[1]
        assert len(binary) == len(good) and binary[:3] == b"\0\1\2"
        for how, wanted in (("not_found", 404), ("broken", 500)):
            self.server.set(list=how)
            assert self.server.get(LIST)[0] == wanted

    def test_a_list_changes_from_request_to_request(self):
        self.server.set(list="changes")
        first = self.server.get(LIST)[1]
        probe = self.server.get(PROBE)[1]
        second = self.server.get(LIST)[1]
        assert first != second and probe == b"size:%d\r\n" % len(second)
        assert "Rádio Nováček 2".encode("cp1250") in second

    def test_a_reply_dies_or_stalls_in_the_middle(self):
        self.server.set(list="dies")
        try:
            self.server.get(LIST)
            raise AssertionError("a whole reply")
        except (ConnectionError, http.client.IncompleteRead):
            pass
        size = len(self.server.list_bytes())
        self.server.set(list="stall")
        with self.server.ask(LIST, timeout=2) as answer:
            assert len(answer.read(size // 2)) == size // 2
            try:
                answer.read(1)
                raise AssertionError("it goes on")
            except TimeoutError:
                pass
        for name, value, path in (("list", "silent", LIST), ("probe", "stall", PROBE)):
            self.server.set(**{name: value})
            try:
                self.server.get(path, timeout=1)
                raise AssertionError("it answers")
            except TimeoutError:
                pass

    def test_a_slow_list_arrives_in_pieces(self):
        self.server.set(seconds=60)
        with self.server.ask(LIST) as answer:
            got, end = 0, time.monotonic() + 1
            while time.monotonic() < end:
                got += len(answer.read1(1000000))
            assert 0 < got < len(self.server.list_bytes()) // 2

    def test_requests_are_told_as_they_were_made(self):
        self.server.get(PROBE)
        self.server.get("\\orb\\diskuze.php?idh=a&h=b&t=100000&tid=LUMO01")
        self.server.get("/orb/lt_all.php?idh=a&h=b&orbw=off&lt=on&stanice=LUMO01")
        asked = self.server.requests()
        assert asked == [f"GET {PROBE} HTTP/1.1", "GET \\orb\\diskuze.php?idh=a&h=b&t=100000&tid=LUMO01 HTTP/1.1",
                         "GET /orb/lt_all.php?idh=a&h=b&orbw=off&lt=on&stanice=LUMO01 HTTP/1.1"]
        assert self.read("log").decode().splitlines() == asked
        assert len(self.server.probes()) == 1 and not self.server.lists() and len(self.server.reports()) == 1
        self.server.reset()
        assert not self.server.requests()

    def test_the_report_answers_what_it_is_told(self):
        path = "/orb/lt_all.php?idh=a&h=b&orbw=off&lt=on&stanice=LUMO01"
        assert self.server.get(path) == (200, b"lt:ok\r\n")
        self.server.set(reply="new:Máte 3 nové zprávy|inf:Žlutá & spol.")
        assert self.server.get(path) == (200, "new:Máte 3 nové zprávy\r\ninf:Žlutá & spol.\r\n".encode("cp1250"))
        self.server.set(report="not_found")
        assert self.server.get(path)[0] == 404

    def test_pages_are_there_and_repeat_nobody(self):
        for path, wanted in (("/faq", "Nápověda"), ("/lumotune.brelt/reklama.html", "<table>"), ("/radio/lumo05", "Slovensko"),
                             ("/login/tajne-idh/13-37-//1", "úvodní"), ("/orb/melodeon.php?idh=tajne-idh&h=x", "Melodeon"),
                             ("/login/tajne-idh/13-37-/novinky.php*o*a*r*b*a*c*r*<b>/1", "novinky.php?a=b&amp;c=&lt;b&gt;"),
                             ("\\orb\\diskuze.php?idh=tajne-idh&h=x&t=100000&tid=lumo01", "Rádio Úsvit"),
                             ("/orb/diskuze.php?idh=tajne-idh&tid=<script>", "neznámé"),
                             ("/lumotune.brelt/user_lt_add.php?idh=tajne-idh", "Přidat"),
                             ("/lumotune.brelt/novinky.php?idh=tajne-idh", "Novinky")):
            status, page = self.server.get(path)
            text = page.decode("utf-8")
            assert status == 200 and wanted in text, (path, text)
            assert "tajne-idh" not in text and "<script" not in text.lower(), path
        assert self.server.get("/neni")[0] == 404 and self.server.get("/radio/neni00")[0] == 404

    def test_a_wrong_setting_changes_nothing(self):
        before = self.server.settings()
        for wrong in ({"nic": "1"}, {"probe": "jinak"}, {"seconds": "-1"}, {"stations": "mnoho"}, {"list": "good", "info": "x"}):
            try:
                self.server.set(**wrong)
                raise AssertionError(wrong)
            except ValueError:
                pass
        assert self.server.settings() == before
        assert self.server.get("/control/jinak")[0] == 404

    def test_torn_requests_harm_nobody_and_it_ends_when_asked(self):
        for data in (b"", b"\0\1\2\r\n\r\n", b"GET", b"GET " + b"x" * 70000 + b" HTTP/1.0\r\n\r\n", b"POST / HTTP/1.0\r\n\r\n"):
            with socket.create_connection(("127.0.0.1", self.server.port), timeout=10) as line:
                line.sendall(data)
        self.server.set(list="stall")
        with socket.create_connection(("127.0.0.1", self.server.port), timeout=10) as line:
            line.sendall(f"GET {LIST} HTTP/1.0\r\n\r\n".encode())
            assert line.recv(100)
            assert self.server.get(PROBE)[0] == 200
            assert self.server.stop() == 0


class TestRadio(Folder):
    def __init__(self):
        super().__init__()
        self.radio = Radio(self.folder)
        self.server = DirectoryServer(self.radio.port)

    def tear_down(self):
        self.radio.stop()
        super().tear_down()

    def test_the_radio_is_the_community_server_too(self):
        self.server.set(seconds=0, probe_seconds=0)
        data = self.server.get(LIST)[1]
        assert data == directory_data.downloaded_list(self.server.base, COUNT)
        assert self.server.get(PROBE)[1] == b"size:%d\r\n" % len(data)
        assert self.server.get("/faq")[0] == 200 and self.server.get("/neni.mp3")[0] == 404
        assert len(self.server.lists()) == 1

    def test_every_address_of_the_list_sounds(self):
        paths = {path for entry in directory_data.entries(COUNT) for path in entry.addresses if path}
        assert len(paths) > 10
        for path in sorted(paths):
            with self.server.ask(path) as answer:
                assert answer.status == 200 and answer.getheader("Content-Type").startswith("audio/"), path
                assert len(answer.read(5000)) == 5000, path

    def test_a_question_for_the_head_gets_no_sound(self):
        with socket.create_connection(("127.0.0.1", self.radio.port), timeout=10) as line:
            line.sendall(f"HEAD {directory_data.STATIONS[0].path(1)} HTTP/1.0\r\n\r\n".encode())
            data = b"".join(iter(lambda: line.recv(65536), b""))
        assert data.startswith(b"HTTP/1.0 200 ") and data.endswith(b"\r\n\r\n")
