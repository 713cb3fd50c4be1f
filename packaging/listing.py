# SPDX-License-Identifier: LGPL-2.1-or-later
"""The lists of what goes into a package: program.list, demo.list, selftest.list.

One line each: PATH-IN-PACKAGE, a tab, SOURCE. SOURCE is relative to the repository; a leading build/ means the folder of the
build that is packed. A folder is taken whole. Lines that begin with # are comments, empty ones count for nothing.

A list may only name what lies in the repository or in the build, and a name that every Windows can unpack. Whatever else it
says is refused before anything is written.
"""
import os
import re

# What Windows does not take in a name, and names that mean devices there whatever follows the dot.
FORBIDDEN = re.compile(r'[\x00-\x1f<>:"\\|?*]')
DEVICES = re.compile(r"(con|prn|aux|nul|com[0-9¹²³]|lpt[0-9¹²³]|conin\$|conout\$)(\..*)?", re.IGNORECASE)
LONGEST = 120  # characters of a path, so that it can be unpacked into a folder of the longest usual kind


class Refused(Exception):
    """The list says something that it may not; the text is for whoever wrote it."""


def check_target(path):
    """A relative path with forward slashes that means the same on every Windows."""
    if not path or len(path) > LONGEST:
        raise Refused(f"empty or over {LONGEST} characters: {path!r}")
    for part in path.split("/"):
        if not part or FORBIDDEN.search(part) or DEVICES.fullmatch(part) or part[-1] in ". " or part[0] == " ":
            raise Refused(f"not a name for Windows: {path!r}")
    return path


def inside(path, folder):
    """Whether a path leads into the folder, links followed."""
    real, base = os.path.realpath(path), os.path.realpath(folder)
    return real == base or real.startswith(base + os.sep)


def found(source, top, build):
    """Where a source of a list lies."""
    if os.path.isabs(source) or ".." in source.split("/"):
        raise Refused(f"not a path below the repository: {source!r}")
    folder = build if source.startswith("build/") else top
    path = os.path.join(folder, source[len("build/"):] if folder == build else source)
    if not inside(path, folder):
        raise Refused(f"leads out of the repository: {source!r}")
    if not os.path.exists(path):
        raise Refused(f"does not exist: {source!r}")
    return path


def below(path, target, folder):
    """(target, file) for a file, or for every file below a folder, in the order of their names."""
    if not inside(path, folder):
        raise Refused(f"leads out of the repository: {path!r}")
    if os.path.isfile(path):
        yield check_target(target), path
        return
    if not os.path.isdir(path):
        raise Refused(f"neither file nor folder: {path!r}")
    for name in sorted(os.listdir(path)):
        if name != "__pycache__":
            yield from below(os.path.join(path, name), f"{target}/{name}", folder)


def read(list_path, top, build):
    """[(path in the package, file)], sorted by the path; a Refused names the line that is wrong."""
    name = os.path.basename(list_path)
    try:
        with open(list_path, encoding="utf-8") as source:
            lines = source.read().split("\n")
    except OSError as wrong:
        raise Refused(f"{name} is missing: {wrong.strerror}") from wrong
    rows, seen = [], {}
    for number, line in enumerate(lines, 1):
        if not line.strip() or line.startswith("#"):
            continue
        try:
            target, tab, source = line.partition("\t")
            if not tab:
                raise Refused("no tab between path and source")
            folder = build if source.startswith("build/") else top
            for row in below(found(source, top, build), check_target(target), folder):
                # Windows does not tell upper from lower case.
                if seen.setdefault(row[0].casefold(), row[0]) is not row[0]:
                    raise Refused(f"twice: {row[0]!r}")
                rows.append(row)
        except Refused as wrong:
            raise Refused(f"{name}:{number}: {wrong}") from wrong
    if not rows:
        raise Refused(f"{name} names nothing")
    for path in seen.values():
        parts = path.casefold().split("/")
        if any("/".join(parts[:count]) in seen for count in range(1, len(parts))):
            raise Refused(f"{name}: a file is a folder, too: {path!r}")
    return sorted(rows)
