# SPDX-License-Identifier: LGPL-2.1-or-later
"""Size and place of the real directory window: what the server orders, in every state of the window, and what the user does."""
import os
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from directory_window import DONE, OFF, Directory  # noqa: E402
from test_place_and_keyboard import NARROW, WIDE, screen  # noqa: E402

PIXEL = 15  # twips
INFORMATION = "orb:i:0/@//@/10/@/Zprava/@//@//@/"
INFORMATION_HEIGHT = 6045
TALL, USUAL = 9000, 7125


def advertisement(height, area=1050):
    return f"orb:r:{area}/@/{height}/@/1/@/http://127.0.0.1:9/"


class Ordered(Directory):
    def open_with_tall_advertisement(self):
        """What an earlier list needed is more than the next one orders."""
        self.open(advert="none", info="none", orders=advertisement(TALL, 2925))
        self.updated()
        self.until(lambda: self.control("Form").height == TALL // PIXEL, 10, self.shape())
        self.shows_advertisement(2925)

    def shape(self):
        return str({name: vars(self.control(name)) for name in ("Form", "WebBrowser1", "Label1", "InfoPanel")})

    def shows_advertisement(self, area=1050):
        form, advert, status = (self.control(name) for name in ("Form", "WebBrowser1", "Label1"))
        assert advert.height == area // PIXEL, self.shape()
        assert status.top + status.height <= advert.top, self.shape()
        assert advert.top + advert.height <= form.top + form.height, self.shape()

    def minimized(self):
        return self.control("Form").left <= -32000

    def order(self, line, state):
        """The next list holds that line; it arrives while the window is in that state, from which it then comes back."""
        self.order_during(line, state)
        if state != "normal":
            self.desk.restore("ListRadios")

    def order_during(self, line, state, before=None):
        """It arrives while the window is in that state; `before` that comes something else."""
        self.server.set(orders=line, seconds="3")
        if state == "maximize":
            width = self.control("Form").width
            self.desk.maximize("ListRadios")
            self.until(lambda: self.control("Form").width > width, 10, "maximized")
        self.click("Command1")
        self.until(lambda: self.status() != DONE, 10, "the update begins")
        if before:
            before()
        if state == "minimize":
            self.desk.minimize("ListRadios")
            self.until(self.minimized, 10, "minimized")
            assert self.status() != DONE, "the list arrives after that"
        self.updated()
        if state == "minimize":
            assert self.minimized()

    @staticmethod
    def window_tool(action, *numbers):
        """What a program that arranges other programs' windows does to this one."""
        window = subprocess.run(["xdotool", "search", "--name", "^Seznam rádií$"], capture_output=True, text=True,
                                check=True).stdout.split()[-1]
        subprocess.run(["xdotool", action, window, *(str(number) for number in numbers)], check=True)

    def shrink(self):
        before = self.control("Form").height
        self.window_tool("windowsize", 200, 150)
        self.until(lambda: self.control("Form").height < before, 10, "it can be shrunk: " + self.shape())
        return self.control("Form").height * PIXEL


class TestOrderedHeights(Ordered):
    def advertisement_in(self, state):
        self.open_with_tall_advertisement()
        self.order(advertisement(USUAL), state)
        self.until(lambda: self.control("Form").height == USUAL // PIXEL, 10, self.shape())
        self.shows_advertisement()
        assert 4800 < self.shrink() < 6500, self.shape()
        self.shows_advertisement()

    def information_in(self, state):
        self.open_with_tall_advertisement()
        self.order(INFORMATION, state)
        self.until(lambda: self.control("Form").height == INFORMATION_HEIGHT // PIXEL, 10, self.shape())
        assert self.control("InfoPanel").visible
        assert 4800 < self.shrink() < 5500, self.shape()
        form, status, line = (self.control(name) for name in ("Form", "Label1", "InfoPanel"))
        assert status.top + status.height <= line.top, self.shape()
        assert line.top + line.height <= form.top + form.height, self.shape()
        self.desk.maximize("ListRadios")
        self.until(lambda: self.control("Form").height > 600, 10, "maximized")
        self.shows_advertisement(2925)

    def test_an_advertisement_in_the_normal_window(self):
        self.advertisement_in("normal")

    def test_an_advertisement_in_the_maximized_window(self):
        self.advertisement_in("maximize")

    def test_an_advertisement_in_the_minimized_window(self):
        self.advertisement_in("minimize")

    def test_an_information_line_in_the_normal_window(self):
        self.information_in("normal")

    def test_an_information_line_in_the_maximized_window(self):
        self.information_in("maximize")

    def test_an_information_line_in_the_minimized_window(self):
        self.information_in("minimize")


class TestTaskBar(Ordered):
    """Where the task bar lies above and at the left, the system counts a window's kept place from another corner."""
    LEFT, TOP = 90, 70
    EDGE = 2  # pixels by which a window manager may count its own edge otherwise

    def take_room(self, left, top):
        """The tray host says so of its own window, as a task bar there would."""
        subprocess.run(["xprop", "-name", "panel", "-f", "_NET_WM_STRUT_PARTIAL", "32c", "-set", "_NET_WM_STRUT_PARTIAL",
                        f"{left},0,{top},0,0,799,0,0,0,1279,0,0"], check=True)
        wanted = f"= {left}, {top}, "
        self.until(lambda: wanted in subprocess.run(["xprop", "-root", "_NET_WORKAREA"], capture_output=True, text=True,
                                                    check=True).stdout, 10, "the work area")
        # Wine asks for the work area when the screen changes.
        screen((1280, 792))
        screen(WIDE)

    def tear_down(self):
        self.take_room(0, 0)
        super().tear_down()

    def place(self):
        form = self.control("Form")
        return form.left, form.top

    def kept_place_in(self, state):
        self.take_room(self.LEFT, self.TOP)
        self.open_with_tall_advertisement()
        # A maximised window begins in the corner: the place that is kept has to be another one.
        self.window_tool("windowmove", self.LEFT + 150, self.TOP + 30)
        self.until(lambda: self.place()[0] > self.LEFT + 100, 10, self.shape())
        before = self.place()
        assert before[0] >= self.LEFT - self.EDGE and before[1] >= self.TOP - self.EDGE, before
        self.order(advertisement(USUAL), state)
        self.until(lambda: self.control("Form").height == USUAL // PIXEL, 10, self.shape())
        assert self.place() == before, (self.place(), before)

    def test_a_height_keeps_the_place_beside_a_task_bar(self):
        self.kept_place_in("normal")

    def test_a_height_for_the_maximized_window_keeps_the_place_beside_a_task_bar(self):
        self.kept_place_in("maximize")

    def test_a_height_for_the_minimized_window_keeps_the_place_beside_a_task_bar(self):
        self.kept_place_in("minimize")

    def test_a_height_that_is_too_much_stays_beside_a_task_bar(self):
        self.take_room(self.LEFT, self.TOP)
        self.open(advert="none", info="none", orders=advertisement(200000))
        self.updated()
        self.until(lambda: self.control("Form").height > 600, 10, self.shape())
        left, top = self.place()
        assert left >= self.LEFT - self.EDGE and top >= self.TOP - self.EDGE, self.shape()
        assert top + self.control("Form").height <= 800 + self.EDGE, self.shape()


class TestVanishedMonitor(Ordered):
    """The part of the screen that showed the window goes away while the window is an icon or maximised."""
    FAR = (830, 60)  # outside the narrow screen
    EDGE = 2  # pixels by which a window manager may count its own edge otherwise

    def tear_down(self):
        screen(WIDE)
        super().tear_down()

    def open_near(self):
        # The main window lies outside the narrow screen too: it shows when the program has heard of that.
        self.open(OFF, "22=#022:LTpleft:12600", "23=#023:LTptop:8250", advert="none", info="none",
                  orders=advertisement(6450))
        self.updated()
        self.until(lambda: self.control("Form").height == 6450 // PIXEL, 10, self.shape())

    def go_far(self):
        self.window_tool("windowmove", *self.FAR)
        self.until(lambda: self.control("Form").left >= NARROW[0], 10, self.shape())

    def lose_the_monitor(self):
        screen(NARROW)
        self.until(lambda: (main := self.desk.form()).left + main.width <= NARROW[0], 30, "the program hears of it")

    def fits(self, height):
        """Wholly in view, in the size that it has to have."""
        form = self.control("Form")
        return (form.height == height // PIXEL and form.left >= -self.EDGE and form.top >= -self.EDGE
                and form.left + form.width <= NARROW[0] + self.EDGE and form.top + form.height <= NARROW[1] + self.EDGE)

    def comes_back_into_view(self, height):
        self.desk.restore("ListRadios")
        self.until(lambda: self.fits(height), 10, self.shape())

    def test_a_minimized_window_comes_back_into_view(self):
        self.open_near()
        self.go_far()
        self.desk.minimize("ListRadios")
        self.until(self.minimized, 10, "minimized")
        self.lose_the_monitor()
        self.comes_back_into_view(6450)

    def test_a_minimized_window_with_a_height_to_come_does(self):
        self.open_near()
        self.order_during(advertisement(USUAL), "minimize", before=self.go_far)
        self.lose_the_monitor()
        self.comes_back_into_view(USUAL)

    def test_a_maximized_window_comes_back_into_view(self):
        self.open_near()
        self.go_far()
        self.desk.maximize("ListRadios")
        self.until(lambda: self.control("Form").left < NARROW[0], 10, "maximized")
        self.lose_the_monitor()
        self.comes_back_into_view(6450)

    def test_a_maximized_window_with_a_height_to_come_does(self):
        self.open_near()
        self.go_far()
        self.order_during(advertisement(USUAL), "maximize")
        self.lose_the_monitor()
        self.comes_back_into_view(USUAL)


if __name__ == "__main__":
    harness.run(TestOrderedHeights, TestTaskBar, TestVanishedMonitor)
