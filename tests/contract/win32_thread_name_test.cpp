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

} // namespace
} // namespace lumotune::contract
