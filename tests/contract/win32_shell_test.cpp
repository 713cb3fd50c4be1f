// SPDX-License-Identifier: LGPL-2.1-or-later
// Programs that are really started: this one, a second time, which then reports what it was given.
#include "tests/contract/fixture_win32.h"

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::ShowWindow;

constexpr const wchar_t* report_variable = L"LUMOTUNE_TEST_REPORT";
constexpr const wchar_t* child_arguments = L" --some=1 --argument";

std::wstring program_path() {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

std::wstring variable(const wchar_t* name) {
  wchar_t text[MAX_PATH] = {};
  GetEnvironmentVariableW(name, text, MAX_PATH);
  return text;
}

// As a second program of its own it only reports, and no test runs in it.
bool report_what_was_given() {
  const std::wstring report = variable(report_variable);
  if (report.empty())
    return false;
  STARTUPINFOW startup{};
  GetStartupInfoW(&startup);
  wchar_t folder[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, folder);
  const std::wstring text = GetCommandLineW() + std::wstring(L"\n") + program_path() + L"\n" + folder + L"\n" +
                            std::to_wstring(startup.wShowWindow) + L"\n" + platform::win32::Machine().command_line();
  std::string bytes(text.size() * 2, '\0');
  std::memcpy(bytes.data(), text.data(), bytes.size());
  const bool written = platform::win32::Files().replace(report, bytes);
  ExitProcess(written ? 0 : 1);
}
const bool never_reported = report_what_was_given(); // before any test

struct Win32Shell : testing::Test {
  // Not a backend: the window of the second run would take the keyboard from the first.
  platform::win32::Shell shell;
  platform::win32::Files files;
  ScratchFolder scratch;
  std::wstring report = scratch.path() + L"\\hlášení.txt";

  Win32Shell() {
    if (variable(report_variable).empty())
      SetEnvironmentVariableW(report_variable, report.c_str());
  }
  ~Win32Shell() override {
    if (variable(report_variable) == report)
      SetEnvironmentVariableW(report_variable, nullptr);
  }
  // The lines of the report: command line, program, folder, show-window value, the machine's view of the line.
  std::vector<std::wstring> reported() {
    for (int i = 0; i < 600 && !files.exists(report); ++i)
      Sleep(20);
    Sleep(100); // until the second program has gone
    const std::string bytes = files.read(report).value_or("");
    std::vector<std::wstring> lines(1);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
      const auto letter =
          static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | (static_cast<unsigned char>(bytes[i + 1]) << 8));
      if (letter == L'\n')
        lines.emplace_back();
      else
        lines.back() += letter;
    }
    lines.resize(5);
    return lines;
  }
};

TEST_F(Win32Shell, TheCommandLineArrivesLetterByLetter) {
  for (const ShowWindow show : {ShowWindow::normal_focus, ShowWindow::minimized_focus, ShowWindow::normal_no_focus}) {
    const std::wstring line = L"\"" + program_path() + L"\"" + child_arguments +
                              L"  http://127.0.0.1\\orb\\a.php?idh=1&h=2/@/Žluťoučký  kůň \" x  ";
    ASSERT_TRUE(shell.start(line, L"", show));
    const auto lines = reported();
    EXPECT_EQ(lines[0], line);
    EXPECT_EQ(lines[3], std::to_wstring(static_cast<int>(show)));
    EXPECT_EQ(lines[4], line.substr(line.find(L"--some"), line.size() - line.find(L"--some") - 2));
    EXPECT_TRUE(files.remove(report));
  }
}

TEST_F(Win32Shell, ABlankInTheFolderStartsNoOtherProgram) {
  const std::wstring program = scratch.path() + L"\\orb.exe";
  const std::wstring decoy = program.substr(0, program.find(L' ')) + L".exe";
  ASSERT_NE(CopyFileW(program_path().c_str(), program.c_str(), FALSE), 0);
  ASSERT_NE(CopyFileW(program_path().c_str(), decoy.c_str(), FALSE), 0);
  EXPECT_TRUE(shell.start(program + child_arguments, program, ShowWindow::normal_no_focus));
  EXPECT_EQ(reported()[1], program);
  for (int i = 0; i < 100 && DeleteFileW(program.c_str()) == 0; ++i)
    Sleep(20); // it may still be ending
  DeleteFileW(decoy.c_str());
}

TEST_F(Win32Shell, WithoutAFolderTheProgramFolderIsLookedInFirst) {
  const std::wstring path = program_path();
  const std::wstring name = path.substr(path.find_last_of(L'\\') + 1);
  EXPECT_TRUE(shell.start(name + child_arguments, L"", ShowWindow::normal_focus));
  EXPECT_EQ(reported()[1], path);
}

TEST_F(Win32Shell, WhatIsNotThereIsNotStarted) {
  EXPECT_FALSE(shell.start(L"takový-program-není.exe x", L"", ShowWindow::normal_focus));
  EXPECT_FALSE(shell.start(scratch.path() + L"\\není.exe x", scratch.path() + L"\\není.exe", ShowWindow::normal_focus));
  EXPECT_FALSE(shell.start(L"", L"", ShowWindow::normal_focus));
  EXPECT_LE(shell.open(L"\"" + scratch.path() + L"\\není.txt\""), 32);
}

// A program that bears the name of a file that the downloader writes, and one without any ending.
TEST_F(Win32Shell, AProgramUnderAnotherNameIsNotStarted) {
  const std::wstring list = scratch.path() + L"\\seznam.tt";
  const std::wstring bare = scratch.path() + L"\\orb";
  const std::wstring both = scratch.path() + L"\\není.exe x.tt";
  for (const std::wstring& copy : {list, bare, both})
    ASSERT_NE(CopyFileW(program_path().c_str(), copy.c_str(), FALSE), 0);
  wchar_t folder[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, folder);
  ASSERT_NE(SetCurrentDirectoryW(scratch.path().c_str()), 0);
  const auto start = [&](const std::wstring& line, const std::wstring& application = L"") {
    return shell.start(line + child_arguments, application, ShowWindow::normal_no_focus);
  };
  EXPECT_FALSE(start(L"seznam.tt"));
  EXPECT_FALSE(start(L"seznam.tt .exe"));
  EXPECT_FALSE(start(L"\"seznam.tt\""));
  EXPECT_FALSE(start(L"\"seznam.tt.\""));
  EXPECT_FALSE(start(L"seznam.tt:"));
  EXPECT_FALSE(start(L"seznam.tt::$DATA"));
  EXPECT_FALSE(start(L"\"" + list + L"\""));
  EXPECT_FALSE(start(L"orb.exe", list));
  EXPECT_FALSE(start(L"orb.exe", list + L"."));
  EXPECT_FALSE(start(L"orb.exe", list + L" "));
  EXPECT_FALSE(start(L"orb.exe", bare)) << "without an ending it is orb.exe that is meant";
  EXPECT_FALSE(start(L"orb"));
  EXPECT_FALSE(shell.start(L"není.exe x.tt", L"", ShowWindow::normal_no_focus)) << "only the first word is looked for";
  EXPECT_FALSE(shell.start(L"není.exe RadioOFF/@/1/@/..\\..\\..\\..\\seznam.tt", L"", ShowWindow::normal_no_focus));
  SetCurrentDirectoryW(folder);
  EXPECT_FALSE(files.exists(report)) << "none of them ran";
}

TEST_F(Win32Shell, TheSystemsOwnProgramsAreFound) {
  EXPECT_TRUE(shell.start(L"cmd /c exit", L"", ShowWindow::minimized_focus));
}

TEST(Win32Machine, ASecondCopyKnowsOfTheFirst) {
  const platform::win32::Machine first;
  bool previous = false;
  std::thread([&] { previous = platform::win32::Machine().previous_instance(); }).join(); // a mark is a thread's
  EXPECT_TRUE(previous);
  const std::wstring path = program_path();
  EXPECT_EQ(first.program_folder(), path.substr(0, path.find_last_of(L'\\')));
}

} // namespace
} // namespace lumotune::contract
