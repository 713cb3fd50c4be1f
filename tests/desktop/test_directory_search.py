# SPDX-License-Identifier: LGPL-2.1-or-later
"""Searching in the station directory, and what its window keeps while the program runs."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from directory_window import REFUSED, Directory  # noqa: E402
from program import BY_ID  # noqa: E402


class TestSearch(Directory):
    def loaded(self, **settings):
        desk = self.open(probe="refused", **settings)
        self.until(lambda: self.status() == REFUSED, 20, self.status())
        return desk

    def test_what_is_typed_leaves_the_stations_that_have_it(self):
        desk = self.loaded()
        everything = [row.text for row in desk.rows()]
        assert not self.control("Filter").visible
        desk.key("ctrl+f")
        self.until(lambda: desk.keyboard_at("ListRadios") == "Filter", text=desk.keyboard_at("ListRadios"))
        desk.type("sumava")
        self.until(lambda: [row.text for row in desk.rows()] == ["Vlna Šumava"], text=str([row.text for row in desk.rows()]))
        assert self.control("FilterCount").text == f"1 z {len(everything)}"
        desk.key("Return")
        self.until(lambda: desk.keyboard_at("ListRadios") == "ListView1")
        desk.click_at(self.row("Vlna Šumava").place)
        self.until(lambda: self.control("Label2").text == "Vlna Šumava")
        desk.key("Escape")
        self.until(lambda: [row.text for row in desk.rows()] == everything)
        assert everything[desk.selected_row() - 1] == "Vlna Šumava", "the selection follows its station"
        assert not self.control("Filter").visible
        desk.key("ctrl+f")
        desk.type("slovensko")
        self.until(lambda: {row.country for row in desk.rows()} == {"Slovensko"})
        desk.click_at(self.row("Tatranská ozvena").place, times=2)
        self.hear(BY_ID["LUMO05"].hertz)

    def test_the_window_comes_back_as_it_was(self):
        desk = self.loaded()
        desk.click_at(desk.nodes()[0].place, times=2)
        self.until(lambda: any(node.depth == 1 and node.place != (-1, -1) for node in desk.nodes()), text="it unfolds")
        before = self.control("Form")
        desk.close_window("ListRadios")
        self.until(lambda: self.control("Form") is None, text="the window goes")
        desk.click("Control_Sat")
        self.until(lambda: (form := self.control("Form")) and form.visible and self.status(), text="and comes")
        after = self.control("Form")
        assert (after.left, after.top, after.width, after.height) == (before.left, before.top, before.width, before.height)
        assert any(node.depth == 1 and node.place != (-1, -1) for node in desk.nodes()), "still unfolded"


if __name__ == "__main__":
    harness.run(TestSearch)
