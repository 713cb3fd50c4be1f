# SPDX-License-Identifier: LGPL-2.1-or-later
"""A copy of the repository's files to break things in, so that the tree itself is never touched."""
import os
import shutil
import subprocess

TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))


class TreeCopy:
    def __init__(self, top):
        self.top = top

    def refresh(self, except_for=()):
        """All files that belong to the repository, committed or not, but those that are about to be written anew."""
        listed = subprocess.run(["git", "-C", TOP, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                                check=True, capture_output=True).stdout.decode().split("\0")
        for path in filter(None, listed):
            if path not in except_for or not os.path.exists(os.path.join(self.top, path)):
                self.restore(path)

    def restore(self, path):
        """As it is in the tree; one that is the same keeps its time, so that nothing is built for it."""
        source = os.path.join(TOP, path)
        if not os.path.isfile(source):
            return
        with open(source, "rb") as file:
            content = file.read()
        if path == "CMakeLists.txt":
            content = content.replace(b" -Werror", b"")  # what is broken on purpose may leave something unused
        self.write(path, content)
        shutil.copymode(source, os.path.join(self.top, path))

    def write(self, path, content):
        target = os.path.join(self.top, path)
        content = content.encode() if isinstance(content, str) else content
        if os.path.exists(target):
            with open(target, "rb") as file:
                if file.read() == content:
                    return
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, "wb") as file:
            file.write(content)
