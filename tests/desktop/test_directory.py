# SPDX-License-Identifier: LGPL-2.1-or-later
"""The station directory of the real program: the update from a server of every kind, and files of any bytes."""
import os
import re
import shutil
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from directory_server_control import DirectoryServer  # noqa: E402
from directory_window import DONE, OFF, REFUSED, Directory  # noqa: E402
from probing import PROBE, wine  # noqa: E402


class TestUpdate(Directory):
    def test_the_list_is_downloaded_with_progress_and_shown(self):
        self.open(seconds="4")
        seen = set()

        def look():
            seen.add((self.status() or "")[:25])
            if self.control("Progress").visible:
                seen.add("progress")
            return self.status() == DONE

        self.until(look, 40, self.status())
        assert {"Aktualizuji seznam rádií ", "progress"} <= seen, seen
        assert not self.control("Progress").visible
        with open(self.desk.path("radios.tt"), encoding="cp1250", newline="") as source:
            lines = source.read().split("\r\n")
        assert len([line for line in lines if line]) == 320
        first = self.desk.nodes()[0]
        assert (first.text, first.depth) == ("Všechna rádia", 0)
        assert len(self.desk.rows()) == 320, "the first category holds every station"
        assert "size=1&idh=demo-uzivatel" in self.server.probes()[0]
        assert len(self.server.lists()) == 1
        self.until(lambda: self.control("InfoPanel").text.startswith("V adresáři je dnes 320"))
        self.until(lambda: self.server.requests("reklama"), text="the advertisement is asked for")

    def test_a_refusal_leaves_the_old_list(self):
        for answer in ("refused", "negative", "huge", "no_size", "binary"):
            self.open(probe=answer)
            before = len(self.desk.rows())
            self.until(lambda: self.status() == REFUSED, 20, f"{answer}: {self.status()}")
            self.click("Command1")
            self.until(lambda: len(self.server.probes()) == 2 and self.status() == REFUSED, text=f"{answer}: {self.status()}")
            assert not self.server.lists(), answer
            assert len(self.desk.rows()) == before == 14, answer
            self.desk.close()

    def test_a_list_of_another_length_is_never_taken(self):
        for settings in ({"list": "less"}, {"list": "more"}, {"list": "dies"}, {"probe": "less"}, {"list": "not_found"}):
            desk = self.open(**settings)
            self.until(lambda: len(re.findall("^(?:done|failed)$", desk.log("load"), re.MULTILINE)) == 2, text=desk.log("load"))
            # The list is there as it will stay. Another one of a quarter of the length shows that it was looked at since.
            with open(desk.path("orb_test_size.tt"), encoding="ascii") as source:
                announced = int(source.read().strip().removeprefix("size:"))
            self.until(lambda: self.write_list(b"x" * (announced // 4)))
            self.until(lambda: self.status() == "Aktualizuji seznam rádií (25%)", text=f"{settings}: {self.status()}")
            assert len(self.desk.rows()) == 14, settings
            assert os.path.getsize(self.desk.path("radios.tt")) < 5000, settings
            self.desk.close()

    def write_list(self, data):
        try:
            with open(self.desk.path("seznam.tt"), "wb") as out:
                out.write(data)
        except OSError:
            return False
        return True

    def test_a_download_that_stalls_is_given_up_by_closing(self):
        desk = self.open(list="stall")
        self.until(lambda: self.status().startswith("Aktualizuji seznam rádií (5") or "(49%" in self.status(), text=self.status())
        self.server.set(list="good")
        desk.close_window("ListRadios")
        self.until(lambda: self.control("Form") is None, text="the window goes")
        wine("taskkill", "/f", "/im", "load.exe")  # it would hold its file until the server lets it go
        desk.click("Control_Sat")
        self.updated()
        assert len(desk.rows()) == 320

    def test_the_button_updates_again(self):
        self.open(stations="50", list="changes")
        self.updated()
        before = [row.text for row in self.desk.rows()]
        self.click("Command1")
        assert not self.control("Command1").enabled or self.status() == DONE
        self.updated()
        self.until(lambda: len(self.server.lists()) == 2)
        self.until(lambda: self.control("Command1").enabled)
        after = [row.text for row in self.desk.rows()]
        assert before != after and len(before) == len(after) == 50

    def test_off_the_internet_the_button_says_so(self):
        system = os.path.join(os.environ["WINEPREFIX"], "drive_c", "windows", "system32", "wininet.dll")
        shutil.copy(system, system + ".kept")
        before = os.environ["WINEDLLOVERRIDES"]
        try:
            shutil.copy(os.path.join(os.path.dirname(PROBE), "offline.dll"), system)
            os.environ["WINEDLLOVERRIDES"] = before + ";wininet=n"
            self.open(advert="none")
            self.updated()
            lists = len(self.server.lists())
            self.click("Command1")
            self.box("Nejste připojeni k internetu.  Prosím připojte se!")  # CR LF reads as two blanks
            assert not self.control("Command1").enabled
            assert len(self.server.lists()) == lists
            self.desk.close()
        finally:
            os.environ["WINEDLLOVERRIDES"] = before
            os.replace(system + ".kept", system)

    def test_a_huge_list_is_taken_and_the_window_stays_alive(self):
        self.open(stations="50000", seconds="2")
        self.updated(90)
        self.desk.click_at(self.node("Slovenské rádiá").place)
        self.until(lambda: (self.status() or "").startswith("Zobrazeno "), text=self.status())
        shown = int(self.status().split()[1])
        assert 1000 < shown < 50000, self.status()


class TestBadFiles(Directory):
    def test_any_bytes_are_lists(self):
        """Binary lines, a line of a megabyte, every kind of line end, records torn or of forty fields."""
        self.desk = desk = Desk(self.folder, self.radio, (OFF,))
        long = b"m" * 1000000
        records = b"".join(b"POLE%02d" % count + b"".join(b"/@/%d" % at for at in range(1, count)) + b"\r\n" for count in range(1, 41))
        stations = (b"\x00\x01\x1a\xff/@/bin\x00\r" + b"CR0001/@/Konec CR\rLF0001/@/Konec LF\n\r\n/@/bez id\r\n" + records + long +
                    b"/@/" + long + b"\r\nTORN01/@/Utr")
        categories = (b"add//100001a/@/sirotek\r\nnew//100001/@/Prvni\rnew//100001/@/podruhe\nnew//torn\r\n\x00\xff\r\n" +
                      b"new//100002/@/" + long + b"\r\n" + long + b"\r\nadd//100002x/@/Dite")
        favourites = b"lt:POLE16/1\rlt:\x00\x00\x00\x00\x00\x00/1\nlt:" + long + b"\r\nlt:LF0001/5\r\nlt:POLE40/5"
        for name, content in (("radios.tt", stations), ("kategories.tt", categories), ("list.tt", favourites)):
            with open(desk.path(name), "wb") as out:
                out.write(content)
        desk.start()
        self.server = DirectoryServer(self.radio.port)
        self.server.reset()
        self.server.set(probe="refused")
        self.until(lambda: len(desk.items()) == 3, 10, "the favourites that have stations")
        desk.click_at(desk.favourite_place(1), times=2)
        desk.click("Control_Sat")
        self.until(lambda: (form := self.control("Form")) and form.visible, text="the directory opens")
        self.until(lambda: self.status() == REFUSED, 20, self.status())
        assert len(desk.rows()) == 46, len(desk.rows())
        assert [node.text[:5] for node in desk.nodes()] == ["Prvni", "mmmmm", "Dite"]
        desk.click_at(desk.rows()[0].place)
        desk.key(*["Down"] * 8)
        desk.key("End", "Up", "Up", "Up", "End", "Home")
        desk.click_at(desk.nodes()[1].place)
        self.until(lambda: self.status() == "Zobrazeno 0 rádií", text=self.status())
        desk.close_window("ListRadios")
        self.until(lambda: self.control("Form") is None, text="the window goes")
        assert desk.visible("Control_Play")
        for name, content in (("radios.tt", stations), ("kategories.tt", categories), ("list.tt", favourites)):
            with open(desk.path(name), "rb") as source:
                assert source.read() == content, name


if __name__ == "__main__":
    harness.run(TestUpdate, TestBadFiles)
