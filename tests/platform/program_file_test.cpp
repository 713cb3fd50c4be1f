// SPDX-License-Identifier: LGPL-2.1-or-later
// Which program a command line would start: that decides whether it may.
#include "platform/common/program_file.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::platform {
namespace {

struct Case {
  const wchar_t* text;
  const wchar_t* name;
  bool whole;
};

void expect(const Case& expected, const ProgramFile& found) {
  EXPECT_EQ(found.name, expected.name) << expected.text;
  EXPECT_EQ(found.whole, expected.whole) << expected.text;
}

TEST(ProgramFileOf, ACommandLineIsItsFirstWord) {
  for (const Case& each : {Case{L"orb.exe", L"orb.exe", false},
                           {L"orb", L"orb.exe", false},
                           {L"a.exe", L"a.exe", false},
                           {L"ORB.EXE a b", L"ORB.EXE", false},
                           {L"a.b.Exe\tx", L"a.b.Exe", false},
                           {L"\"with blanks.exe\" \"C:\\x\"", L"with blanks.exe", false},
                           {L"\"orb\"", L"orb.exe", false},
                           {L"\"C:\\Orb\\orb.exe\" x", L"C:\\Orb\\orb.exe", true},
                           {L"\"C:/Orb/orb\"", L"C:/Orb/orb.exe", true},
                           {L"\"\\\\host\\share\\orb.exe\"", L"\\\\host\\share\\orb.exe", true}})
    expect(each, program_file(each.text, L""));
}

TEST(ProgramFileOf, AnApplicationIsAWholePath) {
  for (const Case& each : {Case{L"C:\\Orb\\orb.exe", L"C:\\Orb\\orb.exe", true},
                           {L"C:\\Orb\\žluťoučký kůň", L"C:\\Orb\\žluťoučký kůň.exe", true},
                           {L"\\\\?\\C:\\orb.exe", L"\\\\?\\C:\\orb.exe", true},
                           {L"C:\\o", L"C:\\o.exe", true}})
    expect(each, program_file(L"whatever.txt", each.text));
}

TEST(ProgramFileOf, OtherNamesAreNoPrograms) {
  for (const wchar_t* text :
       {L"list.tt",      L"orb.exe.tt", L"orb.bat", L"orb.exf",  L"orb.ex",       L"orb.exee", L"orb.dxe",
        L"orb.@xe",      L"orb.[xe",    L".exe",    L"\"orb.\"", L"\"orb.exe \"", L"\"orb \"", L"orb..",
        L"\"orb.exe.\"", L"orb.",       L"",        L"\"\"",     L"a:b.exe",      L"a\\b.exe", L"a/b.exe",
        L"a*.exe",       L"a?.exe",     L"a|b.exe", L"a<b.exe",  L"a>b.exe",      L"a\"b.exe", L"\"never closed.exe"})
    EXPECT_EQ(program_file(text, L"").name, L"") << text;
}

TEST(ProgramFileOf, PathsThatAreNotWholeAreNoPrograms) {
  for (const wchar_t* path :
       {L"orb.exe", L"\\orb.exe", L"C:orb.exe", L"C:", L"C:\\", L"Orb\\orb.exe", L"..\\orb.exe", L"C;\\orb.exe",
        L"/orb.exe", L"CC:\\orb.exe", L"C:\\Orb\\", L"C:\\Orb\\a.txt", L"\\\\host\\share\\a.bat"}) {
    EXPECT_EQ(program_file(L"orb.exe", path).name, L"") << path;
    EXPECT_EQ(program_file(L"\"" + std::wstring(path) + L"\"", L"").whole, false) << path;
  }
}

TEST(ProgramFileOf, ControlCharactersMakeNone) {
  for (const wchar_t control : {L'\0', L'\1', L'\n', L'\r', L'\x1f'}) {
    EXPECT_EQ(program_file(std::wstring(L"orb.exe ") + control, L"").name, L"");
    EXPECT_EQ(program_file(L"orb.exe", std::wstring(L"C:\\orb.exe") + control).name, L"");
    EXPECT_EQ(program_file(std::wstring(1, control), L"C:\\orb.exe").name, L"C:\\orb.exe") << "arguments do not decide";
  }
  EXPECT_EQ(program_file(L"orb.exe\t", L"").name, L"orb.exe");
}

} // namespace
} // namespace lumotune::platform
