// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::ShowWindow;

struct ShellContract : testing::Test {
  HandBackend b;
  [[nodiscard]] bool starts(const std::wstring& line, const std::wstring& application = L"") {
    return b.shell.start(line, application, ShowWindow::normal_no_focus);
  }
};

TEST_F(ShellContract, NothingButAnExeIsAProgram) {
  for (const wchar_t* line : {L"",
                              L" ",
                              L"seznam.tt",
                              L"seznam.tt ",
                              L"seznam.tt .exe",
                              L"seznam.tt. .exe",
                              L"\"seznam.tt\" .exe",
                              L"\"seznam.tt .exe",
                              L"\"seznam.tt.\"",
                              L"\"seznam.tt \"",
                              L"seznam.tt.",
                              L"seznam.tt:orb.exe",
                              L"orb.exe:seznam.tt",
                              L"orb.exe.",
                              L"\"orb.exe \"",
                              L".exe",
                              L"orb.com",
                              L"orb.bat",
                              L"orb.exe.new",
                              L"sub\\orb.exe",
                              L"sub/orb.exe",
                              L"..\\orb.exe",
                              L"\\\\host\\share\\orb.exe",
                              L"C:orb.exe",
                              L"C:\\orb.exe",
                              L"C:\\Program Files\\orb.exe",
                              L"seznam.tt\torb.exe",
                              L"orb\x01.exe",
                              L"*.exe",
                              L"or?.exe"})
    EXPECT_FALSE(starts(line)) << testing::PrintToString(std::wstring(line));
}

TEST_F(ShellContract, AGivenApplicationMustBeAnExeToo) {
  const std::wstring folder = b.machine.program_folder();
  for (const wchar_t* name : {L"seznam.tt", L"seznam.tt.", L"seznam.tt ", L"seznam.tt::$DATA", L"orb.exe:x.exe",
                              L"orb.exe ", L"orb.exe.", L"orb.cmd", L"", L"\"orb.exe\"", L".exe"})
    EXPECT_FALSE(starts(L"orb.exe", folder + L"\\" + name)) << testing::PrintToString(std::wstring(name));
  for (const wchar_t* path : {L"orb.exe", L"sub\\orb.exe", L"\\orb.exe", L"C:orb.exe", L"/orb.exe"})
    EXPECT_FALSE(starts(L"orb.exe", path)) << testing::PrintToString(std::wstring(path));
}

} // namespace
} // namespace lumotune::contract
