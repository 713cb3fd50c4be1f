// SPDX-License-Identifier: LGPL-2.1-or-later
// The real main window on its screen: place, layer, resolution, colours and fonts of the moment.
#include "base/lumotune_form.h"
#include "platform/win32/dpi.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

struct Win32WindowLook : testing::Test {
  Backend b;
  base::LumotuneForm form{b.window};
  [[nodiscard]] HWND handle(const platform::Control& control) const { return b.window.handle_of(control); }
};

TEST_F(Win32WindowLook, AChangedResolutionScalesEverything) {
  b.window.set_visible(true); // until then controls only note their place
  form.Control_Play.move(300, 600);
  form.Control_Play.resize(450, 900);
  b.window.resize(6000, 3000);
  RECT wished{100, 100, 900, 500};
  SendMessageW(b.window.handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wished));
  RECT place{};
  GetClientRect(handle(form.Control_Play), &place);
  EXPECT_EQ(place.right, 60);
  EXPECT_EQ(place.bottom, 120);
  GetClientRect(b.window.handle(), &place);
  EXPECT_EQ(place.right, 800);
  EXPECT_EQ(place.bottom, 400);
  EXPECT_EQ(form.Control_Play.rect(), (platform::TwipsRect{300, 600, 450, 900}));
  EXPECT_DOUBLE_EQ(b.window.twips_per_pixel_x(), 7.5);
}

TEST_F(Win32WindowLook, ABackgroundIsDrawnInItsOwnSizeOverTheWindowsColour) {
  // Two by three pixels, red, the first of them clear.
  const std::string gif = std::string("GIF89a\x02\0\x03\0\x80\0\0\xff\xff\xff\xff\0\0!\xf9\x04\x01\0\0\0\0", 27) +
                          std::string(",\0\0\0\0\x02\0\x03\0\0\x02\x03\x44\x7e\x05\0;", 17);
  const std::wstring path = b.folder + L"\\form.gif";
  ASSERT_TRUE(b.files.replace(path, gif));
  for (platform::PictureBox* picture : {&form.Control_Play, &form.LTDisplay})
    picture->set_visible(false);
  b.window.resize(1500, 1500);
  ASSERT_TRUE(b.window.load_background(path));
  b.window.set_visible(true);
  b.loop.run_pending();
  const auto pixel = [&](int x, int y) {
    RedrawWindow(b.window.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC dc = GetDC(b.window.handle());
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(b.window.handle(), dc);
    return colour;
  };
  EXPECT_EQ(pixel(50, 50), GetSysColor(COLOR_3DFACE)) << "past the picture";
  EXPECT_EQ(pixel(3, 1), GetSysColor(COLOR_3DFACE));
  EXPECT_EQ(pixel(1, 4), GetSysColor(COLOR_3DFACE));
  EXPECT_EQ(pixel(0, 0), GetSysColor(COLOR_3DFACE)) << "through the clear pixel";
  EXPECT_EQ(pixel(1, 1), RGB(255, 0, 0));
  // What was drawn there before does not stay in a clear place.
  const HDC dc = GetDC(b.window.handle());
  SetPixel(dc, 0, 0, RGB(0, 255, 0));
  ReleaseDC(b.window.handle(), dc);
  EXPECT_EQ(pixel(0, 0), GetSysColor(COLOR_3DFACE));
  RECT wished{100, 100, 300, 300};
  SendMessageW(b.window.handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wished));
  EXPECT_EQ(pixel(3, 5), RGB(255, 0, 0)) << "twice the size at twice the resolution";
  EXPECT_EQ(pixel(4, 6), GetSysColor(COLOR_3DFACE));
}

// The user chooses other colours for the system's windows.
class SystemColour {
public:
  SystemColour(int index, COLORREF wanted) : index_(index), before_(GetSysColor(index)) {
    SetSysColors(1, &index_, &wanted);
  }
  SystemColour(const SystemColour&) = delete;
  SystemColour& operator=(const SystemColour&) = delete;
  ~SystemColour() { SetSysColors(1, &index_, &before_); }

private:
  int index_;
  COLORREF before_;
};

TEST_F(Win32WindowLook, ASystemsColourIsTheOneOfTheMoment) {
  const auto system = [](std::uint32_t index) { return platform::Colour{platform::system_colour_flag | index}; };
  b.window.resize(6000, 3000);
  auto& list = form.Control_List;
  list.resize(3000, 1500);
  list.set_colours(system(COLOR_WINDOW), system(COLOR_WINDOWTEXT));
  b.window.set_visible(true);
  b.pass(200);
  const auto ground = [&] {
    const HDC dc = GetDC(handle(list));
    const COLORREF colour = GetPixel(dc, 100, 80);
    ReleaseDC(handle(list), dc);
    return colour;
  };
  EXPECT_EQ(ground(), GetSysColor(COLOR_WINDOW));
  const SystemColour other(COLOR_WINDOW, RGB(10, 20, 30));
  b.pass(200);
  EXPECT_EQ(ground(), RGB(10, 20, 30));
}

TEST_F(Win32WindowLook, AScreenThatChangesBringsTheWindowIntoViewAndAToolsMoveStays) {
  b.window.resize(3000, 3000);
  b.window.move(1500, 1500);
  b.window.set_visible(true);
  const HWND window = b.window.handle();
  std::thread tool([&] { SetWindowPos(window, nullptr, 300, 250, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE); });
  RECT place{};
  EXPECT_TRUE(b.until([&] { return GetWindowRect(window, &place) != 0 && place.left == 300; }));
  tool.join();
  b.pass(700); // longer than the window goes back to its place
  GetWindowRect(window, &place);
  EXPECT_EQ(place.left, 300);
  EXPECT_EQ(place.top, 250);
  EXPECT_EQ(b.window.rect().left, 4500);
  SendMessageW(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 800));
  EXPECT_EQ(b.window.rect().left, 4500) << "it can be seen where it is";
  b.window.move((GetSystemMetrics(SM_CXSCREEN) - 40) * 15, 3750);
  SendMessageW(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 800));
  EXPECT_LE(b.window.rect().left + 3000, GetSystemMetrics(SM_CXSCREEN) * 15) << "a corner in sight is not enough";
  b.window.move(90000, 4500);
  SendMessageW(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 800));
  EXPECT_TRUE(b.window.on_some_monitor(b.window.rect().left, b.window.rect().top));
  EXPECT_EQ(b.window.rect().top, 4500);
  b.pass(700); // a window manager that is busy answers late
  SetWindowPos(window, nullptr, GetSystemMetrics(SM_CXSCREEN) - 40, 250, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_TRUE(
      b.until([&] { return GetWindowRect(window, &place) != 0 && place.right <= GetSystemMetrics(SM_CXSCREEN); }));
}

TEST_F(Win32WindowLook, ToolsMayMoveTheWindowWhileItIsHidden) {
  b.window.resize(3000, 3000);
  b.window.set_visible(true);
  b.pass(500);
  b.window.set_visible(false);
  SetWindowPos(b.window.handle(), nullptr, 310, 260, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(b.window.rect().left, 4650);
  b.window.set_visible(true);
  b.pass(700);
  RECT place{};
  GetWindowRect(b.window.handle(), &place);
  EXPECT_EQ(place.left, 310);
  EXPECT_EQ(place.top, 260);
}

TEST_F(Win32WindowLook, OtherFontsOfTheSystemAreTakenAtOnce) {
  b.window.set_visible(true);
  b.loop.run_pending();
  const HWND control = handle(form.InfoName);
  const auto font = [&] { return SendMessageW(control, WM_GETFONT, 0, 0); };
  for (const auto& [message, w] : {std::pair<UINT, WPARAM>(WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS),
                                   std::pair<UINT, WPARAM>(WM_THEMECHANGED, 0)}) {
    // The font is a new one even where it looks alike; the old one must not be used any more.
    const auto before = reinterpret_cast<HGDIOBJ>(font());
    ASSERT_EQ(GetObjectType(before), static_cast<DWORD>(OBJ_FONT));
    LOGFONTW described{};
    GetObjectW(before, sizeof described, &described);
    SendMessageW(b.window.handle(), message, w, 0);
    EXPECT_EQ(GetObjectType(reinterpret_cast<HGDIOBJ>(font())), static_cast<DWORD>(OBJ_FONT));
    EXPECT_EQ(GetUpdateRect(b.window.handle(), nullptr, FALSE), TRUE) << "everything is drawn anew";
    b.loop.run_pending();
  }
}

TEST_F(Win32WindowLook, ATopmostWindowIsInThatLayerOnceItIsShown) {
  EXPECT_TRUE(b.window.set_topmost(true));
  b.window.set_visible(true);
  const auto on_top = [this] { return (GetWindowLongPtrW(b.window.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
  EXPECT_TRUE(b.until(on_top));
  EXPECT_TRUE(b.window.set_topmost(false));
  EXPECT_TRUE(b.until([&] { return !on_top(); }));
}

TEST(Dpi, ConvertsThereAndBack) {
  using platform::win32::pixels;
  using platform::win32::twips;
  for (const int value : {0, 15, 6300, -3000}) {
    EXPECT_EQ(twips(pixels(value, 96), 96), value);
    EXPECT_EQ(twips(pixels(value, 192), 192), value);
  }
  EXPECT_EQ(pixels(6300, 144), 630);
}

} // namespace
} // namespace lumotune::contract
