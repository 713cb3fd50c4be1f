// SPDX-License-Identifier: LGPL-2.1-or-later
// The record of the notification area: its tip in any code page, its icon in the right size.
#include "base/lumotune_form.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumotune::contract {
namespace {

using platform::win32::IconHandle;
using platform::win32::tip_bytes;

constexpr UINT central_europe = 1250;

TEST(TrayTip, IsInTheCodePageOfTheSystem) {
  EXPECT_EQ(tip_bytes(L"Žlutý kůň", central_europe, platform::win32::Tray::max_tip), "\x8elut\xfd k\xf9\xf2");
  EXPECT_EQ(tip_bytes(L"Žlutý kůň", CP_UTF8, platform::win32::Tray::max_tip), "\xc5\xbdlut\xc3\xbd k\xc5\xaf\xc5\x88");
  EXPECT_EQ(tip_bytes(L"", CP_UTF8, platform::win32::Tray::max_tip), "");
}

TEST(TrayTip, IsCutBetweenTwoCharacters) {
  EXPECT_EQ(tip_bytes(std::wstring(100, L'x'), central_europe, 63), std::string(63, 'x'));
  EXPECT_EQ(tip_bytes(std::wstring(100, L'\u010d'), CP_UTF8, 63).size(), 62U);
  EXPECT_EQ(tip_bytes(L"ab\U0001F3B5", CP_UTF8, 5), "ab") << "a pair is one character";
  EXPECT_EQ(tip_bytes(L"ab\U0001F3B5", CP_UTF8, 6).size(), 6U);
}

std::vector<COLORREF> drawn(HICON icon, int side) {
  const platform::win32::MemoryDc dc(CreateCompatibleDC(nullptr));
  const HDC screen = GetDC(nullptr);
  const platform::win32::GdiObject bitmap(CreateCompatibleBitmap(screen, side, side));
  ReleaseDC(nullptr, screen);
  const auto target = static_cast<HDC>(dc.get());
  const HGDIOBJ before = SelectObject(target, bitmap.get());
  const RECT all{0, 0, side, side};
  FillRect(target, &all, GetSysColorBrush(COLOR_WINDOW));
  DrawIconEx(target, 0, 0, icon, side, side, 0, nullptr, DI_NORMAL);
  std::vector<COLORREF> pixels;
  for (int i = 0; i < side * side; ++i)
    pixels.push_back(GetPixel(target, i % side, i / side));
  SelectObject(target, before);
  return pixels;
}

TEST(TrayIconPicture, IsTheOneDrawnForTheSizeOfTheTray) {
  Backend b;
  base::LumotuneForm form(b.window);
  const platform::win32::Tray tray(b.window, form.TrayIcon);
  ICONINFO info{};
  ASSERT_NE(GetIconInfo(tray.icon(), &info), 0);
  const platform::win32::GdiObject colours(info.hbmColor);
  const platform::win32::GdiObject mask(info.hbmMask);
  BITMAP bitmap{};
  GetObjectW(colours.get(), sizeof bitmap, &bitmap);
  const int side = GetSystemMetrics(SM_CXSMICON);
  EXPECT_EQ(bitmap.bmWidth, side);
  EXPECT_EQ(bitmap.bmHeight, side);
  const HINSTANCE program = GetModuleHandleW(nullptr);
  const auto load = [&](int size) {
    return IconHandle(
        static_cast<HICON>(LoadImageW(program, MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
  };
  const IconHandle wanted = load(side);
  ASSERT_NE(wanted, nullptr);
  EXPECT_EQ(drawn(tray.icon(), side), drawn(wanted.get(), side));
  const IconHandle larger = load(2 * side);
  const IconHandle shrunk(static_cast<HICON>(CopyImage(larger.get(), IMAGE_ICON, side, side, 0)));
  EXPECT_NE(drawn(wanted.get(), side), drawn(shrunk.get(), side)) << "the sizes are told apart";
}

} // namespace
} // namespace lumotune::contract
