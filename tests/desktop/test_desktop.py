# SPDX-License-Identifier: LGPL-2.1-or-later
"""The real program, used as a listener and as the client use it."""
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from desk import Desk  # noqa: E402
from probing import PROBE, WINE, wait_for, wine  # noqa: E402
from program import BY_ID, Program  # noqa: E402
from sound import Sound  # noqa: E402


class TestListening(Program):
    def test_plays_the_last_station_and_shows_it(self):
        desk = self.begin()
        station = BY_ID["LUMO01"]
        self.hear(station.hertz)
        self.until(lambda: re.fullmatch(r"0:0[1-9]", desk.text("InfoTime") or ""))
        now = desk.controls()
        assert now["InfoName"].text == station.name
        assert re.match(r".* · MP3 128 kbps 44,1 kHz$", now["InfoStatus"].text), now["InfoStatus"].text
        assert any(title in now["InfoStatus"].text for title in station.titles), now["InfoStatus"].text
        assert now["PlayTL"].text == "Stop" and now["Control_Play"].text == "Stop"
        assert (now["Form"].left, now["Form"].top) == (200, 200), "the saved place"
        assert not now["InfoNaladit"].visible and not now["Control_List"].visible
        assert now["LTDisplay"].visible

    def test_every_control_can_be_told_by_its_property(self):
        now = self.begin().controls()
        for name, kind in (("Control_Play", "Button"), ("Control_Sat", "Button"), ("Control_Volume", "Button"),
                           ("Control_Rec", "Button"), ("Control_ShowUser", "Button"), ("Control_Menu", "Button"),
                           ("Orbwww", "Button"), ("LineMenu_OnTop", "Button"), ("LineMenu_Min", "Button"),
                           ("LineMenu_End", "Button"), ("PlayTL", "Button"), ("Control_List", "ListBox"),
                           ("InfoName", "Static"), ("InfoTime", "Static"), ("InfoStatus", "Static"),
                           ("InfoNaladit", "Static"), ("LTDisplay", "Static"), ("TrayIcon", "Static")):
            assert now[name].kind == kind, (name, now[name].kind)
        assert now["Form"].text == "Lumotune"

    def test_stops_and_plays_by_the_mouse(self):
        desk = self.begin()
        self.hear(440)
        desk.click("Control_Play")
        self.until(lambda: Sound.loudest(0.3) == 0, 3, "silence")
        now = desk.controls()
        assert now["PlayTL"].text == "Zapnout"
        assert not now["InfoName"].visible and not now["InfoStatus"].visible
        desk.click("Control_Play")
        self.hear(440)

    def test_stops_and_plays_by_the_keyboard(self):
        desk = self.begin()
        self.hear(440)
        desk.click("InfoTime")  # a window manager may give the keyboard to a window only when it is clicked
        desk.tab_to("Control_Play")
        desk.key("space")
        self.until(lambda: desk.text("PlayTL") == "Zapnout")
        desk.key("Return")
        self.until(lambda: desk.text("PlayTL") == "Stop")

    def test_without_auto_start_one_press_plays(self):
        desk = self.begin("13=#013:LTautoStart:0")
        assert Sound.loudest() == 0
        now = desk.controls()
        assert now["Control_Play"].enabled and now["PlayTL"].text == "Zapnout"
        assert now["InfoNaladit"].visible or now["Control_List"].visible
        desk.click("Control_Play")
        self.hear(440)

    def test_plays_other_formats(self):
        desk = self.begin("13=#013:LTautoStart:0")
        for identifier in ("LUMO09", "LUMO11"):
            station = BY_ID[identifier]
            assert desk.send("p:" + self.radio.address(station.path(1)))
            self.hear(station.hertz)

    def test_comes_back_after_the_radio_was_away(self):
        desk = self.begin()
        self.hear(440)
        self.radio.stop()
        self.until(lambda: re.match(r"(Spojení ztraceno|Stanice neodpovídá)(, další pokus za \d+ s)?$",
                                    desk.text("InfoStatus") or ""), 30, desk.text("InfoStatus"))
        assert desk.text("PlayTL") == "Stop", "the listener's wish stays"
        self.radio.start()
        self.hear(440)

    def test_a_stop_wins_while_the_radio_is_away(self):
        desk = self.begin()
        self.hear(440)
        self.radio.stop()
        self.until(lambda: "další pokus" in (desk.text("InfoStatus") or ""))
        desk.click("Control_Play")
        self.radio.start()
        self.until(lambda: desk.text("PlayTL") == "Zapnout")
        assert Sound.loudest(3) == 0

    def test_a_station_that_is_not_there_says_so(self):
        desk = self.begin("13=#013:LTautoStart:0")
        desk.send("p:" + self.radio.address("/neni.mp3"))
        self.until(lambda: (desk.text("InfoStatus") or "").startswith("Stanice nenalezena (404)"), text=desk.text("InfoStatus"))

    def test_the_volume_of_the_settings_is_applied(self):
        desk = self.begin()
        self.hear(440)
        loud = Sound.level(Sound.record(1))
        desk.close()
        self.begin("20=#020:LTvolume:20")
        self.hear(440)
        assert Sound.level(Sound.record(1)) < loud / 2


class TestClient(Program):
    def test_the_client_is_started_and_told_to_end(self):
        desk = self.begin()
        self.until(lambda: "start show=4" in desk.log("orb"), text=desk.log("orb"))
        assert re.search(r"line=.*\\orb\.exe m\r?\n", desk.log("orb")), desk.log("orb")
        desk.click("LineMenu_End")
        assert desk.ended()
        self.until(lambda: "received kind=1 text=orbend" in desk.log("orb"), text=desk.log("orb"))

    def test_a_client_that_ran_before_is_not_told_to_end(self):
        self.desk = desk = Desk(self.folder, self.radio)
        subprocess.Popen([WINE, "orb.exe"], cwd=desk.folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                         stderr=subprocess.DEVNULL)
        self.until(lambda: "start" in desk.log("orb"))
        desk.start()
        desk.click("LineMenu_End")
        assert desk.ended()
        assert "orbend" not in desk.log("orb")
        assert desk.log("orb").count("start") == 1

    def test_commands_tune_and_play(self):
        desk = self.begin("13=#013:LTautoStart:0")
        assert desk.send("id:lumo02") and desk.send("idk:2") and desk.send("play")
        self.hear(BY_ID["LUMO02"].hertz)
        self.until(lambda: desk.text("InfoName") == BY_ID["LUMO02"].name)
        assert desk.send("remoteplay/@/NIKDE1/@/1/@/" + self.radio.address(BY_ID["LUMO03"].path(1)) + "/@/Z klienta")
        self.hear(BY_ID["LUMO03"].hertz)
        self.until(lambda: desk.text("InfoName") == "Z klienta")
        assert desk.send("neznámý příkaz")
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options()[12] == "#012:LTLast:NIKDE1/1"

    def test_what_is_sent_at_the_first_look_up_is_heard(self):
        for auto_start in ("1", "0"):
            for command, station in (("p:" + self.radio.address(BY_ID["LUMO05"].path(1)), BY_ID["LUMO05"]),
                                     ("remoteplay/@/NIKDE1/@/1/@/" + self.radio.address(BY_ID["LUMO03"].path(1)) + "/@/x",
                                      BY_ID["LUMO03"])):
                self.desk = desk = Desk(self.folder, self.radio, ["13=#013:LTautoStart:" + auto_start])
                with subprocess.Popen([WINE, PROBE, "early", command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                      stderr=subprocess.DEVNULL) as sender:
                    desk.start()
                    assert sender.wait(40) == 0, "the command was answered"
                self.hear(station.hertz)
                self.until(lambda: desk.text("PlayTL") == "Stop")
                self.until(lambda: desk.visible("InfoName") and not desk.visible("Control_List"))
                desk.close()

    def test_a_second_copy_shows_the_first_and_ends(self):
        desk = self.begin()
        desk.click("LineMenu_Min")
        self.until(lambda: not desk.form().visible)
        place = desk.form()
        assert desk.second("http://cokoliv").returncode == 0
        self.until(lambda: desk.form().visible)
        after = desk.form()
        assert (after.left, after.top) == (200, 200), (place.left, after.left)
        assert desk.process.poll() is None

    def test_the_command_line_is_an_address(self):
        station = BY_ID["LUMO05"]
        self.desk = Desk(self.folder, self.radio)
        self.desk.start(self.radio.address(station.path(1)))
        self.hear(station.hertz)

    def test_without_a_login_the_client_is_started_and_the_program_ends(self):
        self.desk = desk = Desk(self.folder, self.radio, ["5=#005:OIdh::"])
        desk.start(wait=False)
        self.until(lambda: any("Nejprve zapněte Orb klienta." in box for box in desk.boxes()))
        assert not any(box[0] == "Lumotune" for box in desk.boxes())
        assert desk.press("OK")
        assert desk.ended()
        self.until(lambda: "start show=1" in desk.log("orb"), text=desk.log("orb"))
        assert desk.options()[5] == "#005:OIdh::"


class TestWindow(Program):
    def test_settings_are_saved_and_foreign_lines_kept(self):
        desk = self.begin()
        before = desk.options()
        desk.click("LineMenu_OnTop")
        self.until(lambda: desk.form().topmost)
        desk.click("LineMenu_End")
        assert desk.ended()
        before[11] = "#011:LTTop:1"
        assert desk.options() == before
        desk.start()
        self.until(lambda: desk.form().topmost)

    def test_is_dragged_by_its_background_and_remembers_the_place(self):
        desk = self.begin("13=#013:LTautoStart:0")
        form = desk.form()
        words = ["mousemove", str(form.left + 200), str(form.top + 18), "sleep", "0.2", "mousedown", "1"]
        for step in range(1, 11):
            words += ["mousemove", str(form.left + 200 + step * 10), str(form.top + 18 + step * 6), "sleep", "0.05"]
        subprocess.run(["xdotool", *words, "mouseup", "1"], check=True)
        self.until(lambda: desk.form().left > form.left + 50, 5, f"{desk.form().left}")
        moved = desk.form()
        desk.click("LineMenu_End")
        assert desk.ended()
        assert desk.options()[22] == f"#022:LTpleft:{moved.left * 15}"
        assert desk.options()[23] == f"#023:LTptop:{moved.top * 15}"

    def test_the_tray_icon_hides_and_shows(self):
        desk = self.begin("13=#013:LTautoStart:0")

        def click():
            place = wait_for(self.tray_icon)
            assert place, "no icon in the tray"
            desk.click_at(place)

        click()
        self.until(lambda: not desk.form().visible)
        click()
        self.until(lambda: desk.form().visible)
        assert (desk.form().left, desk.form().top) == (200, 200)
        desk.click("LineMenu_End")
        assert desk.ended()
        self.until(lambda: self.tray_icon() is None, text="the icon goes")

    def test_the_close_of_the_system_and_the_end_of_the_session_save(self):
        for order in ("close", "endsession"):
            desk = self.begin("20=#020:LTvolume:777")
            wine(PROBE, order)
            assert desk.ended(), order
            assert desk.options()[20] == "#020:LTvolume:100", order
            desk.close()

    def test_a_missing_skin_gives_way_and_a_broken_one_is_logged(self):
        desk = self.begin("21=#021:LTskin:Neni")
        assert desk.visible("Control_Play")
        desk.close()
        desk = Desk(self.folder, self.radio, ["21=#021:LTskin:Vadny"])
        self.desk = desk
        with open(desk.path("Orb_Data", "skins", "Vadny.skin"), "w", encoding="cp1250") as out:
            out.write("LineMenu_End|show|10|10\n")
        desk.start()
        with open(desk.path("Orb_Data", "error.log"), encoding="cp1250") as log:
            assert re.search(r" Lumotune \(LoadSkin\) .*Vadny\.skin line 1: .*end\.gif", log.read())
        assert not desk.visible("LineMenu_End")
        wine(PROBE, "close")
        assert desk.ended()

    def test_a_place_off_the_screen_is_not_taken(self):
        desk = self.begin("22=#022:LTpleft:900000")
        form = desk.form()
        assert 0 <= form.left < 1280 and 0 <= form.top < 800


if __name__ == "__main__":
    harness.run(TestListening, TestClient, TestWindow)
