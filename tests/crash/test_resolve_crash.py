#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""tools/resolve-crash takes a stranger's text for what it is: every line has its form, or nothing is made of it."""
import importlib.machinery
import importlib.util
import os
import struct
import subprocess
import sys
import tempfile
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOL = os.path.join(TOP, "tools", "resolve-crash")
sys.dont_write_bytecode = True
LOADER = importlib.machinery.SourceFileLoader("resolve_crash", TOOL)
tool = importlib.util.module_from_spec(importlib.util.spec_from_loader("resolve_crash", LOADER))
LOADER.exec_module(tool)

BUILD = "00112233445566778899aabbccddeeff"
GOOD = ["lumotune-crash 1", "version 0.1.0", f"build {BUILD}", "system 10.0.22631", "code c0000005", "kind write null", "thread stream worker",
        "frame lumotune.exe+1a2b", "frame none", "frame ntdll.dll+5dca8", "end", ""]
BASE = 0x140000000


def text(lines, line_end="\r\n"):
    return ("\ufeffLumotune spadlo.\nJak na to.\n\n" + line_end.join(lines)).encode("utf-8")


def program(build=BUILD):
    """The headers of a program, one section and the record of its build."""
    place, raw = 0x1000, 0x200
    optional = struct.pack("<H22xQ80x", 0x20b, BASE) + struct.pack("<II", 0, 0) * 6 + struct.pack("<II", place, 28) + bytes(8 * 9)
    head = struct.pack("<IHHIIIHH", 0x4550, 0x8664, 1, 0, 0, 0, len(optional), 0)
    section = b".buildid" + struct.pack("<IIII16x", 0x100, place, 0x100, raw)
    data = (b"MZ" + bytes(0x3a) + struct.pack("<I", 0x40) + head + optional + section).ljust(raw, b"\0")
    entry = struct.pack("<IIHHIIII", 0, 0, 0, 0, 2, 24, place + 28, raw + 28)
    number = bytes.fromhex(build)
    record = b"RSDS" + number[3::-1] + number[5:3:-1] + number[7:5:-1] + number[8:] + bytes(4)
    return data + (entry + record).ljust(0x100, b"\0")


class TestText(unittest.TestCase):
    def bad(self, lines, **more):
        with self.assertRaises(tool.Bad):
            tool.parse(text(lines, **more))

    def changed(self, old, new):
        return [new if line == old else line for line in GOOD]

    def test_a_proper_one_is_read(self):
        values, frames = tool.parse(text(GOOD))
        self.assertEqual(values, {"version": "0.1.0", "build": BUILD, "system": "10.0.22631", "code": "c0000005", "kind": "write null",
                                  "thread": "stream worker"})
        self.assertEqual(frames, [("lumotune.exe", 0x1a2b), None, ("ntdll.dll", 0x5dca8)])
        self.assertEqual(tool.parse(text(GOOD, line_end="\n")), (values, frames), "a mail program made other line ends")

    def test_without_an_access_there_is_no_kind(self):
        self.assertNotIn("kind", tool.parse(text([line for line in GOOD if not line.startswith("kind")]))[0])

    def test_each_line_has_its_form(self):
        for line in GOOD[:5] + GOOD[6:7] + ["end"]:
            self.bad([each for each in GOOD if each != line])
        for old, new in (("version 0.1.0", "version $(id)"), ("version 0.1.0", "version " + "1" * 33), (f"build {BUILD}", "build ../../x"),
                         ("code c0000005", "code c000000g"), ("thread stream worker", "thread \x1b[31mred"),
                         ("frame lumotune.exe+1a2b", "frame lumotune.exe+1a2b; id"), ("frame lumotune.exe+1a2b", "frame ../x+1"),
                         ("frame lumotune.exe+1a2b", "frame lumotune.exe+123456789"), ("frame lumotune.exe+1a2b", "frame -x"),
                         ("frame none", "frame none\n"), ("end", "end\nmore")):
            self.bad(self.changed(old, new))

    def test_its_length_is_bounded(self):
        self.bad(GOOD[:-2] + ["frame none"] * 46 + ["end", ""])
        self.assertEqual(len(tool.parse(text(GOOD[:-2] + ["frame none"] * 45 + ["end", ""]))[1]), 48)
        with self.assertRaises(tool.Bad):
            tool.parse(b"x" * 4097)
        with self.assertRaises(tool.Bad):
            tool.parse(b"\xff\xfe" + text(GOOD))

    def test_the_program_says_so(self):
        with tempfile.NamedTemporaryFile() as file:
            done = subprocess.run([TOOL, file.name], capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("not a crash text", done.stderr)


class TestPlaces(unittest.TestCase):
    def test_a_source_is_named_as_the_repository_has_it(self):
        for place in ("/lumotune/platform/x.cpp:3", "/lumotune/build/windows/../../platform/x.cpp:3", "./platform/x.cpp:3",
                      os.path.join(TOP, "platform", "x.cpp:3"), os.path.join(TOP, "build", "..", "platform", "x.cpp:3")):
            self.assertEqual(tool.shortened("call() at " + place), "call() at platform/x.cpp:3")
        self.assertEqual(tool.shortened("start at ../crt/exe.c:1"), "start at ../crt/exe.c:1", "a library's stays")


class TestSymbols(unittest.TestCase):
    def run_on(self, lines, symbols):
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, name) for name in ("pad.txt", "lumotune.debug")]
            for path, data in zip(paths, (text(lines), symbols)):
                with open(path, "wb") as out:
                    out.write(data)
            return subprocess.run([TOOL, paths[0], "--symbols", paths[1]], capture_output=True, text=True, check=False)

    def test_the_build_is_that_of_the_record(self):
        with tempfile.NamedTemporaryFile() as file:
            file.write(program())
            file.flush()
            symbols = tool.Symbols(file.name)
        self.assertEqual((symbols.build, symbols.base), (BUILD, BASE))

    def test_another_build_resolves_nothing(self):
        done = self.run_on(GOOD, program("ff" + BUILD[2:]))
        self.assertEqual(done.returncode, 2)
        self.assertIn(f"the text is of build {BUILD}, the symbols of ff", done.stderr)
        self.assertIn("lumotune.exe+1a2b", done.stdout, "the places are told all the same")

    def test_an_unknown_build_resolves_nothing(self):
        done = self.run_on([line if not line.startswith("build") else "build none" for line in GOOD], program())
        self.assertEqual(done.returncode, 2)
        self.assertIn("do not say of which build", done.stderr)

    def test_a_torn_file_resolves_nothing(self):
        for length in (0, 1, 0x3e, 0x50, 0x90, 0x150):
            done = self.run_on(GOOD, program()[:length])
            self.assertEqual(done.returncode, 2, length)
            self.assertIn("nothing is resolved", done.stderr)


if __name__ == "__main__":
    unittest.main()
