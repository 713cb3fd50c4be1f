# SPDX-License-Identifier: LGPL-2.1-or-later
"""What is open while the program starts or ends."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import PROBE, wine  # noqa: E402
from program import Program  # noqa: E402

# Less than what a program that hangs is ended after.
SOON = 4


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
    harness.run(TestEnd)
