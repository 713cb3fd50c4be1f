# SPDX-License-Identifier: LGPL-2.1-or-later
"""A screen of twice the usual resolution: everything is twice as large, and a place means the same place."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import picture  # noqa: E402
from probing import TOP, wait_for  # noqa: E402
from test_desktop import Program  # noqa: E402


class TestResolution(Program):
    def test_everything_is_twice_as_large(self):
        desk = self.begin("22=#022:LTpleft:1500", "23=#023:LTptop:1500")
        wait_for(lambda: desk.text("InfoTime"))
        now = desk.controls()
        form, play = now["Form"], now["Control_Play"]
        picture(os.path.join(TOP, "build", "tour", "192-dots-an-inch.png"))
        assert (form.left, form.top) == (200, 200)
        assert (form.width, form.height) == (840, 464)
        assert (play.left - form.left, play.top - form.top, play.width, play.height) == (32, 344, 96, 96)
        before = desk.options()
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options() == before, "the saved place is the same"


if __name__ == "__main__":
    harness.run(TestResolution)
