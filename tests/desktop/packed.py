# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a package's list names, laid out as somebody unpacks it."""
import os
import shutil
import subprocess
import sys

from probing import BUILD, TOP

DATA = "build/package-data/"
# Made by tools/package alone: manual, licences. The programs do without them.
OF_THE_PACKAGE = "build/package/"


def unpack(name, folder):
    """packaging/NAME.list into that folder; the data is made anew, in a place of its own: another group may do the same."""
    data = os.path.join(BUILD, "package-data-of-" + name)
    subprocess.run([sys.executable, os.path.join(TOP, "demo", "make_package_data"), data], check=True, stdout=subprocess.DEVNULL)
    shutil.rmtree(folder, ignore_errors=True)
    with open(os.path.join(TOP, "packaging", name + ".list"), encoding="utf-8") as source:
        rows = [line.rstrip("\n").split("\t") for line in source if line.strip() and not line.startswith("#")]
    for target, source in rows:
        if source.startswith(OF_THE_PACKAGE):
            continue
        path = os.path.join(TOP, source)
        for prefix, folder_of_it in ((DATA, data), ("build/", BUILD)):
            if source.startswith(prefix):
                path = os.path.join(folder_of_it, source[len(prefix):])
                break
        place = os.path.join(folder, target)
        os.makedirs(os.path.dirname(place), exist_ok=True)
        if os.path.isdir(path):
            shutil.copytree(path, place, dirs_exist_ok=True)
        else:
            shutil.copy2(path, place)
