#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""docs/PRIRUCKA.md leaves out nothing that a listener reads in the program, and shows pictures that are there."""
import os
import re
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from community import TOP  # noqa: E402

BOOK = os.path.join(TOP, "docs", "PRIRUCKA.md")
PICTURES = os.path.join(TOP, "docs", "prirucka")
LITERAL = re.compile(r'L"((?:\\.|[^"\\])*)"')
# Where the texts of menus, the status, boxes and links stand.
SOURCES = ("menus/menu_table.h", "menus/menu_commands.cpp", "directory/station_menu.h", "directory/update.cpp", "directory/updater.cpp",
           "directory/list_radios.cpp", "directory/actions.cpp", "directory/details.cpp", "player/status_text.cpp", "player/status_display.h",
           "player/startup.cpp", "player/client_link.cpp", "player/favourites.cpp", "player/favourites.h", "stations/favourite_file.h",
           "base/lumotune_form.cpp", "directory/filter_line.cpp", "directory/station_list.cpp", "player/drops.h", "player/gestures.cpp",
           "player/gestures.h", "player/favourite_lists.cpp", "player/quality_backup.cpp", "skin/skin_installer.cpp")
# Texts that are told without being repeated: a removed favourite, one that was added, advice that the program gives itself, names for
# screen readers, headings of columns, and parts of the texts above.
UNTOLD = ("Rádio bylo ", "Mělo by se", "Zvolte kvalitu", "Čím je kvalita", "Pokud vyberete", "nebude plynulé", "Vyberte stanici",
          "Soubor list.tt", "LTCC", "kbps", "Kategorie rádií", "O rádiu", "Přihlásit se na Orb", "Vybrané rádio", "je plný", "disk.",
          "Soubor options.ini používal", "Mám potíže s poslechem tohoto rádia'", "Skrýt", "Rádia",
          "Orb - Lumotune", "Název rádia", "Země")


def read(path):
    with open(os.path.join(TOP, path), encoding="utf-8") as source:
        return source.read()


def plain(text):
    """Without Markdown, dots and differences of blanks."""
    return " ".join(re.sub(r"[*`…]|\.\.\.", " ", text).split())


def told(source):
    """The Czech sentences and captions of a source file."""
    bare = "\n".join(line for line in read(source).splitlines() if not line.lstrip().startswith("//"))
    for literal in LITERAL.findall(bare):
        for line in literal.split(r"\r\n"):
            text = plain(line)
            czech = any(letter > "\x7f" for letter in text) or " " in text
            if czech and text[:1].isupper() and not any(part in line for part in UNTOLD):
                yield text


class Manual(unittest.TestCase):
    def test_it_says_every_text_of_the_program(self):
        book = plain(read("docs/PRIRUCKA.md"))
        found = 0
        for source in SOURCES:
            for text in told(source):
                found += 1
                # A long text is told by its beginning.
                beginning = re.split(r"(?<=[.,!?]) ", text)[0].rstrip(".,: (")
                with self.subTest(source=source, text=text):
                    self.assertIn(beginning, book)
        self.assertGreater(found, 60)

    def test_its_pictures_are_there_and_all_are_shown(self):
        shown = re.findall(r"!\[[^\]]+\]\(prirucka/([\w-]+\.png)\)", read("docs/PRIRUCKA.md"))
        self.assertEqual(sorted(set(shown)), sorted(os.listdir(PICTURES)))
        self.assertGreater(len(shown), 10)
        for name in shown:
            self.assertLess(os.path.getsize(os.path.join(PICTURES, name)), 60000, name)

    def test_its_links_lead_somewhere(self):
        book = read("docs/PRIRUCKA.md")
        for anchor in re.findall(r"\]\(#([\w-]+)\)", book):
            self.assertIn(f'<a id="{anchor}"></a>', book)


if __name__ == "__main__":
    unittest.main()
