# SPDX-License-Identifier: LGPL-2.1-or-later
"""The lists of the station directory, and what is done with a station in them."""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from directory_window import Directory  # noqa: E402
from probing import lines_of  # noqa: E402
from program import BY_ID, CHECK_VALUE, IDENTITY, MINIMIZED, NORMAL, WITHOUT_FOCUS  # noqa: E402
from sound import Sound  # noqa: E402

NAME_WIDTH = 133  # pixels, of the first column


class TestLists(Directory):
    def inks(self, name):
        """The colours of a control's dark pixels."""
        control = self.control(name)
        place = f"{control.width}x{control.height}+{control.left}+{control.top}"
        data = subprocess.run(["import", "-window", "root", "-crop", place, "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout
        return {pixel for pixel in zip(data[::3], data[1::3], data[2::3]) if min(pixel) < 100}

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

    def test_a_cut_text_shows_whole_as_a_tip_in_each_column(self):
        desk = self.open()
        self.updated()
        long, far = self.row(BY_ID["LUMO13"].name), self.row("Night Drive FM")
        for (x, y), text in ((long.place, long.text), ((far.place[0] + NAME_WIDTH, far.place[1]), far.country)):
            subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)
            self.until(lambda text=text: lines_of("tips") == [text], text=str(lines_of("tips")))
        subprocess.run(["xdotool", "mousemove", str(x), str(self.control("ListView1").top + 8)], check=True)
        self.until(lambda: not lines_of("tips"), text="it goes with the pointer")

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
        self.until(lambda: self.inks("Label4"), text="its address is drawn")
        assert not any(blue > red + 60 for red, _, blue in self.inks("Label4")), "black, as after the first move of the mouse"


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
    harness.run(TestLists, TestActions)
