# SPDX-License-Identifier: LGPL-2.1-or-later
"""Where the real window and the keyboard in it are: other screens, boxes, menus, hiding, the root of a drive."""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from probing import WINE  # noqa: E402
from program import Program  # noqa: E402

OFF = "13=#013:LTautoStart:0"
WIDE, NARROW = (1280, 800), (800, 600)


def screen(size):
    """Another resolution of the only monitor."""
    name = f"{size[0]}x{size[1]}"
    if name not in subprocess.run(["xrandr"], capture_output=True, text=True, check=True).stdout:
        subprocess.run(["xrandr", "--newmode", name, "40", *(str(value) for side in size for value in (side, side + 8, side + 16,
                       side + 24))], check=True)
        subprocess.run(["xrandr", "--addmode", "screen", name], check=True)
    subprocess.run(["xrandr", "--output", "screen", "--mode", name, "--fb", name], check=False, stderr=subprocess.DEVNULL)


def look(control):
    """The pixels of a control on the screen."""
    place = f"{control.width}x{control.height}+{control.left}+{control.top}"
    return subprocess.run(["import", "-window", "root", "-crop", place, "rgb:-"], capture_output=True, check=True).stdout


class TestPlace(Program):
    def tear_down(self):
        screen(WIDE)
        super().tear_down()

    def inside(self, size):
        form = self.desk.form()
        return (form.visible and form.left >= 0 and form.top >= 0 and form.left + form.width <= size[0]
                and form.top + form.height <= size[1])

    def test_a_window_that_a_smaller_screen_leaves_outside_comes_back(self):
        desk = self.begin(OFF, "22=#022:LTpleft:12600", "23=#023:LTptop:8250")
        assert (desk.form().left, desk.form().top) == (840, 550)
        screen(NARROW)
        self.until(lambda: self.inside(NARROW), text=str(vars(desk.form())))

    def test_a_hidden_window_comes_back_when_it_is_shown(self):
        desk = self.begin(OFF, "22=#022:LTpleft:12600", "23=#023:LTptop:8250")
        desk.click("LineMenu_Min")
        self.until(lambda: not desk.form().visible)
        screen(NARROW)
        desk.second()
        self.until(lambda: self.inside(NARROW), text=str(vars(desk.form())))

    def test_the_root_of_a_drive_is_the_programs_folder(self):
        self.begin(OFF)
        self.desk.close()
        drive = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "r:")
        if not os.path.islink(drive):
            os.symlink(self.folder, drive)
        os.remove(self.desk.path("orb.log"))
        # Another folder of the drive is its current one.
        self.desk.process = subprocess.Popen([WINE, "R:\\lumotune.exe"], cwd=self.desk.path("Orb_Data"), stdin=subprocess.DEVNULL,
                                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.until(lambda: self.desk.form() and self.desk.visible("Control_List"), text="the skin and the favourites are found")
        self.log_has("orb", "dir=R:\\ ")


class TestKeyboard(Program):
    def begin_with_keyboard(self):
        desk = self.begin(OFF)
        # A window manager may give the keyboard to a window only when it is clicked.
        place = desk.controls()["LTDisplay"]
        desk.click_at((place.left + 3, place.top + 3))
        return desk

    def test_tab_goes_the_way_the_eye_reads(self):
        desk = self.begin_with_keyboard()
        self.desk.tab_to("LineMenu_OnTop")
        plain = {name: look(control) for name, control in desk.controls().items() if name.startswith("Control_") and control.visible}
        for name in ("LineMenu_Min", "LineMenu_End", "Control_List", "Control_Play", "Control_Volume", "Control_Sat", "Control_Rec",
                     "Control_ShowUser", "Control_Menu", "Orbwww", "LineMenu_OnTop"):
            desk.tab()
            if name == "Control_Play" and not desk.controls()["Control_Play"].enabled:
                continue
            assert self.desk.keyboard_at() == name, (self.desk.keyboard_at(), name)
            if name.startswith("Control_") and name != "Control_List":
                control = desk.controls()[name]
                self.until(lambda: look(control) != plain[name], text=f"{name} is seen to have the keyboard")
        desk.key("shift+Tab")
        self.until(lambda: desk.keyboard_at() == "Orbwww", text="back")

    def test_it_survives_a_menu_a_box_and_hiding(self):
        desk = self.begin_with_keyboard()
        self.desk.tab_to("Control_Menu")
        desk.key("space")
        self.until(desk.menus, text="the menu opens")
        desk.key("Escape")
        self.until(lambda: not desk.menus())
        self.until(lambda: desk.keyboard_at() == "Control_Menu", text="it comes back to the button")
        self.desk.tab_to("Control_List")
        desk.key("Down", "Menu")
        desk.choose("Odebrat z oblíbených rádií")
        self.box("Rádio bylo ostraněno z oblíbených.")
        self.until(lambda: self.desk.keyboard_at() == "Control_List", text=str(self.desk.keyboard_at()))
        icon = self.tray_icon()
        desk.click_at(icon)
        self.until(lambda: not desk.form().visible)
        desk.click_at(self.tray_icon())
        self.until(lambda: desk.form().visible and self.desk.keyboard_at() == "Control_List", text=str(self.desk.keyboard_at()))


if __name__ == "__main__":
    harness.run(TestPlace, TestKeyboard)
