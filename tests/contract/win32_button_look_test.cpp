// SPDX-License-Identifier: LGPL-2.1-or-later
// The looks of the main window's picture buttons, as the screen has them.
#include "base/lumotune_form.h"
#include "tests/contract/fixture_win32.h"
#include "tests/support/gif_file.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::contract {
namespace {

constexpr COLORREF ground = RGB(0x16, 0x22, 0x2c);

struct Win32ButtonLook : testing::Test {
  Backend b;
  base::LumotuneForm form{b.window};

  Win32ButtonLook() {
    SetCursorPos(900, 700);
    picture(L"form", 400, 200, 0x16222c);
    picture(L"end", 24, 24, 0x3ddbb4);
    for (platform::PictureBox* each : {&form.Control_Play, &form.LTDisplay, &form.TrayIcon})
      each->set_visible(false);
    b.window.move(1500, 1500);
    b.window.resize(6000, 3000);
    EXPECT_TRUE(b.window.load_background(path(L"form")));
    EXPECT_TRUE(form.LineMenu_End.load_picture(path(L"end")));
    EXPECT_TRUE(form.LineMenu_Min.load_picture(path(L"end")));
    form.LineMenu_End.move(1500, 600);
    form.LineMenu_Min.move(3000, 600);
    b.window.set_visible(true);
    b.pass(300); // a window manager has its say first
  }
  [[nodiscard]] std::wstring path(const std::wstring& name) const { return b.folder + L"\\" + name + L".gif"; }
  void picture(const std::wstring& name, int width, int height, std::uint32_t rgb) {
    EXPECT_TRUE(b.files.replace(path(name), test::gif_of(width, height, rgb)));
  }
  [[nodiscard]] COLORREF middle(const platform::Control& control) const {
    RECT area{};
    const HWND window = b.window.handle_of(control);
    GetClientRect(window, &area);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, area.right / 2, area.bottom / 2);
    ReleaseDC(window, dc);
    return colour;
  }
  void point_at(const platform::Control& control) const {
    RECT area{};
    GetWindowRect(b.window.handle_of(control), &area);
    SetCursorPos((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  }
};

constexpr COLORREF accent = RGB(0x3d, 0xdb, 0xb4);

TEST_F(Win32ButtonLook, UnderThePointerItIsLighterAndTheOneThatClosesIsRed) {
  EXPECT_EQ(middle(form.LineMenu_Min), accent);
  point_at(form.LineMenu_Min);
  EXPECT_TRUE(b.until([&] { return GetGValue(middle(form.LineMenu_Min)) > GetGValue(accent); }));
  EXPECT_EQ(middle(form.LineMenu_End), accent);
  point_at(form.LineMenu_End);
  EXPECT_TRUE(b.until([&] { return GetRValue(middle(form.LineMenu_End)) > GetGValue(middle(form.LineMenu_End)); }));
  EXPECT_TRUE(b.until([&] { return middle(form.LineMenu_Min) == accent; })) << "the pointer has left it";
  SetCursorPos(900, 700);
  EXPECT_TRUE(b.until([&] { return middle(form.LineMenu_End) == accent; }));
}

TEST_F(Win32ButtonLook, PressedItIsDarkerAndLetGoItIsNot) {
  const HWND window = b.window.handle_of(form.LineMenu_Min);
  SendMessageW(window, BM_SETSTATE, TRUE, 0);
  EXPECT_LT(GetGValue(middle(form.LineMenu_Min)), GetGValue(accent));
  SendMessageW(window, BM_SETSTATE, FALSE, 0);
  EXPECT_EQ(middle(form.LineMenu_Min), accent);
}

TEST_F(Win32ButtonLook, DisabledItIsGreyAndFaint) {
  form.LineMenu_Min.set_enabled(false);
  const COLORREF colour = middle(form.LineMenu_Min);
  EXPECT_LT(GetGValue(colour), 140);
  EXPECT_LT(GetGValue(colour) - GetRValue(colour), 20);
  EXPECT_NE(colour, ground);
}

TEST_F(Win32ButtonLook, ANeutralOneIsGreyAndCanStillBePressed) {
  int clicks = 0;
  form.LineMenu_Min.on_click = [&] { ++clicks; };
  picture(L"red", 24, 24, 0xff5050);
  ASSERT_TRUE(form.LineMenu_Min.load_picture(path(L"red")));
  EXPECT_EQ(middle(form.LineMenu_Min), RGB(0xff, 0x50, 0x50));
  form.LineMenu_Min.set_neutral(true);
  const COLORREF colour = middle(form.LineMenu_Min);
  EXPECT_EQ(GetRValue(colour), GetBValue(colour));
  EXPECT_GT(GetGValue(colour), 100) << "not faint";
  b.press(form.LineMenu_Min);
  EXPECT_TRUE(b.until([&] { return clicks == 1; }));
}

TEST_F(Win32ButtonLook, TheNeedleLiesOverTheDisplayAtItsPlaceInTheWindow) {
  picture(L"display", 40, 24, 0x0c141a);
  ASSERT_TRUE(form.LTDisplay.load_picture(path(L"display")));
  form.LTDisplay.move(1500, 1200);
  form.LTDisplay.set_visible(true);
  EXPECT_EQ(middle(form.LTDisplay), RGB(0x0c, 0x14, 0x1a));
  form.LTDisplay.set_needle(platform::Needle{1800, 1200, 360, platform::Colour{0x0000ff}});
  EXPECT_EQ(middle(form.LTDisplay), RGB(0xff, 0, 0));
  form.LTDisplay.set_needle(platform::Needle{1600, 1200, 360, platform::Colour{0x0000ff}});
  EXPECT_EQ(middle(form.LTDisplay), RGB(0x0c, 0x14, 0x1a));
  form.LTDisplay.set_needle(std::nullopt);
  EXPECT_EQ(middle(form.LTDisplay), RGB(0x0c, 0x14, 0x1a));
}

// The quiet ground of the selected row, and the accent at its edge.
TEST_F(Win32ButtonLook, TheSelectedRowIsQuietWithAnEdgeInTheAccent) {
  auto& list = form.Control_List;
  list.move(300, 1200);
  list.resize(3000, 900);
  list.set_colours(platform::Colour{0x000000}, platform::Colour{0xffffff});
  list.set_accent(platform::Colour{0x0000ff});
  list.set_items({L"Jedna  (128kbps)", L"Dvě"});
  list.select(0);
  b.loop.run_pending();
  const auto pixel = [&](int x, int y) {
    const HWND window = b.window.handle_of(list);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
  };
  EXPECT_EQ(pixel(2, 10), RGB(0xff, 0, 0)) << "beside the ring of the keyboard";
  EXPECT_EQ(pixel(100, 2), RGB(36, 36, 36));
  EXPECT_EQ(pixel(1, 30), RGB(0, 0, 0)) << "the row below";
  EXPECT_EQ(pixel(100, 22), RGB(0, 0, 0));
}

TEST_F(Win32ButtonLook, APictureOfTwiceTheSizeIsTakenWhereThereAreMorePixels) {
  picture(L"end@2x", 48, 48, 0xff8000);
  picture(L"form@2x", 800, 400, 0x202020);
  ASSERT_TRUE(form.LineMenu_Min.load_picture(path(L"end")));
  ASSERT_TRUE(b.window.load_background(path(L"form")));
  EXPECT_EQ(middle(form.LineMenu_Min), accent) << "at 96 dots an inch the file that was always there";
  RECT wished{100, 100, 900, 500};
  for (const WORD dpi : {WORD{144}, WORD{192}, WORD{288}}) {
    SendMessageW(b.window.handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&wished));
    EXPECT_EQ(middle(form.LineMenu_Min), RGB(0xff, 0x80, 0)) << dpi;
    EXPECT_EQ(form.LineMenu_Min.rect().width, 360) << "its size is the first one's";
  }
  picture(L"end@2x", 47, 48, 0x0000ff);
  ASSERT_TRUE(form.LineMenu_Min.load_picture(path(L"end")));
  EXPECT_EQ(middle(form.LineMenu_Min), accent) << "one that has not twice the size is none";
}

} // namespace
} // namespace lumotune::contract
