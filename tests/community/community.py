# SPDX-License-Identifier: LGPL-2.1-or-later
"""For the tests of the server's page and of the list maker: where things are, and what the program makes of a list."""
import os
import subprocess
import sys

sys.dont_write_bytecode = True
TOP = os.path.realpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
sys.path += [os.path.join(TOP, "demo"), os.path.join(TOP, "tools")]


class Program:
    """The program's own code, by the program list_check."""

    def __init__(self, path):
        self.path = path

    def of_list(self, path, *questions):
        """What it says of a list, and its answers."""
        told = self.run(path, "-", "-", questions)
        return told[0], told[1:]

    def of_probe(self, path, server="-"):
        return self.run("-", path, server, ())[0]

    def run(self, list_path, probe_path, server, questions):
        done = subprocess.run([self.path, list_path, probe_path, server], input="".join(each + "\n" for each in questions),
                              capture_output=True, encoding="utf-8", timeout=600, check=True)
        return done.stdout.splitlines()
