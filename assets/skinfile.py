# SPDX-License-Identifier: LGPL-2.1-or-later
"""Reads a skin as the program does: its description, its pictures, and what is seen in which state.

Nothing here raises for a broken skin: what is wrong is collected in Skin.wrong. Geometry is in pixels at 96 dots an
inch, (left, top, width, height); colours are (red, green, blue).
"""
import os

from PIL import Image

TWIPS = 15  # a pixel at 96 dots an inch
# Kinds of fields after the name: s show, t position, z size, c colour, m play-state mode, w word; in capitals, where they
# may be missing, A alignment and C colour.
FIELDS = {"LTform": "zz", "LineMenu_OnTop": "stt", "LineMenu_Min": "stt", "LineMenu_End": "stt",
          "Control_Play": "stt", "Control_Rec": "stt", "Control_ShowUser": "stt", "Control_Menu": "stt",
          "Control_Sat": "stt", "Control_Volume": "stt", "Control_List": "sttmzzccC", "LTDisplay": "sttmw",
          "Orbwww": "sttm", "InfoName": "ttzzcA", "InfoTime": "ttzzcA", "InfoNaladit": "ttzzcA",
          "InfoStatus": "wtttzzzcA", "LTNeedle": "tzttc"}
PICTURES = {"LTform": ("form",), "LineMenu_OnTop": ("ot", "otn"), "LineMenu_Min": ("min",), "LineMenu_End": ("end",),
            "Control_Play": ("play", "stop"), "Control_Rec": ("rec",), "Control_ShowUser": ("show",),
            "Control_Menu": ("menu",), "Control_Sat": ("sat",), "LTDisplay": ("display",), "Orbwww": ("orb",),
            "Control_Volume": tuple(f"vol{n}" for n in range(6))}
BUTTONS = [name for name in PICTURES if name not in ("LTform", "LTDisplay")]
LABELS = ("InfoName", "InfoTime", "InfoNaladit", "InfoStatus 1", "InfoStatus 2")
MODES = ("showevery", "showstop", "hideplay")
ALIGNMENTS = ("left", "centre", "right")
# state: (playing, favourites are there, layout of the status)
STATES = {"stopped with favourites": (False, True, 0), "stopped without favourites": (False, False, 0),
          "playing": (True, True, 2), "playing, no sound yet": (True, True, 1)}


def luminance(colour):
    parts = [c / 255 / 12.92 if c / 255 <= 0.03928 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in colour[:3]]
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]


def contrast(a, b):
    low, high = sorted((luminance(a), luminance(b)))
    return (high + 0.05) / (low + 0.05)


def inside(a, b):
    return a[0] >= b[0] and a[1] >= b[1] and a[0] + a[2] <= b[0] + b[2] and a[1] + a[3] <= b[1] + b[3]


def overlap(a, b):
    return a[0] < b[0] + b[2] and b[0] < a[0] + a[2] and a[1] < b[1] + b[3] and b[1] < a[1] + a[3]


def corner(a):
    """The form of an area that the picture library takes."""
    return a[0], a[1], a[0] + a[2], a[1] + a[3]


class Skin:
    def __init__(self, folder, name):
        self.folder = os.path.join(folder, name)
        self.wrong = []
        self.fields = {}  # name: its fields as numbers, colours and words
        self.pictures = {}  # name: RGBA image; "play@2x" is that of twice the size, where there is one
        self.places = {}
        self.colours = {}  # label: its text colour
        self._read_description(self.folder + ".skin")
        self._read_pictures()
        self._find_places()

    def _read_description(self, path):
        try:
            with open(path, "rb") as source:
                text = source.read().decode("cp1250")
        except (OSError, UnicodeDecodeError) as error:
            self.wrong.append(f"the description cannot be read: {error}")
            return
        rest = text.replace("\r\n", "")
        if not text.endswith("\r\n") or "\r" in rest or "\n" in rest:
            self.wrong.append("the description's lines do not end in CR LF")
        for line in text.split("\r\n"):
            name, *fields = line.split("|")
            if not line or line.startswith(";") or name == "Author":
                continue
            if name not in FIELDS:
                self.wrong.append(f"no such control: {name}")
            elif name in self.fields:
                self.wrong.append(f"{name} stands twice")
            elif len(fields) not in (len(FIELDS[name]), len(FIELDS[name].rstrip("AC"))):
                self.wrong.append(f"{name} has {len(fields)} fields, not {len(FIELDS[name])}")
            else:
                values = [self._value(name, kind, field) for kind, field in zip(FIELDS[name], fields)]
                if None not in values:
                    self.fields[name] = values
        self.wrong += [f"{name} is not shown" for name in FIELDS
                       if FIELDS[name][0] == "s" and self.fields.get(name, ["show"])[0] != "show"]
        self.wrong += [f"{name} is missing" for name in FIELDS if name not in self.fields and name != "LTNeedle"]

    def _value(self, name, kind, field):
        if kind in "sw":
            return field
        if kind == "A":
            if field not in ALIGNMENTS:
                self.wrong.append(f"{name}: no such alignment: {field}")
                return None
            return field
        if kind == "m":
            if field not in MODES:
                self.wrong.append(f"{name}: no such mode: {field}")
                return None
            return field
        if not field.isascii() or not field.isdigit():
            self.wrong.append(f"{name}: no number: {field}")
            return None
        number = int(field)
        if kind in "cC":
            return number & 0xff, number >> 8 & 0xff, number >> 16 & 0xff
        if number % TWIPS:
            self.wrong.append(f"{name}: {number} is no whole pixel")
        return number // TWIPS

    def _read_pictures(self):
        for name in (picture for names in PICTURES.values() for picture in names):
            try:
                self.pictures[name] = self._read_picture(name)
                if os.path.exists(os.path.join(self.folder, name + "@2x.gif")):
                    self.pictures[name + "@2x"] = self._read_picture(name + "@2x")
                    if self.pictures[name + "@2x"].size != tuple(2 * side for side in self.pictures[name].size):
                        self.wrong.append(f"{name}@2x.gif has not twice the size of {name}.gif")
            except (OSError, ValueError, SyntaxError) as error:
                self.wrong.append(f"{name}.gif cannot be read: {error}")

    def _read_picture(self, name):
        with Image.open(os.path.join(self.folder, name + ".gif")) as picture:
            if picture.format != "GIF" or getattr(picture, "n_frames", 1) != 1:
                self.wrong.append(f"{name}.gif is no GIF of one picture")
            return picture.convert("RGBA")

    def _find_places(self):
        for name, fields in self.fields.items():
            if name == "LTform":
                self.places[name] = (0, 0, *fields)
            elif name == "Control_List":
                self.places[name] = (fields[2], fields[1], fields[4], fields[5])
            elif name == "InfoStatus":
                _, top1, top2, left, width, height1, height2, colour = fields[:8]
                self.places["InfoStatus 1"] = (left, top1, width, height1)
                self.places["InfoStatus 2"] = (left, top2, width, height2)
                self.colours["InfoStatus 1"] = self.colours["InfoStatus 2"] = colour
            elif name == "LTNeedle":
                top, height, start, end, _ = fields
                self.places[name] = (min(start, end) - 1, top, abs(end - start) + 2, height)
            elif name in LABELS:
                self.places[name] = (fields[1], fields[0], fields[2], fields[3])
                self.colours[name] = fields[4]
            else:
                self._place_of_picture(name, fields)

    def _place_of_picture(self, name, fields):
        sizes = {self.pictures[each].size for each in PICTURES[name] if each in self.pictures}
        if len(sizes) > 1:
            self.wrong.append(f"{name}: its pictures differ in size")
        if sizes:
            self.places[name] = (fields[2], fields[1], *sorted(sizes)[0])

    def seen(self, state):
        """The names of what is visible, back to front. The whole description must have been read."""
        playing, favourites, layout = STATES[state]
        _, _, _, display_mode, null_list = self.fields["LTDisplay"]
        list_mode = self.fields["Control_List"][3]
        logo_mode = self.fields["Orbwww"][3]
        names = []
        if playing or display_mode == "showevery" or (not favourites and null_list == "showifnulllist"):
            names.append("LTDisplay")
        names += [name for name in BUTTONS if name != "Orbwww"]
        if logo_mode == "showevery" or (logo_mode == "showstop") != playing:
            names.append("Orbwww")
        if list_mode != "hideplay" if playing else favourites:
            names.append("Control_List")
        if playing:
            names += ["InfoName", "InfoStatus 2", "InfoTime"] if layout == 2 else ["InfoName", "InfoStatus 1"]
        elif not favourites:
            names.append("InfoNaladit")
        return names
