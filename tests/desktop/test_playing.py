# SPDX-License-Identifier: LGPL-2.1-or-later
"""The list of favourites while a station plays: in a skin that lets it stay."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from program import BY_ID, Program  # noqa: E402
from sound import Sound  # noqa: E402

LABELS = ("InfoName", "InfoTime", "InfoStatus", "InfoNaladit")


class TestListThatStays(Program):
    def begin_beside_the_list(self):
        self.desk = desk = Desk(self.folder, self.radio)
        skin = desk.path("Orb_Data", "skins", "Lumo.skin")
        with open(skin, encoding="cp1250", newline="") as source:
            text = source.read()
        assert "|hideplay|" in text
        with open(skin, "w", encoding="cp1250", newline="") as out:
            out.write(text.replace("|hideplay|", "|showevery|"))
        desk.start()
        self.hear(BY_ID["LUMO01"].hertz)
        self.until(lambda: len(desk.items()) == 3)
        assert desk.visible("Control_List") and desk.visible("InfoName")
        return desk

    def test_a_click_on_another_favourite_ends_what_plays_and_one_press_plays_it(self):
        desk = self.begin_beside_the_list()
        items = desk.items()
        desk.click_at(desk.favourite_place(1))
        self.until(lambda: Sound.loudest(0.3) == 0, 5, "silence")
        now = desk.controls()
        assert (now["PlayTL"].text, now["Control_Play"].text) == ("Zapnout", "Zapnout"), now["PlayTL"].text
        assert not any(now[name].visible for name in LABELS), [name for name in LABELS if now[name].visible]
        assert now["Control_List"].visible and now["Control_List"].focus
        assert desk.items() == items
        desk.click("Control_Play")
        self.hear(BY_ID["LUMO03"].hertz)
        assert desk.text("PlayTL") == "Stop"

    def test_the_favourite_that_plays_plays_on(self):
        desk = self.begin_beside_the_list()
        desk.click_at(desk.favourite_place(0))
        assert all(Sound.loudest(0.3) == BY_ID["LUMO01"].hertz for _ in range(5))
        assert desk.text("PlayTL") == "Stop" and desk.visible("InfoName")


class TestMediaKeys(Program):
    def test_the_media_keys_are_left_to_others_until_something_can_be_played(self):
        desk = self.begin("12=#012:LTLast:NIKDE1/1", "13=#013:LTautoStart:0")
        play_pause = 14
        self.until(lambda: len(desk.items()) == 3)
        assert not desk.app_command(play_pause)
        desk.click_at(desk.favourite_place(0))
        assert desk.app_command(play_pause)
        self.hear(BY_ID["LUMO01"].hertz)


if __name__ == "__main__":
    harness.run(TestListThatStays, TestMediaKeys)
