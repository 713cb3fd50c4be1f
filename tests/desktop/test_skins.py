# SPDX-License-Identifier: LGPL-2.1-or-later
"""Skins of the real program that share nothing with "Lumo": changed, edited, failing, and the way on after a failure."""
import os
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from probing import TOP, wait_for  # noqa: E402
from program import BY_ID, Program  # noqa: E402

OFF = "13=#013:LTautoStart:0"
SKINS = os.path.join(TOP, "tests", "data", "skins")
SIZES = {"Lumo": (420, 232), "Denní": (560, 124), "Sloupek": (200, 420), "Vadná": (240, 90)}
CONTROLS = ("LineMenu_OnTop", "LineMenu_Min", "LineMenu_End", "Control_Play", "Control_Rec", "Control_ShowUser",
            "Control_Menu", "Control_Sat", "Control_Volume", "Control_List", "LTDisplay", "Orbwww")
LIGHT_GROUND, LIGHT_DISPLAY = (253, 246, 227), (255, 255, 255)
TALL_GROUND, TALL_DISPLAY = (75, 46, 131), (42, 22, 80)
SYSTEM_WINDOW = (255, 255, 255)


def pixels(left, top, width, height):
    """What the screen shows there: red, green and blue of each pixel."""
    done = subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-"],
                          capture_output=True, check=True)
    return done.stdout


def park_mouse():
    """Where no tool tip comes up."""
    subprocess.run(["xdotool", "mousemove", "5", "5"], check=True)


class Skins(Program):
    def with_skins(self, *options):
        park_mouse()
        self.desk = Desk(self.folder, self.radio, options)
        shutil.copytree(SKINS, self.desk.path("Orb_Data", "skins"), dirs_exist_ok=True)
        self.desk.start()
        return self.desk

    def size(self):
        form = self.desk.form()
        return form.width, form.height

    def choose(self, skin, open_menu=None):
        """Out of the main menu, which the menu's button opens where nothing else is asked for."""
        desk = self.desk
        if open_menu:
            open_menu()
        else:
            desk.click("Control_Menu")
        desk.choose("Skiny", skin)
        self.until_sized_as(skin)

    def until_sized_as(self, skin):
        assert wait_for(lambda: self.size() == SIZES[skin], 10), f"{skin}: {self.size()}"

    def click_background(self, button=1):
        form = self.desk.form()
        self.desk.click_at((form.left + form.width - 4, form.top + form.height - 4), button)

    def right_click_background(self):
        self.click_background(3)

    def seen(self):
        controls = self.desk.controls()
        return {name for name in CONTROLS if controls[name].visible}

    def until_seen(self, wanted):
        assert wait_for(lambda: self.seen() == wanted, 10), f"{sorted(wanted ^ self.seen())} other than wanted"

    def until_pixel(self, place, colour):
        """At a place of the window."""
        form = self.desk.form()

        def now():
            return tuple(pixels(form.left + place[0], form.top + place[1], 1, 1))

        assert wait_for(lambda: now() == colour, 10), f"{place}: {now()} in place of {colour}"

    def whole_window(self):
        """Of a Lumotune that has the keyboard at the play button, and the mouse elsewhere."""
        form = self.desk.form()
        park_mouse()
        return pixels(form.left, form.top, form.width, form.height)

    def saved(self):
        """Ends the program; the skin that the settings keep."""
        self.desk.close()
        return self.desk.options()[21].removeprefix("#021:LTskin:")


LIGHT = {"LineMenu_Min", "LineMenu_End", "Control_Play", "Control_Volume", "Control_Sat", "Control_Rec", "Control_Menu"}
TALL = {"LineMenu_End", "Control_ShowUser", "Control_Play", "Control_Volume", "Control_Sat", "Control_Menu", "Control_List"}


class TestSkins(Skins):
    def test_a_change_while_stopped_and_playing(self):
        desk = self.with_skins(OFF)
        self.until_seen(set(CONTROLS))
        self.click_background()
        self.until(lambda: desk.controls()["Control_Play"].focus, 10, "the keyboard")
        before = self.whole_window()

        def menu_key():
            desk.key("Menu")

        self.choose("Denní", menu_key)
        self.until_seen(LIGHT)
        self.until_pixel((388, 40), LIGHT_GROUND)
        desk.click("Control_Play")
        self.hear(BY_ID["LUMO01"].hertz)
        self.until_seen(LIGHT | {"LTDisplay", "Orbwww"})
        self.until_pixel((388, 40), LIGHT_DISPLAY)
        self.choose("Sloupek", menu_key)
        self.until_seen(TALL | {"LTDisplay"})
        self.hear(BY_ID["LUMO01"].hertz)
        self.until_pixel((186, 200), TALL_DISPLAY)
        self.until_pixel((5, 100), TALL_GROUND)
        self.until_pixel((100, 340), SYSTEM_WINDOW)
        desk.click("Control_Play")
        self.until_seen(TALL | {"Orbwww"})
        self.until_pixel((186, 200), TALL_GROUND)
        self.choose("Lumo", menu_key)
        self.until_seen(set(CONTROLS))
        self.until(lambda: self.whole_window() == before, 10, "not the same window as before")

    def test_where_the_ground_is_clear_there_are_no_ghosts(self):
        self.with_skins(OFF)
        self.choose("Sloupek")
        form = self.desk.form()
        beside = tuple(pixels(form.left + 100, form.top + 400, 1, 1))  # the ground's picture ends above
        assert beside not in (TALL_GROUND, LIGHT_GROUND), beside
        for place in ((5, 226), (195, 290), (5, 299), (5, 301), (195, 419)):
            self.until_pixel(place, beside)
        self.choose("Denní")
        self.until_pixel((0, 0), beside)
        self.until_pixel((559, 123), beside)

    def test_a_start_in_each(self):
        desk = self.with_skins()
        for skin, seen in (("Denní", LIGHT | {"LTDisplay", "Orbwww"}), ("Sloupek", TALL | {"LTDisplay"}),
                           ("Lumo", set(CONTROLS) - {"Control_List"})):
            self.choose(skin)
            self.until_seen(seen)
            assert self.saved() == skin
            desk.start()
            self.until_sized_as(skin)
            self.until_seen(seen)

    def test_the_current_skin_again_reads_its_pictures_anew(self):
        desk = self.with_skins(OFF, "21=#021:LTskin:Sloupek")
        self.until_pixel((20, 20), TALL_GROUND)
        shutil.copy(os.path.join(SKINS, "Denní", "form.gif"), desk.path("Orb_Data", "skins", "Sloupek", "form.gif"))
        self.choose("Sloupek")
        self.until_pixel((20, 20), LIGHT_GROUND)
        os.remove(desk.path("Orb_Data", "skins", "Sloupek", "sat.gif"))
        self.choose("Sloupek")
        self.until_seen({"LineMenu_End", "Control_ShowUser", "Control_Play", "Control_Volume"})
        with open(desk.path("Orb_Data", "error.log"), encoding="cp1250") as log:
            assert "sat.gif" in log.read()

    def test_after_a_failed_load_there_is_a_way_on(self):
        desk = self.with_skins(OFF)
        for way, skin in ((self.right_click_background, "Denní"), (lambda: desk.key("Menu"), "Lumo"),
                          (lambda: desk.key("shift+F10"), "Sloupek")):
            self.choose("Vadná")
            self.until_seen(set())
            self.choose(skin, way)
            self.until(lambda: desk.visible("Control_Menu"), 10, skin)
        self.choose("Vadná")
        self.until_seen(set())
        desk.key("Menu")
        self.until(desk.menus, 10, "the menu")
        form, (left, top, _, _) = desk.form(), desk.menus()[0]
        assert abs(left - form.left) < 8 and abs(top - form.top) < 8, (form.left, form.top, desk.menus())
        desk.key("Escape")
        assert self.saved() == "Sloupek", desk.options()[21]
        desk.start()
        self.until_sized_as("Sloupek")

    def test_a_missing_skin_is_replaced_for_one_run(self):
        self.with_skins(OFF, "21=#021:LTskin:Neni")
        self.until_sized_as("Lumo")
        self.until_seen(set(CONTROLS))
        assert self.saved() == "Neni"

    def test_a_skin_named_as_a_separator_can_be_chosen(self):
        desk = self.with_skins(OFF)
        skins = desk.path("Orb_Data", "skins")
        shutil.copy(os.path.join(skins, "Denní.skin"), os.path.join(skins, "-.skin"))
        shutil.copytree(os.path.join(skins, "Denní"), os.path.join(skins, "-"))
        desk.click("Control_Menu")
        desk.choose("Skiny", "-")
        self.until_sized_as("Denní")
        assert self.saved() == "-"


if __name__ == "__main__":
    harness.run(TestSkins)
