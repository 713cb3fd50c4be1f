# SPDX-License-Identifier: LGPL-2.1-or-later
"""A short tour of the program: prints what is heard and seen, leaves pictures, and fails when no sound flows."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desk import STATIONS, TOP, Desk, Radio, Sound, picture, wait_for  # noqa: E402


def main():
    folder = os.path.join(TOP, sys.argv[1])
    radio = Radio(folder)
    desk = Desk(os.path.join(TOP, "build", "demo"), radio)
    good = True

    def say(text):
        print(f"tour: {text}", flush=True)

    def show(number, name):
        picture(os.path.join(folder, f"{number:02}-{name}.png"))

    try:
        desk.start()
        first = STATIONS[0]
        heard = wait_for(lambda: Sound.loudest() == first.hertz, 20)
        good &= bool(heard)
        say(f"the last station plays, {first.hertz} Hz heard" if heard else "NO SOUND of the last station")
        wait_for(lambda: desk.text("InfoTime"), 5)
        now = desk.controls()
        say(f"seen: name '{now['InfoName'].text}', time '{now['InfoTime'].text}', status '{now['InfoStatus'].text}'")
        good &= now["InfoName"].text == first.name
        show(1, "playing")
        desk.click("Control_Play")
        silent = wait_for(lambda: Sound.loudest() == 0, 5)
        good &= bool(silent)
        say("stopped by the mouse, silence" if silent else "NOT SILENT after stop")
        show(2, "stopped")
        desk.send("remoteplay/@/LUMO02/@/1/@//@/")
        heard = wait_for(lambda: Sound.loudest() == STATIONS[1].hertz, 20)
        good &= bool(heard)
        say(f"the client tunes '{STATIONS[1].name}', {STATIONS[1].hertz} Hz heard" if heard else "NO SOUND after the client's command")
        show(3, "tuned-by-the-client")
        radio.stop()
        lost = wait_for(lambda: (desk.text("InfoStatus") or "").startswith(("Spojení ztraceno", "Stanice neodpovídá")), 25)
        say(f"the radio goes away: '{desk.text('InfoStatus')}'")
        good &= bool(lost)
        show(4, "radio-gone")
        radio.start()
        heard = wait_for(lambda: Sound.loudest() == STATIONS[1].hertz, 30)
        good &= bool(heard)
        say("the radio is back, and so is the sound" if heard else "NO SOUND after the radio came back")
        desk.click("LineMenu_OnTop")
        show(5, "always-on-top")
        desk.click("LineMenu_Min")
        say(f"hidden: {not desk.form().visible}")
        good &= not desk.form().visible
        show(6, "hidden-in-the-tray")
        desk.second()
        back = wait_for(lambda: desk.form().visible, 5)
        say(f"a second start brings it back: {bool(back)}")
        good &= bool(back)
        desk.click("LineMenu_End")
        ended = desk.ended()
        say(f"ended, settings saved: {desk.options()[12]}")
        good &= bool(ended)
    finally:
        desk.close()
        radio.stop()
    say("pictures are in build/tour/")
    say("all well" if good else "SOMETHING WENT WRONG")
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
