# SPDX-License-Identifier: LGPL-2.1-or-later
"""Every pop-up menu of the real program: items chosen by their captions, the companions tell what they were started with."""
import os
import shutil
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from directory_server_control import DirectoryServer  # noqa: E402
from program import BY_ID, CHECK_VALUE, IDENTITY, MINIMIZED, NORMAL, WITHOUT_FOCUS, Program  # noqa: E402
from sound import Sound  # noqa: E402

OFF = "13=#013:LTautoStart:0"


class Menus(Program):
    def from_main_menu(self, *path):
        self.desk.click("Control_Menu")
        self.desk.choose(*path)

    def from_station_menu(self, *path):
        self.desk.click("InfoName")
        self.desk.choose(*path)

    def from_favourites_menu(self, index, *path):
        self.desk.click_at(self.desk.favourite_place(index), 3)
        self.desk.choose(*path)

    def base(self):
        return self.radio.address("")


class TestMainMenu(Menus):
    def test_pages_of_the_community(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)
        self.from_main_menu("Orb")
        self.started("explorer", "explorer " + self.login(), MINIMIZED)
        self.from_main_menu("Diskuze k rádiové stanici")
        browser = self.windows_folder() + "\\OrbBrowser.exe "
        self.started("OrbBrowser", f"{browser}{self.base()}\\orb\\diskuze.php?{IDENTITY}&t=100000&tid=LUMO01"
                     "/@/9000/@/9000/@/Diskuze k rádiové stanici: Rádio Úsvit (Orb)/@/normal/@/endtestnull/@/", MINIMIZED)
        self.from_main_menu("Přidat nové rádio")
        self.started("OrbBrowser", f"{browser}{self.base()}/lumotune.brelt/user_lt_add.php?{IDENTITY}/@/9000/@/9000/@/"
                     "Přidat nové rádio (Orb)/@/normal/@/endtestnull/@/", MINIMIZED)
        self.from_main_menu("Orb Melodeon")
        self.started("OrbBrowser", f"{browser}{self.base()}\\orb\\melodeon.php?{IDENTITY}/@/14000/@/8000/@/Orb Melodeon (Orb)"
                     "/@/max/@/endtestnull/@/", MINIMIZED)
        self.from_main_menu("Nápověda")
        self.started("explorer", f"explorer {self.base()}/faq", MINIMIZED)
        desk.click("Orbwww")
        self.until(lambda: desk.log("explorer").count("/login/") == 2, 15, "the logo")

    def test_recorder_listeners_and_trouble(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)
        self.from_main_menu("Zobrazit posluchače tohoto rádia")
        self.log_has("orb", "received kind=1 text=lts:LUMO01")
        self.from_main_menu("Mám potíže s poslechem...")
        self.started("remind", f"remind.exe RadioOFF/@/LUMO01/@/Rádio Úsvit/@/demo-uzivatel/@/{CHECK_VALUE}/@/{self.base()}",
                     NORMAL)
        self.from_main_menu("Mp3 nahrávání")
        recorder = self.windows_folder() + "\\OrbRecorder.exe "
        self.started("OrbRecorder", recorder + "Rádio Úsvit", NORMAL)
        self.from_main_menu("Knihovna nahrávek")
        self.started("OrbRecorder", recorder + "l", NORMAL)
        desk.click("Control_Rec")
        self.until(lambda: desk.log("OrbRecorder").count("\\OrbRecorder.exe Rádio Úsvit") == 2)
        desk.click("Control_ShowUser")
        self.until(lambda: desk.log("orb").count("text=lts:LUMO01") == 2)

    def test_settings_and_skins(self):
        self.desk = desk = Desk(self.folder, self.radio)
        self.another_skin("Druhý")
        desk.start()
        self.hear(BY_ID["LUMO01"].hertz)
        self.from_main_menu("Nastavení", "Vždy nahoře")
        self.until(lambda: desk.form().topmost, text="always on top")
        self.from_main_menu("Nastavení", "Zapnout rádio při startu")
        assert (desk.form().width, self.play_button()) == (420, (16, 172)), "the skin of the settings"
        self.from_main_menu("Skiny", "Druhý")
        self.until(lambda: (desk.form().width, self.play_button()) == (450, (26, 162)), text="the other skin")
        assert desk.text("PlayTL") == "Stop" and desk.visible("InfoName"), "it plays on, and says so"
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options()[11] == "#011:LTTop:1"
        assert desk.options()[13] == "#013:LTautoStart:0", "it was on before"
        assert desk.options()[21] == "#021:LTskin:Druhý"

    def another_skin(self, name):
        """The usual one but for the window's width and a button's place."""
        skins = self.desk.path("Orb_Data", "skins")
        shutil.copytree(os.path.join(skins, "Lumo"), os.path.join(skins, name))
        with open(os.path.join(skins, "Lumo.skin"), encoding="cp1250", newline="") as source:
            text = source.read()
        for one, other in (("LTform|6300|", "LTform|6750|"), ("Control_Play|show|2580|240", "Control_Play|show|2430|390")):
            assert one in text
            text = text.replace(one, other)
        with open(os.path.join(skins, name + ".skin"), "w", encoding="cp1250", newline="") as out:
            out.write(text)

    def play_button(self):
        """Where it is in its window."""
        now = self.desk.controls()
        return now["Control_Play"].left - now["Form"].left, now["Control_Play"].top - now["Form"].top

    def test_the_console(self):
        desk = self.begin(OFF)
        self.from_main_menu("Nastavení", "Konzole")
        desk.into_box("HELP.")
        self.box("vol=(hodnota 0 - 100)")
        desk.into_box(f"url={self.radio.address('/lumo05-128.mp3')}")
        self.hear(BY_ID["LUMO05"].hertz)
        self.until(lambda: desk.text("InfoName") == "Orb - Lumotune", text=desk.text("InfoName"))
        loud = Sound.level(Sound.record(1))
        self.from_main_menu("Nastavení", "Konzole")
        desk.into_box("vol=10")
        self.until(lambda: Sound.level(Sound.record(0.5)) < loud / 2, 10, "quieter")
        assert desk.options()[20] == "#020:LTvolume:60", "the one of the start, until the program ends"
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options()[20] == "#020:LTvolume:10"

    def test_without_a_server_the_pages_say_so(self):
        self.desk = None
        desk = self.begin(OFF)
        for name in ("orb_server.tt", "orb_server.tt.tmp"):
            with open(desk.path("Orb_Data", name), "w", encoding="cp1250", newline="") as out:
                out.write("a\r\nb\r\nc\r\nd\r\ne\r\nf\r\nOrbServerAddr::\r\n")
        for caption in ("Orb", "Diskuze k rádiové stanici", "Orb Melodeon", "Přidat nové rádio"):
            self.from_main_menu(caption)
            self.box("Nejprve použujte funkci Naladit rádio.")
        assert not desk.log("OrbBrowser")


class TestOtherMenus(Menus):
    def test_the_volume_menu(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)
        loud = Sound.level(Sound.record(1))
        desk.click("Control_Volume")
        desk.choose("O")
        self.until(lambda: Sound.loudest(0.4) == 0, 10, "volume 0")
        desk.click("Control_Volume")
        desk.choose("lllllllllllllll")
        self.until(lambda: Sound.level(Sound.record(0.5)) > loud, text="volume 100")

    def test_the_stations_menu(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)
        server = DirectoryServer(self.radio.port)
        self.from_station_menu("Dostupné kvality", "64 kbps")
        self.until(lambda: server.requests("lumo01-64"), text="the second quality")
        self.hear(BY_ID["LUMO01"].hertz)
        self.from_station_menu(self.base() + "/radio/lumo01")
        self.log_has("explorer", "explorer " + self.base())
        self.from_station_menu("Naladit jiné rádio")
        self.until(lambda: "Form" in desk.controls("ListRadios"), text="the directory")
        desk.close_window("ListRadios")
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options()[12] == "#012:LTLast:LUMO01/2"

    def test_the_favourites_menu(self):
        desk = self.begin(OFF)
        self.until(lambda: len(desk.items()) == 3, 10, str(desk.items()))
        tuned = desk.items()[1]
        station = next(station for station in BY_ID.values() if tuned.startswith(station.name))
        self.from_favourites_menu(1, "Naladit rádio " + station.name)
        self.hear(station.hertz)
        desk.click("Control_Play")
        self.until(lambda: desk.visible("Control_List"))
        self.from_favourites_menu(1, "Diskuze k rádiové stanici")
        self.log_has("OrbBrowser", f"tid={station.identifier}/@/9000/@/9000/@/Diskuze k rádiové stanici: {station.name} (Orb)")
        self.from_favourites_menu(1, "Zobrazit uživatele poslouchající toto rádio")
        self.log_has("orb", "text=lts:" + station.identifier)
        self.from_favourites_menu(1, "Mám potíže s poslechem tohoto rádia")
        self.log_has("remind", f"RadioOFF/@/{station.identifier}/@/{station.name}/@/")
        self.from_favourites_menu(1, "Odebrat z oblíbených rádií")
        self.box("Rádio bylo ostraněno z oblíbených.")
        assert len(desk.items()) == 2

    def test_a_click_on_a_favourite_tunes_it(self):
        desk = self.begin(OFF)
        self.until(lambda: len(desk.items()) == 3)
        desk.click_at(desk.favourite_place(2))
        station = next(station for station in BY_ID.values() if desk.items()[2].startswith(station.name))
        desk.click("Control_Play")
        self.hear(station.hertz)
        self.until(lambda: station.name.startswith((desk.text("InfoName") or "?").rstrip(".")), text=desk.text("InfoName"))

    def test_the_trays_menu(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)

        def choose(caption):
            self.until(lambda: self.tray_icon() is not None)
            desk.click_at(self.tray_icon(), 3)
            desk.click_at(desk.item_place(caption))

        choose("Stop")
        self.until(lambda: desk.text("PlayTL") == "Zapnout", text="stopped from the tray")
        choose("Konec")
        assert desk.ended(), "ended from the tray"

    def test_the_media_keys(self):
        desk = self.begin()
        self.hear(BY_ID["LUMO01"].hertz)
        play_pause, stop, mute = 14, 13, 8
        assert desk.app_command(play_pause)
        self.until(lambda: desk.text("PlayTL") == "Zapnout", text="stopped")
        assert desk.app_command(play_pause)
        self.until(lambda: desk.text("PlayTL") == "Stop", text="playing")
        assert desk.app_command(stop)
        self.until(lambda: desk.text("PlayTL") == "Zapnout", text="stopped again")
        assert desk.app_command(stop)  # which comes back when the program has obeyed
        assert desk.text("PlayTL") == "Zapnout", "stopping twice does not play"
        assert not desk.app_command(mute), "the other keys are left alone"

    def test_the_report_of_what_plays(self):
        desk = self.begin()
        server = DirectoryServer(self.radio.port)
        self.hear(BY_ID["LUMO01"].hertz)
        self.until(server.reports, text="a report")
        report = server.reports()[0]
        assert f"/orb/lt_all.php?{IDENTITY}&orbw=on&lt=on&stanice=LUMO01" in report, report
        folder = self.windows_folder()
        self.started("load", f"load.exe {self.base()}/orb/lt_all.php?{IDENTITY}&orbw=on&lt=on&stanice=LUMO01"
                     f"/@/{folder}\\orblt.tt", WITHOUT_FOCUS)
        self.until(lambda: desk.log("orb").count(f"start show={WITHOUT_FOCUS} dir={folder} line={folder}\\orb.exe m") == 2,
                   10, "the client is started with the program and with the report: " + desk.log("orb"))

    def test_unread_messages_are_told_when_the_client_is_off(self):
        self.desk = None
        desk = self.begin(OFF, "18=#018:OLt:off")
        server = DirectoryServer(self.radio.port)
        server.set(reply="new:Máte 2 nové zprávy|inf:Od Žofky")
        desk.click("Control_Play")
        self.hear(BY_ID["LUMO01"].hertz)
        self.until(lambda: any(box[0] == "Nepřečtené zprávy na Orb" for box in desk.boxes()), text=str(desk.boxes()))
        text = " ".join(desk.boxes()[0])
        assert "Máte 2 nové zprávy" in text and "Od Žofky" in text and "Chcete zapnout Orb klienta?" in text, text
        desk.key("Return")
        self.log_has("orb", "received kind=1 text=lt:LUMO01")
        folder = self.windows_folder()
        self.started("load", f"load.exe {self.base()}/orb/lt_all.php?{IDENTITY}&orbw=off&lt=on&stanice=LUMO01"
                     f"/@/{folder}\\orblt.tt", WITHOUT_FOCUS)
        assert desk.log("orb").count("start ") == 1, "only with the program: " + desk.log("orb")
        self.until(lambda: not os.path.exists(desk.path("orblt.tt")), text="the reply is removed")


if __name__ == "__main__":
    harness.run(TestMainMenu, TestOtherMenus)
