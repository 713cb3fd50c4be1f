# SPDX-License-Identifier: LGPL-2.1-or-later
"""What is open while the program starts or ends."""
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from probing import PROBE, wine  # noqa: E402
from program import Program  # noqa: E402

# Less than what a program that hangs is ended after.
SOON = 4
BOX = "^Lumotune - rádio$"


def x_windows(name):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name], capture_output=True, text=True, check=False)
    return found.stdout.split()


def x_property(window, name):
    return subprocess.run(["xprop", "-id", window, name], capture_output=True, text=True, check=True).stdout


def clients(order):
    root = subprocess.run(["xprop", "-root", order], capture_output=True, text=True, check=True).stdout
    return [str(int(number, 16)) for number in re.findall(r"0x[0-9a-f]+", root)]


def in_task_bar(window):
    """As a task bar of the freedesktop.org rules takes it."""
    return window in clients("_NET_CLIENT_LIST") and "_NET_WM_STATE_SKIP_TASKBAR" not in x_property(window, "_NET_WM_STATE")


def above(window, other):
    """Who has the keyboard is the window manager's own choice here; what lies above what is not."""
    order = clients("_NET_CLIENT_LIST_STACKING")
    return order.index(window) > order.index(other)


class TestLogin(Program):
    def begin_without_a_login(self):
        self.desk = desk = Desk(self.folder, self.radio, ["5=#005:OIdh::"])
        desk.start(wait=False)
        self.until(lambda: any("Nejprve zapněte Orb klienta." in box for box in desk.boxes()), 20)
        self.until(lambda: len(x_windows(BOX)) == 1)
        return x_windows(BOX)[0]

    def test_the_login_box_has_a_button_in_the_task_bar(self):
        box = self.begin_without_a_login()
        self.until(lambda: in_task_bar(box), 5, x_property(box, "_NET_WM_STATE"))

    def test_a_second_start_brings_the_login_box_forward_and_no_empty_window(self):
        box = self.begin_without_a_login()
        with subprocess.Popen(["xmessage", "okno"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as other:
            try:
                self.until(lambda: x_windows("xmessage"))
                covering = x_windows("xmessage")[0]
                subprocess.run(["xdotool", "windowactivate", "--sync", covering], check=True)
                self.until(lambda: above(covering, box), 5, "another window covers the box")
                assert self.desk.second().returncode == 0
                self.until(lambda: above(box, covering), 10, "the box is in front")
            finally:
                other.kill()
        assert not self.desk.form().visible
        assert self.desk.press("OK")
        assert self.desk.ended()


class TestEnd(Program):
    def begin_and_change(self):
        desk = self.begin("11=#011:LTTop:0", "13=#013:LTautoStart:0")
        desk.click("LineMenu_OnTop")
        self.until(lambda: desk.form().topmost)
        return desk

    def ends_soon_and_saves(self):
        assert self.desk.ended(SOON), "what is open holds the end up"
        assert self.desk.options()[11] == "#011:LTTop:1"

    def test_a_menu_that_is_open_does_not_hold_the_end_up(self):
        desk = self.begin_and_change()
        desk.click("Control_Menu")
        self.until(desk.menus)
        desk.close_window("Lumotune")
        self.ends_soon_and_saves()

    def test_a_menu_that_would_open_during_the_end_does_not_hold_it_up(self):
        self.begin_and_change()
        assert wine(PROBE, "end", "Control_Menu").returncode == 0
        self.ends_soon_and_saves()


if __name__ == "__main__":
    harness.run(TestLogin, TestEnd)
