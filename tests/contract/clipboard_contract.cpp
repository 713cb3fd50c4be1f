// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#ifdef _WIN32
#include "platform/win32/clipboard.h"
#else
#include "platform/memory/clipboard.h"
#endif

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace lumotune::contract {
namespace {

#ifdef _WIN32
struct ClipboardBackend : Backend {
  platform::win32::Clipboard clipboard{loop, window.handle()};

  ~ClipboardBackend() { release(); }
  [[nodiscard]] std::wstring pasted() const {
    if (OpenClipboard(nullptr) == 0)
      return L"(held)";
    std::wstring text = L"(none)";
    if (const HANDLE block = GetClipboardData(CF_UNICODETEXT))
      text = static_cast<const wchar_t*>(GlobalLock(block));
    CloseClipboard();
    return text;
  }
  // Another thread's window has it open.
  void hold() {
    holder_ = std::thread([this] {
      const HWND own = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
      (void)OpenClipboard(own);
      held_ = true;
      while (held_)
        Sleep(1);
      CloseClipboard();
      DestroyWindow(own);
    });
    (void)until([this] { return held_.load(); });
  }
  void release() {
    held_ = false;
    if (holder_.joinable())
      holder_.join();
  }

private:
  std::thread holder_;
  std::atomic<bool> held_ = false;
};
#else
struct ClipboardBackend : Backend {
  platform::memory::Clipboard clipboard;

  [[nodiscard]] std::wstring pasted() const { return clipboard.text; }
  void hold() { clipboard.held = true; }
  void release() { clipboard.held = false; }
};
#endif

TEST(ClipboardContract, HoldsTheLastText) {
  ClipboardBackend b;
  EXPECT_TRUE(b.clipboard.set_text(L"Příliš žluťoučký kůň \x2013 \x4e2d"));
  EXPECT_EQ(b.pasted(), L"Příliš žluťoučký kůň \x2013 \x4e2d");
  EXPECT_TRUE(b.clipboard.set_text(std::wstring(500, L'a')));
  EXPECT_EQ(b.pasted(), std::wstring(500, L'a'));
  EXPECT_TRUE(b.clipboard.set_text(std::wstring(L"a\0b", 3)));
  EXPECT_EQ(b.pasted(), L"a");
}

TEST(ClipboardContract, WhileAnotherProgramHoldsItNothingIsChanged) {
  ClipboardBackend b;
  EXPECT_TRUE(b.clipboard.set_text(L"a"));
  b.hold();
  EXPECT_FALSE(b.clipboard.set_text(L"b"));
  b.release();
  EXPECT_EQ(b.pasted(), L"a");
  EXPECT_TRUE(b.clipboard.set_text(L"b"));
  EXPECT_EQ(b.pasted(), L"b");
}

} // namespace
} // namespace lumotune::contract
