# SPDX-License-Identifier: LGPL-2.1-or-later
"""Addresses that the real program opens, and those that it refuses and tells."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from program import BY_ID, MINIMIZED, Program  # noqa: E402

OFF = "13=#013:LTautoStart:0"
REFUSED = "Tuto adresu nelze otevřít, není to webová stránka."
WEB = 16  # the field of a station's web address


class TestAddresses(Program):
    def test_an_own_address_with_commas_and_colons_opens(self):
        desk = self.begin(OFF)
        server = self.radio.address("/a,b:c,/d.exe")
        for name in ("orb_server.tt", "orb_server.tt.tmp"):
            with open(desk.path("Orb_Data", name), "w", encoding="cp1250", newline="") as out:
                out.write(f"a\r\nb\r\nc\r\nd\r\ne\r\nf\r\nOrbServerAddr::{server}\r\n")
        desk.click("Control_Menu")
        desk.choose("Nápověda")
        self.started("explorer", f"explorer {server}/faq", MINIMIZED)

    def test_a_web_entry_that_is_no_page_can_be_chosen_and_is_told(self):
        self.desk = desk = Desk(self.folder, self.radio)
        with open(desk.path("radios.tt"), encoding="cp1250", newline="") as source:
            stations = [line.split("/@/") for line in source.read().split("\r\n")]
        for fields in stations:
            if fields[0] == "LUMO01":
                fields[WEB] = "-"
        with open(desk.path("radios.tt"), "w", encoding="cp1250", newline="") as out:
            out.write("\r\n".join("/@/".join(fields) for fields in stations))
        desk.start()
        self.hear(BY_ID["LUMO01"].hertz)
        desk.click("InfoName")
        desk.choose("-")
        self.until(lambda: desk.text("InfoStatus") == REFUSED, 5, desk.text("InfoStatus"))
        self.until(lambda: "MP3" in (desk.text("InfoStatus") or ""), 15, desk.text("InfoStatus"))
        assert "explorer" not in desk.log("explorer"), desk.log("explorer")


if __name__ == "__main__":
    harness.run(TestAddresses)
