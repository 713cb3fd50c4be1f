# SPDX-License-Identifier: LGPL-2.1-or-later
"""The packages under test, a client's folder to put them into, and what lies there file by file."""
import glob
import hashlib
import os
import sys
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "desktop"))
from probing import TOP, WINE, wait_for, wine  # noqa: E402,F401  pylint: disable=unused-import

PACKAGES = os.environ.get("LUMOTUNE_PACKAGES", os.path.join(TOP, "build", "packages"))
KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumotune"
UNINSTALLER = "lumotune-odinstalovat.exe"
# What the installer leaves beside the program while it works, and must not leave afterwards.
ASIDE = ("lumotune-novy", "lumotune-stary")


def package(kind):
    found = glob.glob(os.path.join(PACKAGES, "lumotune-*-" + kind))
    assert len(found) == 1, f"one lumotune-VERSION-{kind} in {PACKAGES} expected, not {found}"
    return found[0]


def contents(kind):
    """{path: bytes} of a zip; it may not contain anything twice."""
    with zipfile.ZipFile(package(kind)) as source:
        names = source.namelist()
        assert len(names) == len(set(names))
        return {name: source.read(name) for name in names}


def unpack(kind, folder):
    for name, content in contents(kind).items():
        path = os.path.join(folder, *name.split("/"))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as out:
            out.write(content)


def tree(folder):
    """{path: digest} of every file below, and {path/: ""} of every folder."""
    found = {}
    for place, folders, files in os.walk(folder):
        inside = os.path.relpath(place, folder).replace(os.sep, "/")
        prefix = "" if inside == "." else inside + "/"
        found.update({f"{prefix}{name}/": "" for name in folders})
        for name in files:
            with open(os.path.join(place, name), "rb") as source:
                found[prefix + name] = hashlib.sha256(source.read()).hexdigest()
    return found


def digests(files):
    return {name: hashlib.sha256(content).hexdigest() for name, content in files.items()}


def differences(before, after):
    """What came, went and changed, for a message that a reader can use."""
    came, went = sorted(set(after) - set(before)), sorted(set(before) - set(after))
    changed = sorted(name for name in set(before) & set(after) if before[name] != after[name])
    return f"came {came}, went {went}, changed {changed}"


def same(before, after):
    assert before == after, differences(before, after)


def windows_path(path):
    return "Z:" + os.path.abspath(path).replace("/", "\\")


def registered(name):
    """A text of the uninstall key; None where there is none."""
    answer = wine("reg", "query", KEY, "/v", name)
    if answer.returncode != 0:
        return None
    line = next(line for line in answer.stdout.decode("cp852").splitlines() if "REG_" in line)
    return line.split("REG_", 1)[1].split(None, 1)[1].strip()


def shortcut():
    """The start menu's entry."""
    menu = ("AppData", "Roaming", "Microsoft", "Windows", "Start Menu", "Programs", "Lumotune.lnk")
    found = glob.glob(os.path.join(os.environ["WINEPREFIX"], "drive_c", "users", "*", *menu))
    return found[0] if found else None


def setup(folder=None):
    """The installer without its windows; its exit code. The folder is the rest of the command line, without quotation marks
    even where it has blanks: given word by word, as Wine joins them."""
    words = f"/D={folder}".split(" ") if folder else []
    return wine(package("setup.exe"), "/S", *words, timeout=120).returncode


def uninstall(folder):
    """The uninstaller goes on in a copy of its own: its end is told by the file that it removes last but one."""
    wine(os.path.join(folder, UNINSTALLER), "/S", timeout=120)
    return wait_for(lambda: not os.path.exists(os.path.join(folder, UNINSTALLER)) and registered("InstallLocation") is None, 60)
