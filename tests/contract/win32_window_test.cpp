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
  platform::win32::Tray tray(b.window, form.TrayIcon);
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

TEST_F(Win32Only, TheKeyboardIsSeenOnceAKeyWasPressed) {
  b.window.resize(6000, 3000);
  b.window.set_visible(true);
  form.Control_Sat.resize(600, 600);
  form.Control_List.move(600, 0);
  form.Control_List.resize(1500, 1500);
  form.Control_List.set_items({L"jeden"});
  b.window.activate();
  EXPECT_TRUE(b.until([this] { return GetForegroundWindow() == b.window.handle(); }));
  // A ring follows the shape of a picture: all pixels are compared.
  const auto look = [&](const platform::Control& control) {
    RedrawWindow(handle(control), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    RECT room{};
    GetClientRect(handle(control), &room);
    std::vector<COLORREF> pixels;
    const HDC dc = GetDC(handle(control));
    for (int y = 0; y < room.bottom; ++y)
      for (int x = 0; x < room.right; ++x)
        pixels.push_back(GetPixel(dc, x, y));
    ReleaseDC(handle(control), dc);
    return pixels;
  };
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
    const auto plain = look(*control);
    EXPECT_EQ(look(*control), plain);
    key(handle(*control), VK_SHIFT);
    EXPECT_NE(look(*control), plain) << static_cast<char>(control->name()[8]);
  }
  PostMessageW(handle(form.Control_List), WM_RBUTTONDOWN, 0, MAKELPARAM(1, 1));
  b.loop.run_pending();
  const auto plain = look(form.Control_List);
  SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, reinterpret_cast<void*>(1), 0);
  EXPECT_NE(look(form.Control_List), plain) << "who wants to see it always, does";
  SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, reinterpret_cast<void*>(static_cast<INT_PTR>(always)), 0);
}

// A program of 32 bits under Wine on a system of 64 bits. There user32 itself crashes in translating a WM_COPYDATA
// without a record, before any window procedure is asked: Wine 10's fault, and the only promise of these suites that it
// breaks.
bool under_wines_wow64() {
  BOOL wow64 = FALSE;
  IsWow64Process(GetCurrentProcess(), &wow64);
  return wow64 != FALSE && GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
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
  if (!under_wines_wow64()) {
    EXPECT_EQ(SendMessageA(b.window.handle(), WM_COPYDATA, 0, 0), -1) << "no record at all";
  }
}

} // namespace
} // namespace lumotune::contract
