# SPDX-License-Identifier: LGPL-2.1-or-later
"""The station directory of the real program: the update from a server of every kind, the lists, the stations."""
import os
import re
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from directory_server_control import DirectoryServer  # noqa: E402
from probing import PROBE, wine  # noqa: E402
from program import BY_ID, CHECK_VALUE, IDENTITY, MINIMIZED, NORMAL, WITHOUT_FOCUS, Program  # noqa: E402
from sound import Sound  # noqa: E402

DONE = "Hotovo, připraven..."
REFUSED = "Aktualizaci nyní nelze provést, zkuste to prosím později."
OFF = "13=#013:LTautoStart:0"


class Directory(Program):
    def open(self, *options, **settings):
        """The program with its directory open; the server is set first."""
        desk = self.begin(*(options or (OFF,)))
        self.server = DirectoryServer(self.radio.port)
        self.server.reset()
        self.server.set(**{"seconds": "0.5", "probe_seconds": "0", **settings})
        desk.click("Control_Sat")
        self.until(lambda: (form := self.control("Form")) and form.visible, text="the directory opens")
        return desk

    def control(self, name):
        return self.desk.controls("ListRadios").get(name)

    def status(self):
        label = self.control("Label1")
        return label.text if label else None

    def updated(self, seconds=25):
        self.until(lambda: self.status() == DONE, seconds, self.status())

    def node(self, text):
        return next(node for node in self.desk.nodes() if node.text == text)

    def row(self, part):
        return next(row for row in self.desk.rows() if part in row.text)

    def click(self, name, button=1):
        self.desk.click(name, button, window="ListRadios")


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


class TestLists(Directory):
    def test_categories_filter_by_mouse_and_keyboard(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.node("Česká rádia").place)
        self.until(lambda: self.status().startswith("Zobrazeno "))
        rows = desk.rows()
        assert rows and {row.country for row in rows} == {"Česko"}, {row.country for row in rows}
        assert self.status() == f"Zobrazeno {len(rows)} rádií"
        desk.key("Down")
        self.until(lambda: {row.country for row in desk.rows()} == {"Slovensko"})
        desk.key("Up", "Up", "Right", "Down")
        self.until(lambda: next(node for node in desk.nodes() if node.selected).depth == 1)
        assert len({row.country for row in desk.rows()}) > 1, "a genre reaches across the countries"

    def test_a_click_shows_details_and_a_double_click_plays(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.row("Tatranská ozvena").place)
        self.until(lambda: self.control("Label2").text == "Tatranská ozvena")
        assert self.control("Label3").text == "Slovensko"
        assert self.control("Label4").text.startswith("http://127.0.0.1:")
        assert self.control("Label5").visible
        desk.click_at(self.row("Tatranská ozvena").place, times=2)
        self.hear(BY_ID["LUMO05"].hertz)
        self.until(lambda: desk.text("PlayTL") == "Stop")

    def test_enter_offers_the_qualities_at_the_row(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.row("Vlna Šumava").place)
        self.until(lambda: self.control("Label2").text == "Vlna Šumava")
        desk.key("Return")
        desk.choose("64 kbps")
        self.hear(BY_ID["LUMO02"].hertz)
        self.until(lambda: self.server.requests("lumo02-64"), text="the second quality")

    def test_television_has_a_player_of_its_own(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.node("Televize").place)
        self.until(lambda: self.status().startswith("Zobrazeno "))
        desk.click_at(self.row("Televize Lumo").place)
        self.until(lambda: not self.control("Label5").visible)
        desk.click_at(self.row("Televize Lumo").place, times=2)
        self.started("Telvix", f"{self.windows_folder()}\\Telvix.exe {self.radio.address('/lumo14-128.mp3')}", NORMAL)
        assert Sound.loudest() == 0

    def test_the_keyboard_reaches_everything(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.node("Všechna rádia").place)
        reached = set()
        for _ in range(16):
            reached.add(desk.keyboard_at("ListRadios"))
            desk.tab("ListRadios")
        wanted = {"TreeView1", "ListView1", "Label4", "Text1", "Label7", "Label5", "Label9", "Label10", "Label6", "Image3",
                  "Command1", "InfoPanel"}
        assert wanted <= reached, wanted - reached

    def test_letters_find_a_row(self):
        desk = self.open()
        self.updated()
        desk.click_at(desk.rows()[0].place)
        subprocess.run(["xdotool", "type", "--delay", "60", "klub"], check=True)
        self.until(lambda: desk.rows()[desk.selected_row() - 1].text == "Klub Půlnoc", text=str(desk.selected_row()))
        self.until(lambda: self.control("Label2").text == "Klub Půlnoc")

    def test_the_window_can_be_resized(self):
        desk = self.open()
        self.updated()
        form, before = self.control("Form"), self.control("ListView1")
        window = subprocess.run(["xdotool", "search", "--name", "^Seznam rádií$"], capture_output=True, text=True,
                                check=True).stdout.split()[-1]
        subprocess.run(["xdotool", "windowsize", window, str(form.width + 150), str(form.height + 100)], check=True)
        self.until(lambda: self.control("ListView1").width > before.width)
        after = self.control("ListView1")
        assert after.height > before.height
        subprocess.run(["xdotool", "windowsize", window, "200", "150"], check=True)
        self.until(lambda: self.control("Form").width < form.width and self.control("Form").height < form.height)
        assert self.control("Form").width > 500 and self.control("ListView1").width > 100

    def test_a_second_opening_finds_the_tuned_station(self):
        desk = self.open("13=#013:LTautoStart:0", "12=#012:LTLast:LUMO06/1")
        assert desk.selected_row() == 6
        assert self.control("Label2").text == "Rádio Dunaj"


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


class TestActions(Directory):
    def test_a_favourite_is_added_listed_played_and_removed(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.row("Alpenglühen").place)
        with open(desk.path("list.tt"), "w", encoding="cp1250", newline="") as out:
            out.write("lt:LUMO01/1\r\n")
        self.click("Label5")
        desk.choose("128 kbps")
        self.box("Rádio bylo přidáno k oblíbeným.")
        with open(desk.path("list.tt"), encoding="cp1250", newline="") as source:
            assert source.read() == "lt:LUMO01/1\r\nlt:LUMO08/1\r\n"
        desk.close_window("ListRadios")
        self.until(lambda: len(desk.items()) == 2, 10, str(desk.items()))
        assert desk.items()[1].startswith("Alpenglühen  (128kbps)")
        desk.click_at(desk.favourite_place(1), times=2)
        self.hear(BY_ID["LUMO08"].hertz)
        desk.click("Control_Play")
        self.until(lambda: desk.visible("Control_List"))
        desk.click_at(desk.favourite_place(1), 3)
        desk.choose("Odebrat z oblíbených rádií")
        self.box("Rádio bylo ostraněno z oblíbených.")
        self.until(lambda: len(desk.items()) == 1)
        with open(desk.path("list.tt"), encoding="cp1250", newline="") as source:
            assert source.read() == "\r\nlt:LUMO01/1\r\n"

    def test_links_start_the_companions(self):
        desk = self.open()
        self.updated()
        base = self.radio.address("")
        desk.click_at(self.row("Klub Půlnoc").place)
        self.click("Label10")
        self.started("OrbBrowser", f"{self.windows_folder()}\\OrbBrowser.exe {base}\\orb\\diskuze.php?{IDENTITY}&t=100000"
                     "&tid=LUMO03/@/9000/@/9000/@/Diskuze k rádiové stanici: Klub Půlnoc (Orb)/@/normal/@/endtestnull/@/",
                     MINIMIZED)
        self.click("Label6")
        self.started("remind", f"remind.exe RadioOFF/@/LUMO03/@/Klub Půlnoc/@/demo-uzivatel/@/{CHECK_VALUE}/@/{base}", NORMAL)
        self.click("Label9")
        self.log_has("orb", "received kind=1 text=lts:LUMO03")
        self.click("Image3")
        self.started("explorer", "explorer " + self.login(), MINIMIZED)
        folder = self.windows_folder()
        self.started("load", f"load.exe {base}/lumotune.brelt/lt_list.php?size=1&idh=demo-uzivatel/@/{folder}\\orb_test_size.tt",
                     WITHOUT_FOCUS)
        self.started("load", f"load.exe {base}/lumotune.brelt/lt_list.php?idh=demo-uzivatel/@/{folder}/seznam.tt", WITHOUT_FOCUS)

    def test_the_information_line_obeys(self):
        desk = self.open(info="opengbrowser")
        self.updated()
        self.until(lambda: self.control("InfoPanel").text.startswith("V adresáři je dnes"))
        self.click("InfoPanel")
        self.until(desk.boxes, text="the box with the command")
        assert desk.press("OK")
        self.log_has("OrbBrowser", "\\OrbBrowser.exe " + self.radio.address("/"))

    def test_a_television_row_offers_no_quality_to_add(self):
        desk = self.open()
        self.updated()
        desk.click_at(self.node("Televize").place)
        self.until(lambda: self.status().startswith("Zobrazeno "))
        desk.click_at(self.row("Televize Lumo").place, 3)
        self.until(desk.menu_items, text="the menu opens")
        captions = [item.caption for item in desk.menu_items()]
        assert "Naladit rádio" in captions and "Přidat rádio do rychlého seznamu" not in captions, captions
        desk.choose("Mám potíže s poslechem tohoto rádia")
        self.log_has("remind", "RadioOFF/@/LUMO14/@/Televize Lumo/@/")


if __name__ == "__main__":
    harness.run(TestUpdate, TestLists, TestBadFiles, TestActions)
