// SPDX-License-Identifier: LGPL-2.1-or-later
// What a crash leaves on this Windows: crash_on_purpose.exe, which lies beside this program, crashes in every way.
#include "demo/start/sandbox.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <string>

namespace lumotune::selftest {
namespace {

constexpr DWORD access_violation = 0xC0000005;
constexpr DWORD stack_overflow = 0xC00000FD;
constexpr DWORD fatal_app_exit = 0x40000015;
constexpr DWORD stack_buffer_overrun = 0xC0000409;

struct Kind {
  const wchar_t* name;
  DWORD code; // that the process ends with
};

class Crash : public testing::TestWithParam<Kind> {
protected:
  void SetUp() override {
    // No box of the system's, here and in what is started.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    DeleteFileW(text.c_str());
  }
  void TearDown() override { DeleteFileW(text.c_str()); }

  [[nodiscard]] DWORD crash(const wchar_t* kind) const {
    const sandbox::Handle process = sandbox::start(folder + L"\\crash_on_purpose.exe", kind);
    constexpr DWORD longest_ms = 60000;
    DWORD code = 0;
    if (process == nullptr || WaitForSingleObject(process.get(), longest_ms) != WAIT_OBJECT_0)
      return 0;
    GetExitCodeProcess(process.get(), &code);
    return code;
  }
  [[nodiscard]] std::string written() const {
    std::ifstream source(text.c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(source), {}};
  }

  std::wstring folder = sandbox::own_folder();
  std::wstring text = folder + L"\\pad.txt";
};

TEST_P(Crash, LeavesItsTextAndItsCode) {
  const auto [name, code] = GetParam();
  EXPECT_EQ(crash(name), code);
  const std::string all = written();
  const std::size_t begin = all.find("lumotune-crash 1");
  ASSERT_NE(begin, std::string::npos) << "no text";
  static const std::regex form(
      "lumotune-crash 1\r\nversion 1\\.2\\.3\r\nbuild [0-9a-f]{32}\r\nsystem [0-9.]+( wine)?\r\n"
      "code [0-9a-f]{8}\r\n(kind [a-z]+ [a-z]+\r\n)?thread [a-z ]+\r\n"
      "(frame (none|[A-Za-z0-9._-]+\\+[0-9a-f]+)\r\n)+end\r\n");
  EXPECT_TRUE(std::regex_match(all.substr(begin), form));
  EXPECT_NE(all.find("frame crash_on_purpose.exe+"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Each, Crash,
                         testing::Values(Kind{L"null", access_violation}, Kind{L"call", access_violation},
                                         Kind{L"window", access_violation}, Kind{L"thread", access_violation},
                                         Kind{L"many", access_violation}, Kind{L"throw", fatal_app_exit},
                                         Kind{L"throw-thread", fatal_app_exit}, Kind{L"abort", fatal_app_exit}));

TEST_F(Crash, AStackThatOverflowsLeavesItsText) {
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr)
    GTEST_SKIP() << "Wine ends the process without asking its handlers";
  EXPECT_EQ(crash(L"overflow"), stack_overflow);
  EXPECT_NE(written().find("code c00000fd"), std::string::npos);
}

TEST_F(Crash, AFailFastLeavesNone) {
  EXPECT_EQ(crash(L"fail-fast"), stack_buffer_overrun);
  EXPECT_TRUE(written().empty());
}

} // namespace
} // namespace lumotune::selftest
