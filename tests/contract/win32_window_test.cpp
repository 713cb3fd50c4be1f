// SPDX-License-Identifier: LGPL-2.1-or-later
// What only the real backend has: window classes, properties, keys, the system's own messages.
#include "base/lumotune_form.h"
#include "platform/win32/dpi.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <thread>
#include <vector>

namespace lumotune::contract {
namespace {

std::wstring class_of(HWND window) {
  wchar_t name[64];
  GetClassNameW(window, name, 64);
  return name;
}

std::wstring text_of(HWND window) {
  wchar_t text[256];
  GetWindowTextW(window, text, 256);
  return text;
}

struct Win32Only : testing::Test {
  Backend b;
  base::LumotuneForm form{b.window};
  [[nodiscard]] HWND handle(const platform::Control& control) const { return b.window.handle_of(control); }
  void key(HWND target, WPARAM code) {
    PostMessageW(target, WM_KEYDOWN, code, 1);
    PostMessageW(target, WM_KEYUP, code, static_cast<LPARAM>(0xc0000001));
    b.loop.run_pending();
  }
};

TEST_F(Win32Only, EveryControlIsAChildOfAStandardClassWithItsProperty) {
  const std::vector<std::pair<const platform::Control*, std::wstring>> controls = {
      {&form.Control_Play, L"Button"}, {&form.Control_List, L"ListBox"}, {&form.InfoNaladit, L"Static"},
      {&form.InfoName, L"Static"},     {&form.InfoTime, L"Static"},      {&form.InfoStatus, L"Static"},
      {&form.LTDisplay, L"Static"},    {&form.TrayIcon, L"Static"},      {&form.PlayTL, L"Button"},
      {&form.Orbwww, L"Button"},       {&form.LineMenu_End, L"Button"},  {&form.Control_Volume, L"Button"}};
  for (const auto& [control, name] : controls) {
    EXPECT_EQ(class_of(handle(*control)), name);
    EXPECT_EQ(GetParent(handle(*control)), b.window.handle());
    EXPECT_EQ(GetPropW(handle(*control), (L"Lumotune." + control->name()).c_str()), reinterpret_cast<HANDLE>(1));
  }
  EXPECT_NE(GetPropW(b.window.handle(), L"Lumotune.Form"), nullptr);
}

TEST_F(Win32Only, PictureButtonsHaveCzechNames) {
  EXPECT_EQ(text_of(handle(form.Control_Play)), L"Zapnout");
  EXPECT_EQ(text_of(handle(form.Control_Sat)), L"Naladit rádio");
  EXPECT_EQ(text_of(handle(form.LineMenu_OnTop)), L"Vždy nahoře");
}

TEST_F(Win32Only, ListItemsCanBeReadFromOutside) {
  form.Control_List.add(L"Žluťoučký kůň");
  wchar_t text[64] = {};
  SendMessageW(handle(form.Control_List), LB_GETTEXT, 0, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"Žluťoučký kůň");
}

TEST_F(Win32Only, TabSpaceAndEnterReachTheButtons) {
  b.window.resize(6000, 3000);
  b.window.set_visible(true);
  for (platform::Control* control :
       {static_cast<platform::Control*>(&form.Control_Play), static_cast<platform::Control*>(&form.InfoNaladit)}) {
    control->resize(600, 300);
    control->set_enabled(true);
  }
  b.loop.run_pending();
  int plays = 0;
  int links = 0;
  form.Control_Play.on_click = [&] { ++plays; };
  form.InfoNaladit.on_click = [&] { ++links; };
  form.Control_List.move(0, 600);
  form.InfoNaladit.move(0, 1200);
  SetFocus(handle(form.Control_Play));
  key(handle(form.Control_Play), VK_SPACE);
  EXPECT_EQ(plays, 1);
  key(handle(form.Control_Play), VK_RETURN);
  EXPECT_EQ(plays, 2);
  key(handle(form.Control_Play), VK_TAB);
  EXPECT_EQ(GetFocus(), handle(form.Control_List));
  key(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), handle(form.InfoNaladit));
  key(GetFocus(), VK_SPACE);
  EXPECT_EQ(links, 1);
  key(GetFocus(), VK_RETURN);
  EXPECT_EQ(links, 2);
}

TEST_F(Win32Only, ADisabledButtonIsNotPressedByEnter) {
  b.window.set_visible(true);
  b.loop.run_pending();
  int plays = 0;
  form.Control_Play.on_click = [&] { ++plays; };
  SetFocus(handle(form.Control_Play));
  form.Control_Play.set_enabled(false);
  key(handle(form.Control_Play), VK_RETURN);
  EXPECT_EQ(plays, 0);
}

TEST_F(Win32Only, TrayEventsArriveAsMouseMovesWithTheMessageInTheCoordinate) {
  std::vector<long> messages;
  form.TrayIcon.on_mouse_move = [&](const platform::MouseEvent& event) {
    messages.push_back(std::lround(event.x / b.window.twips_per_pixel_x()));
  };
  for (const LPARAM message : {513, 514, 517})
    SendMessageW(handle(form.TrayIcon), WM_MOUSEMOVE, 1, message);
  EXPECT_EQ(messages, (std::vector<long>{513, 514, 517}));
}

// A shell that starts anew knows no icon: ours is taken away behind the program's back.
TEST_F(Win32Only, TheTrayAnswersTheShellsRestart) {
  platform::win32::Win32Tray tray(b.window, form.TrayIcon);
  NOTIFYICONDATAW icon{};
  icon.cbSize = NOTIFYICONDATAW_V1_SIZE;
  icon.hWnd = b.window.handle_of(form.TrayIcon);
  icon.uID = 1;
  const auto there = [&] { return Shell_NotifyIconW(NIM_MODIFY, &icon) != 0; };
  const auto restart = [&] {
    Shell_NotifyIconW(NIM_DELETE, &icon);
    ASSERT_FALSE(there());
    SendMessageW(b.window.handle(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  };
  tray.add(L"Lumotune");
  ASSERT_TRUE(there());
  restart();
  EXPECT_TRUE(there());
  tray.remove();
  EXPECT_FALSE(there());
  restart();
  EXPECT_FALSE(there()) << "an icon that was removed stays away";
}

TEST_F(Win32Only, CloseAndSessionEndAreOnlyForwarded) {
  int closed = 0;
  int ended = 0;
  b.window.on_close = [&] { ++closed; };
  b.window.on_session_end = [&] { ++ended; };
  SendMessageW(b.window.handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(SendMessageW(b.window.handle(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(b.window.handle(), WM_ENDSESSION, FALSE, 0);
  EXPECT_EQ(ended, 0);
  SendMessageW(b.window.handle(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(ended, 1);
  EXPECT_NE(IsWindow(b.window.handle()), 0);
}

TEST_F(Win32Only, SleepAndWakingAreForwarded) {
  std::wstring order;
  b.window.on_suspend = [&] { order += L"s"; };
  b.window.on_resume = [&] { order += L"r"; };
  SendMessageW(b.window.handle(), WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
  SendMessageW(b.window.handle(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
  SendMessageW(b.window.handle(), WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, 0);
  EXPECT_EQ(order, L"sr");
}

TEST_F(Win32Only, AHandlerThatThrowsHarmsNothing) {
  b.window.on_close = [] { throw 1; };
  SendMessageW(b.window.handle(), WM_CLOSE, 0, 0);
  int ticks = 0;
  const auto timer = b.loop.make_timer(10, [&] {
    ++ticks;
    throw 2;
  });
  timer->start();
  EXPECT_TRUE(b.until([&] { return ticks == 3; })) << "it ticks on";
}

TEST_F(Win32Only, AChangedResolutionScalesEverything) {
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

TEST_F(Win32Only, ABackgroundIsDrawnInItsOwnSizeOverTheWindowsColour) {
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

// A hook has no place for a pointer of ours.
std::vector<HWND> live_regions_changed;

void CALLBACK note_event(HWINEVENTHOOK /*hook*/, DWORD /*event*/, HWND window, LONG object, LONG /*child*/,
                         DWORD /*thread*/, DWORD /*time*/) {
  if (object == OBJID_CLIENT)
    live_regions_changed.push_back(window);
}

TEST_F(Win32Only, ANoticeIsToldToScreenReaders) {
  live_regions_changed.clear();
  const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, nullptr,
                                             note_event, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  form.InfoStatus.set_text(L"Novinka");
  b.pass(50);
  EXPECT_TRUE(live_regions_changed.empty());
  form.InfoStatus.announce();
  b.pass(50);
  UnhookWinEvent(hook);
  EXPECT_EQ(live_regions_changed, std::vector<HWND>{handle(form.InfoStatus)});
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

TEST_F(Win32Only, ASystemsColourIsTheOneOfTheMoment) {
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

TEST_F(Win32Only, AScreenThatChangesBringsTheWindowIntoViewAndAToolsMoveStays) {
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

TEST_F(Win32Only, ToolsMayMoveTheWindowWhileItIsHidden) {
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

TEST_F(Win32Only, OtherFontsOfTheSystemAreTakenAtOnce) {
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

TEST_F(Win32Only, TheKeyboardIsSeenOnceAKeyWasPressed) {
  b.window.resize(6000, 3000);
  b.window.set_visible(true);
  form.Control_Sat.resize(600, 600);
  form.Control_List.move(600, 0);
  form.Control_List.resize(1500, 1500);
  form.Control_List.set_items({L"jeden"});
  b.window.activate();
  EXPECT_TRUE(b.until([this] { return GetForegroundWindow() == b.window.handle(); }));
  const auto corner = [&](const platform::Control& control) {
    RedrawWindow(handle(control), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC dc = GetDC(handle(control));
    const COLORREF colour = GetPixel(dc, 0, 0);
    ReleaseDC(handle(control), dc);
    return colour;
  };
  const COLORREF ring = RGB(255, 255, 255);
  BOOL always = FALSE; // the user may want to see it always
  SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &always, 0);
  SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, nullptr, 0);
  form.Control_List.set_colours(platform::Colour{0x202020}, platform::Colour{0x808080});
  for (platform::Control* control :
       {static_cast<platform::Control*>(&form.Control_Sat), static_cast<platform::Control*>(&form.Control_List)}) {
    PostMessageW(handle(*control), WM_RBUTTONDOWN, 0, MAKELPARAM(1, 1));
    PostMessageW(handle(*control), WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
    b.loop.run_pending();
    SetFocus(handle(*control));
    EXPECT_NE(corner(*control), ring);
    key(handle(*control), VK_SHIFT);
    EXPECT_EQ(corner(*control), ring) << static_cast<char>(control->name()[8]);
  }
  PostMessageW(handle(form.Control_List), WM_RBUTTONDOWN, 0, MAKELPARAM(1, 1));
  b.loop.run_pending();
  EXPECT_NE(corner(form.Control_List), ring);
  SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, reinterpret_cast<void*>(1), 0);
  EXPECT_EQ(corner(form.Control_List), ring) << "who wants to see it always, does";
  SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, reinterpret_cast<void*>(static_cast<INT_PTR>(always)), 0);
}

TEST_F(Win32Only, ATopmostWindowIsInThatLayerOnceItIsShown) {
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

TEST_F(Win32Only, AMessageFromAnotherThreadIsAnswered) {
  std::string got;
  b.messages.hook([&](const platform::CopyData& data) { got = data.bytes; });
  std::string text = "fmax";
  COPYDATASTRUCT record{1, 4, text.data()};
  LRESULT answer = 0;
  std::thread other(
      [&] { answer = SendMessageA(b.window.handle(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record)); });
  EXPECT_TRUE(b.until([&] { return !got.empty(); }));
  other.join();
  EXPECT_EQ(answer, -1);
  EXPECT_EQ(got, "fmax");
  EXPECT_EQ(SendMessageA(b.window.handle(), WM_COPYDATA, 0, 0), -1) << "no record at all";
}

} // namespace
} // namespace lumotune::contract
