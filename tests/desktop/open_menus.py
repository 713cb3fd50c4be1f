# SPDX-License-Identifier: LGPL-2.1-or-later
"""Pop-up menus that are open: what they show, and choosing in them by the captions that a user reads."""
import subprocess
import typing

from probing import lines_of, wait_for


class Item(typing.NamedTuple):
    depth: int  # of its menu: 0, below it 1
    kind: str  # "s" a separator, "g" greyed, "c" checked, "h" highlighted, "m" a submenu
    place: tuple
    caption: str


class OpenMenus:
    @staticmethod
    def key(*names):
        subprocess.run(["xdotool", "key", "--delay", "120", *names], check=True)

    @staticmethod
    def menus():
        """The places of the open menus: (left, top, width, height)."""
        return [tuple(int(value) for value in line.split()) for line in lines_of("menus")]

    @staticmethod
    def menu_items():
        parts = [line.split("\t", 4) for line in lines_of("menuitems")]
        return [Item(int(part[0]), part[1], (int(part[2]), int(part[3])), part[4]) for part in parts if len(part) == 5]

    def choose(self, *path):
        """By the keyboard, from the menu that was just opened, once it is there: captions of submenus, then that of the item. What it
        starts may still be on its way."""
        self.highlight(*path)
        self.key("Return")
        if not wait_for(lambda: not self.menus()):
            raise RuntimeError("the menu stays open")

    def open_submenu(self, *path):
        self.highlight(*path)
        self.key("Right")
        if not wait_for(lambda: len(self.menus()) == len(path) + 1):
            raise RuntimeError(f"no submenu opens at {path}")

    def highlight(self, *path):
        """By the keyboard, which reaches every item but separators."""
        if len(path) > 1:
            self.open_submenu(*path[:-1])
        elif not wait_for(self.menus):
            raise RuntimeError("no menu opens")
        depth, caption = len(path) - 1, path[-1]
        wanted = self.find(depth, caption)

        def steps():
            return wanted - next((place for place, item in enumerate(self.reachable(depth)) if "h" in item.kind), -1)

        for _ in range(3):  # the pointer may take the highlight elsewhere between the keys
            if left := steps():
                self.key(*["Down" if left > 0 else "Up"] * abs(left))
            if wait_for(lambda: not steps(), 10):
                return
        raise RuntimeError(f"the keyboard does not reach {caption!r} in {self.reachable(depth)}")

    def reachable(self, depth):
        return [item for item in self.menu_items() if item.depth == depth and "s" not in item.kind]

    def find(self, depth, caption):
        """The place of the only item of that caption among those that can be reached."""
        captions = [item.caption for item in wait_for(lambda: self.reachable(depth))]
        if captions.count(caption) != 1:
            raise RuntimeError(f"{captions.count(caption)} menu items {caption!r} among {captions}")
        return captions.index(caption)

    def item_place(self, caption):
        """Where the mouse hits that item of the menu that was just opened."""
        if not wait_for(self.menus):
            raise RuntimeError("no menu opens")
        return self.reachable(0)[self.find(0, caption)].place
