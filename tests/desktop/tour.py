# SPDX-License-Identifier: LGPL-2.1-or-later
"""A short tour of the program: prints what is heard and seen, leaves pictures, and fails when no sound flows."""
import os
import re
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desk import Desk, Radio, picture  # noqa: E402
from directory_server_control import DirectoryServer  # noqa: E402
from probing import PROBE, TOP, wait_for, wine  # noqa: E402
from program import Program  # noqa: E402
from sound import STATIONS, Sound  # noqa: E402
from directory_data import info_text  # noqa: E402


SKINS = os.path.join(TOP, "tests", "data", "skins")
INFO_TEXT = info_text(320)  # as many stations as the server has unless told otherwise


class Tour:
    def __init__(self, folder):
        self.folder = folder
        self.radio = Radio(folder)
        self.server = DirectoryServer(self.radio.port)
        self.desk = Desk(os.path.join(TOP, "build", "demo"), self.radio)
        for name in ("Denní", "Sloupek"):
            shutil.copytree(os.path.join(SKINS, name), self.desk.path("Orb_Data", "skins", name), dirs_exist_ok=True)
            shutil.copy(os.path.join(SKINS, name + ".skin"), self.desk.path("Orb_Data", "skins"))
        self.good, self.pictures = True, 0

    @staticmethod
    def say(text):
        print(f"tour: {text}", flush=True)

    def check(self, fact, text, otherwise):
        self.good &= bool(fact)
        self.say(text if fact else otherwise)

    def show(self, name):
        self.pictures += 1
        picture(os.path.join(self.folder, f"{self.pictures:02}-{name}.png"))

    def hear(self, station, text):
        heard = wait_for(lambda: Sound.loudest() == station.hertz)
        self.check(heard, f"{text}, {station.hertz} Hz heard", f"NO SOUND: {text}")

    def menu(self, name, *path):
        """A picture of the menu that was just opened, and of the submenu at the path of captions; both are then closed."""
        seen = wait_for(self.desk.menus)
        if seen and path:
            self.desk.open_submenu(*path)
        self.painted(self.desk.menus())
        self.show(name)
        self.check(seen, f"menu seen: {name}", f"NO MENU: {name}")
        def closed():
            if self.desk.menus():
                wine(PROBE, "cancel")
            return not self.desk.menus()
        wait_for(closed)

    @staticmethod
    def painted(places):
        """These parts of the screen have been drawn: they look the same twice, and not of one colour."""
        def shots():
            return [subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "rgb:-"],
                                   capture_output=True, check=False).stdout for left, top, width, height in places]

        def still():
            first = shots()
            return all(len(set(shot)) > 3 for shot in first) and first == shots()
        wait_for(still)

    def box(self, text, name):
        seen = wait_for(lambda: any(text in part for box in self.desk.boxes() for part in box))
        self.show(name)
        self.check(seen, f"box seen: '{text}'", f"NO BOX: '{text}'")
        self.desk.press("OK")
        wait_for(lambda: not any(text in part for box in self.desk.boxes() for part in box))

    def in_directory(self, name):
        return self.desk.controls("ListRadios")[name]

    def listening(self):
        desk = self.desk
        desk.start()
        first = STATIONS[0]
        self.hear(first, "the last station plays")
        wait_for(lambda: desk.text("InfoTime"))
        now = desk.controls()
        self.say(f"seen: name '{now['InfoName'].text}', time '{now['InfoTime'].text}', status '{now['InfoStatus'].text}'")
        self.good &= now["InfoName"].text == first.name
        self.show("playing")
        desk.click("Control_Menu")
        self.menu("menu")
        desk.click("Control_Menu")
        self.menu("menu-settings", "Nastavení")
        desk.click("Control_Menu")
        self.menu("menu-skins", "Skiny")
        self.skins(first)
        self.console()
        desk.click("Control_Volume")
        self.menu("menu-volume")
        desk.click("InfoName")
        self.menu("menu-station", "Dostupné kvality")
        desk.click("Control_Play")
        silent = wait_for(lambda: Sound.loudest() == 0)
        self.check(silent, "stopped by the mouse, silence", "NOT SILENT after stop")
        wait_for(lambda: desk.visible("Control_List"))
        self.check(len(desk.items()) == 3, f"favourites listed: {len(desk.items())}", f"FAVOURITES: {desk.items()}")
        self.show("favourites")
        desk.click_at(desk.favourite_place(1), 3)
        self.menu("menu-favourite")

    def skins(self, station):
        """Changes while the station plays: other sizes, colours and controls, and back."""
        desk = self.desk
        for name, size, file in (("Denní", (560, 124), "skin-light"), ("Sloupek", (200, 420), "skin-tall"),
                                 ("Lumo", (420, 232), "skin-lumo")):
            desk.click("Control_Menu")
            desk.choose("Skiny", name)
            changed = wait_for(lambda: (desk.form().width, desk.form().height) == size, 10)  # pylint: disable=cell-var-from-loop
            self.check(changed, f"the skin is changed to '{name}' while '{station.name}' plays", f"THE SKIN IS NOT '{name}'")
            self.hear(station, "it plays on")
            self.show(file)

    def console(self):
        self.desk.click("Control_Menu")
        self.desk.choose("Nastavení", "Konzole")
        self.desk.into_box("help", lambda: self.show("console"))
        self.box("vol=(hodnota 0 - 100)", "box-console-help")

    def browsing(self):
        desk = self.desk
        self.server.set(seconds="4")
        desk.click("Control_Sat")
        wait_for(lambda: re.search(r"\([1-9][0-9]+%\)|Hotovo", self.in_directory("Label1").text))
        self.show("directory-download")
        self.say(f"the directory is downloaded: '{self.in_directory('Label1').text}'")
        done = wait_for(lambda: self.in_directory("Label1").text == "Hotovo, připraven...")
        self.check(done, f"stations in the directory: {len(desk.rows())}", "THE DOWNLOAD DOES NOT END")
        typed = wait_for(lambda: self.in_directory("InfoPanel").text == INFO_TEXT)
        self.check(typed, f"the information line is typed: '{INFO_TEXT}'", "THE INFORMATION LINE IS NOT TYPED OUT")
        self.show("directory")
        desk.click_at(next(node for node in desk.nodes() if node.text == "Slovenské rádiá").place)
        wait_for(lambda: self.in_directory("Label1").text.startswith("Zobrazeno"))
        self.say(f"a category is chosen: '{self.in_directory('Label1').text}'")
        station = STATIONS[5]
        desk.click_at(next(row for row in desk.rows() if row.text == station.name).place)
        wait_for(lambda: self.in_directory("Label2").text == station.name)
        self.show("directory-details")
        desk.click_at(next(row for row in desk.rows() if row.text == station.name).place, 3)
        self.menu("menu-directory")
        desk.click_at(next(row for row in desk.rows() if row.text == station.name).place)
        desk.click("Label7", window="ListRadios")
        self.menu("menu-qualities")
        desk.click("Label5", window="ListRadios")
        self.menu("menu-add")
        desk.click("Label5", window="ListRadios")
        desk.choose("Informace")
        self.box("Zvolte kvalitu úměrnou k rychlosti", "box-quality-advice")
        desk.click("Label5", window="ListRadios")
        desk.choose("128 kbps")
        self.box("Rádio bylo přidáno k oblíbeným.", "box-favourite-added")
        desk.click("Label7", window="ListRadios")
        desk.choose("128 kbps")
        self.hear(station, f"'{station.name}' of the directory plays")
        desk.close_window("ListRadios")
        wait_for(lambda: "Form" not in desk.controls("ListRadios"))
        self.show("directory-closed")

    def companions(self):
        desk = self.desk
        desk.click("Control_Rec")
        started = wait_for(lambda: "OrbRecorder.exe" in desk.log("OrbRecorder"))
        self.check(started, "the recorder is told: " + desk.log("OrbRecorder").strip().rpartition("line=")[2].rpartition("\\")[2],
                   "THE RECORDER IS NOT STARTED")
        reported = wait_for(self.server.reports)
        self.check(reported, "the community hears what plays", "NO REPORT of what plays")

    def storms(self):
        desk, second = self.desk, STATIONS[1]
        desk.send("remoteplay/@/LUMO02/@/1/@//@/")
        self.hear(second, f"the client tunes '{second.name}'")
        self.show("tuned-by-the-client")
        self.radio.stop()
        lost = wait_for(lambda: (desk.text("InfoStatus") or "").startswith(("Spojení ztraceno", "Stanice neodpovídá")))
        self.check(lost, f"the radio goes away: '{desk.text('InfoStatus')}'", "A LOST RADIO IS NOT TOLD")
        self.show("radio-gone")
        self.radio.start()
        self.hear(second, "the radio is back, and so is the sound")

    def window(self):
        desk = self.desk
        desk.click("LineMenu_OnTop")
        wait_for(lambda: desk.form().topmost)
        self.show("always-on-top")
        desk.click("LineMenu_Min")
        hidden = wait_for(lambda: not desk.form().visible)
        self.check(hidden, "hidden in the tray", "NOT HIDDEN")
        self.show("hidden-in-the-tray")
        desk.click_at(wait_for(Program.tray_icon), 3)
        self.menu("menu-tray")
        desk.second()
        back = wait_for(lambda: desk.form().visible)
        self.check(back, "a second start brings it back", "A SECOND START DOES NOT BRING IT BACK")
        desk.click("LineMenu_End")
        self.check(desk.ended(), f"ended, settings saved: {desk.options()[12]}", "DOES NOT END")

    def go(self):
        try:
            for part in (self.listening, self.browsing, self.companions, self.storms, self.window):
                part()
        finally:
            self.desk.close()
            self.radio.stop()
        self.say("pictures are in build/tour/")
        self.say("all well" if self.good else "SOMETHING WENT WRONG")
        return 0 if self.good else 1


if __name__ == "__main__":
    sys.exit(Tour(os.path.join(TOP, sys.argv[1])).go())
