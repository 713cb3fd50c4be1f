# SPDX-License-Identifier: LGPL-2.1-or-later
"""What a crash leaves: a program that crashes on purpose, the real one, and what tools/resolve-crash makes of their texts."""
import os
import re
import shutil
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import harness  # noqa: E402
from probing import BUILD, PROBE, TOP, wait_for, wine  # noqa: E402
from program import Program  # noqa: E402

CRASHER = os.path.join(BUILD, "tests", "crash", "crash_on_purpose.exe")
RESOLVE = os.path.join(TOP, "tools", "resolve-crash")
ACCESS_VIOLATION, FATAL_EXIT, FAIL_FAST = "c0000005", "40000015", "c0000409"
MODULE = r"[A-Za-z0-9._-]+"
LINES = re.compile(r"lumotune-crash 1\r\nversion \S+\r\nbuild ([0-9a-f]{32}|none)\r\nsystem [0-9.]+( wine)?\r\n"
                   r"code [0-9a-f]{8}\r\n(kind (read|write|run) (null|elsewhere)\r\n)?thread [a-z ]+\r\n"
                   rf"(frame (none|{MODULE}\+[0-9a-f]+)\r\n)+end\r\n")


def no_debugger():
    """Wine's debugger would show a box."""
    wine("reg", "add", r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug", "/v", "Debugger", "/d", "none", "/f")


def read(path):
    with open(path, encoding="utf-8-sig", newline="") as source:
        return source.read()


class TestCrashText:
    def __init__(self):
        self.folder = os.path.join(TOP, "build", "desktop", "crash", "pád programu")
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        shutil.copy2(CRASHER, self.folder)
        self.text = os.path.join(self.folder, "pad.txt")
        no_debugger()

    def tear_down(self):
        pass

    def crash(self, kind):
        """Crashes in that way; the code that the process ended with."""
        return wine("crash_on_purpose.exe", "run", kind, cwd=self.folder, timeout=90).stdout.decode().strip()

    def resolve(self):
        return subprocess.run([RESOLVE, self.text, "--symbols", CRASHER, "--program", "crash_on_purpose.exe"], check=False, text=True,
                              capture_output=True)

    def expect(self, kind, code, *parts, function):
        ended = self.crash(kind)
        assert ended == code, ended
        text = read(self.text)
        start = text.index("lumotune-crash 1")
        assert LINES.fullmatch(text[start:]), text
        assert len(text.encode()) <= 4096
        for part in (f"code {code}", "version 1.2.3", *parts):
            assert part in text, (part, text)
        done = self.resolve()
        assert done.returncode == 0 and function in done.stdout, (done.stdout, done.stderr)
        return text

    def test_a_write_through_nothing(self):
        self.expect("null", ACCESS_VIOLATION, "kind write null", "thread user interface", function="write_to_null() at tests/crash/crash_on_purpose.cpp:")

    def test_a_call_of_nothing_tells_its_caller(self):
        self.expect("call", ACCESS_VIOLATION, "kind run null", "frame none\r\nframe crash_on_purpose.exe", function="wmain")

    def test_an_exception_that_nobody_catches(self):
        text = self.expect("throw", FATAL_EXIT, function="throw_and_let_nobody_catch() at")
        assert "soukrom" not in text, "what was thrown may be a listener's"

    def test_an_exception_out_of_a_function_that_throws_none(self):
        self.expect("noexcept", FATAL_EXIT, function="throw_and_let_nobody_catch() at")

    def test_abort(self):
        self.expect("abort", FATAL_EXIT, function="call_abort() at")

    def test_a_pure_virtual_function(self):
        assert self.crash("pure") in (ACCESS_VIOLATION, FATAL_EXIT)
        assert "call_a_pure_virtual_function" in self.resolve().stdout

    def test_a_thread_is_told_by_its_name(self):
        self.expect("thread", ACCESS_VIOLATION, "thread stream worker", function="write_to_null() at")
        self.expect("throw-thread", FATAL_EXIT, "thread file worker", function="throw_and_let_nobody_catch() at")

    def test_in_a_window_procedure(self):
        self.expect("window", ACCESS_VIOLATION, "kind write null", function="write_to_null() at")

    def test_of_many_threads_one_is_told(self):
        text = self.expect("many", ACCESS_VIOLATION, "thread other", function="write_to_null() at")
        assert text.count("lumotune-crash") == text.count("end\r\n") == 1

    def test_a_broken_stack_ends_the_text(self):
        self.expect("broken-stack", ACCESS_VIOLATION, function="break_the_stack() at")

    def test_a_later_crash_replaces_the_text(self):
        self.expect("broken-stack", ACCESS_VIOLATION, function="break_the_stack() at")
        self.expect("call", ACCESS_VIOLATION, function="wmain")

    def test_a_fail_fast_leaves_none(self):
        assert self.crash("fail-fast") == FAIL_FAST
        assert not os.path.exists(self.text)

    def test_without_a_place_to_write_the_process_ends_all_the_same(self):
        os.mkdir(self.text)
        assert self.crash("null") == ACCESS_VIOLATION
        assert os.path.isdir(self.text)

    def test_symbols_of_another_build_resolve_nothing(self):
        self.crash("null")
        other = os.path.join(self.folder, "other.exe")
        with open(CRASHER, "rb") as source:
            data = source.read()
        build = bytes.fromhex(re.search("^build ([0-9a-f]{32})", read(self.text), re.M)[1])
        record = b"RSDS" + build[3::-1] + build[5:3:-1] + build[7:5:-1] + build[8:]
        assert data.count(record) == 1
        with open(other, "wb") as out:
            out.write(data.replace(record, b"RSDS" + bytes(16)))
        done = subprocess.run([RESOLVE, self.text, "--symbols", other, "--program", "crash_on_purpose.exe"], check=False, text=True,
                              capture_output=True)
        assert done.returncode == 2 and "nothing is resolved" in done.stderr and "write_to_null" not in done.stdout


class TestRealProgram(Program):
    def test_a_crash_leaves_a_text_beside_the_error_log(self):
        no_debugger()
        desk = self.begin()
        assert wine(PROBE, "crash").returncode == 0
        self.until(lambda: desk.process.poll() is not None, 60, "the program ends")
        path = desk.path("Orb_Data", "pad.txt")
        assert wait_for(lambda: os.path.exists(path))
        text = read(path)
        assert LINES.fullmatch(text[text.index("lumotune-crash 1"):]), text
        assert f"code {ACCESS_VIOLATION}\r\nkind run null\r\nthread other\r\nframe none\r\n" in text, text
        assert "složka" not in text and "demo" not in text and "Posluchač" not in text


if __name__ == "__main__":
    harness.run(TestCrashText, TestRealProgram)
