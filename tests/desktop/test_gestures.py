# SPDX-License-Identifier: LGPL-2.1-or-later
"""Wheel, middle button and keys on the real window, and the files that they and what is heard leave."""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from program import BY_ID, Program  # noqa: E402
from sound import Sound  # noqa: E402

OFF = "13=#013:LTautoStart:0"
VOLUME = "20=#020:LTvolume:40"


class TestGestures(Program):
    def volume(self):
        """Ends the program, which saves it."""
        self.desk.close()
        return next(line for line in self.desk.options() if line.startswith("#020:LTvolume:"))[len("#020:LTvolume:"):]

    def over(self, name):
        x, y = self.desk.controls()[name].middle
        subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)

    def test_the_wheel_and_the_arrows_change_the_volume(self):
        desk = self.begin(OFF, VOLUME)
        desk.click("LTDisplay", 3)
        self.until(desk.menus)
        desk.key("Escape")
        self.until(lambda: not desk.menus())
        self.over("Control_Sat")
        for button in ("4", "4", "5"):
            subprocess.run(["xdotool", "click", button], check=True)
        desk.tab_to("Control_Volume")
        desk.key("Up", "Up", "Down")
        assert desk.keyboard_at() == "Control_Volume"
        assert self.volume() == "50"

    def test_the_middle_button_and_space_play_and_stop(self):
        desk = self.begin()
        self.hear(440)
        desk.click("LTDisplay", 2)
        self.until(lambda: desk.text("PlayTL") == "Zapnout")
        self.until(lambda: Sound.loudest(0.3) == 0, 3, "silence")
        desk.tab_to("Control_List")
        desk.key("space")
        self.until(lambda: desk.text("PlayTL") == "Stop")
        self.hear(440)

    def test_what_is_heard_is_written_and_favourites_are_exported(self):
        desk = self.begin()
        station = BY_ID["LUMO01"]
        self.hear(station.hertz)

        def titles():
            try:
                with open(desk.path("skladby.txt"), encoding="cp1250", newline="") as source:
                    return source.read()
            except OSError:
                return ""
        self.until(lambda: any(title in titles() for title in station.titles), text=titles())
        lines = titles().split("\r\n")
        assert lines[0] == "zapisovat:ano" and f" | {station.name} | " in lines[1], lines
        desk.click("InfoTime")
        desk.key("ctrl+e")
        self.box("Oblíbené stanice jsou uloženy v souboru:")
        with open(desk.path("oblibene.m3u"), encoding="cp1250", newline="") as source:
            assert source.read().startswith("#EXTM3U\r\n#EXTINF:-1,")


if __name__ == "__main__":
    harness.run(TestGestures)
