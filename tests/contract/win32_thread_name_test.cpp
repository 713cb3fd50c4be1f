// SPDX-License-Identifier: LGPL-2.1-or-later
// The names that debuggers see.
#include "platform/threads/thread_name.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <thread>

namespace lumotune::contract {
namespace {

TEST(Win32ThreadName, IsTheOneGiven) {
  using GetDescription = HRESULT WINAPI(HANDLE thread, PWSTR * description);
  const HMODULE library = GetModuleHandleW(L"kernelbase.dll");
  ASSERT_NE(library, nullptr);
  auto* get =
      reinterpret_cast<GetDescription*>(reinterpret_cast<void*>(GetProcAddress(library, "GetThreadDescription")));
  ASSERT_NE(get, nullptr);
  std::wstring name;
  std::thread([&] {
    platform::name_this_thread("fifteen letters");
    PWSTR text = nullptr;
    if (SUCCEEDED(get(GetCurrentThread(), &text)) && text != nullptr)
      name = text;
    LocalFree(text);
  }).join();
  EXPECT_EQ(name, L"fifteen letters");
}

TEST(Win32ThreadName, IsToldOfAnyThreadOfThisProcess) {
  DWORD id = 0;
  std::thread([&] {
    id = GetCurrentThreadId();
    platform::name_this_thread("first");
    platform::name_this_thread("second");
  }).join();
  EXPECT_STREQ(platform::name_of_thread(id), "second");
  EXPECT_EQ(platform::name_of_thread(0xfffffffe), nullptr);
}

// The numbers of threads that ended are used again, or others take their places.
TEST(Win32ThreadName, ThereIsRoomForEachThatRuns) {
  for (int count = 0; count < 200; ++count) {
    std::thread([] {
      platform::name_this_thread("one of many");
      EXPECT_STREQ(platform::name_of_thread(GetCurrentThreadId()), "one of many");
    }).join();
  }
}

} // namespace
} // namespace lumotune::contract
