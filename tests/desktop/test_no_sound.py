# SPDX-License-Identifier: LGPL-2.1-or-later
"""A machine without a sound device: the program stays usable and says what is missing."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from test_desktop import Program  # noqa: E402


class TestNoSound(Program):
    def test_says_that_there_is_no_sound_device(self):
        desk = self.begin()
        self.until(lambda: desk.text("InfoStatus") == "Zvukové zařízení není k dispozici", text=desk.text("InfoStatus"))
        desk.click("Control_Play")
        self.until(lambda: desk.text("PlayTL") == "Zapnout")
        desk.click("LineMenu_End")
        assert desk.ended()


if __name__ == "__main__":
    harness.run(TestNoSound)
