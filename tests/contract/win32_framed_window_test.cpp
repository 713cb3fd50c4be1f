// SPDX-License-Identifier: LGPL-2.1-or-later
// What only the real framed window has: classes, properties, keys, the system's messages about size and resolution.
#include "tests/contract/win32_framed.h"

#include <utility>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::LabelKind;
using platform::PictureKind;

struct Win32FramedWindowTest : Win32Framed {
  static LONG_PTR style(HWND control) { return GetWindowLongPtrW(control, GWL_STYLE); }
};

std::wstring class_of(HWND control) {
  wchar_t name[64];
  GetClassNameW(control, name, 64);
  return name;
}

TEST_F(Win32FramedWindowTest, IsAnOrdinaryWindowOfTheDesktop) {
  EXPECT_EQ(style(form()) & WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW);
  EXPECT_EQ(GetWindow(form(), GW_OWNER), nullptr);
  EXPECT_EQ(GetWindowLongPtrW(form(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
  EXPECT_NE(GetPropW(form(), L"ListRadios.Form"), nullptr);
  EXPECT_EQ(GetPropW(b.window.handle(), L"ListRadios.Form"), nullptr);
  EXPECT_NE(GetPropW(b.window.handle(), L"Lumotune.Form"), nullptr);
}

TEST_F(Win32FramedWindowTest, EveryControlIsAChildOfASystemClassWithItsProperty) {
  const std::vector<std::pair<const platform::Control*, std::wstring>> controls = {
      {&window->make_tree(L"TreeView1"), L"SysTreeView32"},
      {&window->make_list_view(L"ListView1"), L"SysListView32"},
      {&window->make_label(L"Label2", LabelKind::text, {}), L"Static"},
      {&window->make_button(L"Command1"), L"Button"},
      {&window->make_picture(L"Image3", PictureKind::button), L"Button"},
      {&window->make_text_box(L"Text1"), L"Edit"},
      {&window->make_text_entry(L"Filter"), L"Edit"},
      {&window->make_progress(L"Progress"), L"msctls_progress32"},
      {&window->make_frame(L"Frame1"), L"Button"}};
  for (const auto& [control, name] : controls) {
    EXPECT_EQ(class_of(handle(*control)), name);
    EXPECT_EQ(GetParent(handle(*control)), form());
    EXPECT_EQ(GetPropW(handle(*control), (L"ListRadios." + control->name()).c_str()), reinterpret_cast<HANDLE>(1));
  }
}

TEST_F(Win32FramedWindowTest, AnAmpersandOnAButtonIsALetter) {
  auto& button = window->make_button(L"Command1");
  button.set_text(L"Najít & obnovit");
  wchar_t text[64] = {};
  GetWindowTextW(handle(button), text, 64);
  EXPECT_STREQ(text, L"Najít && obnovit");
  EXPECT_EQ(button.text(), L"Najít & obnovit");
}

TEST_F(Win32FramedWindowTest, ClosingIsOnlyTold) {
  int closed = 0;
  window->on_close = [&] { ++closed; };
  show();
  SendMessageW(form(), WM_CLOSE, 0, 0);
  SendMessageW(form(), WM_SYSCOMMAND, SC_CLOSE, 0);
  EXPECT_EQ(closed, 2);
  EXPECT_TRUE(window->visible());
  window->on_close = [] { throw 1; };
  SendMessageW(form(), WM_CLOSE, 0, 0);
}

TEST_F(Win32FramedWindowTest, TheUserCannotMakeItTooSmall) {
  window->set_minimum(6000, 4500);
  MINMAXINFO limits{};
  SendMessageW(form(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.x, 400);
  EXPECT_EQ(limits.ptMinTrackSize.y, 300);
}

TEST_F(Win32FramedWindowTest, ALargerSizeStaysOnTheMonitor) {
  show();
  const RECT room = [] {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
  }();
  SetWindowPos(form(), nullptr, room.right - 300, room.bottom - 200, 300, 200, SWP_NOZORDER);
  window->resize(9000, 6000);
  RECT place{};
  EXPECT_TRUE(b.until([&] { return GetWindowRect(form(), &place) != 0 && place.right - place.left == 600; }));
  EXPECT_LE(place.right, room.right);
  EXPECT_LE(place.bottom, room.bottom);
  window->resize(2000000000, 2000000000);
  b.pass(100);
  GetWindowRect(form(), &place);
  EXPECT_LE(place.right - place.left, room.right - room.left);
}

TEST_F(Win32FramedWindowTest, AMaximisedWindowTakesItsSizeWhenItComesBack) {
  window->resize(6000, 4500);
  show();
  b.maximize(*window);
  window->resize(7500, 5250);
  b.pass(Backend::window_manager_ms);
  EXPECT_NE(IsZoomed(form()), 0);
  EXPECT_EQ(window->rect().width, 7500);
  b.restore(*window);
  EXPECT_TRUE(b.until([this] { return window->rect().width == 7500 && window->rect().height == 5250; }));
}

TEST_F(Win32FramedWindowTest, MinimisedItComesBackWhenShown) {
  show();
  b.minimize(*window);
  EXPECT_TRUE(window->minimized());
  window->set_visible(true);
  EXPECT_TRUE(b.until([&] { return !window->minimized(); }));
  EXPECT_TRUE(window->visible());
}

TEST_F(Win32FramedWindowTest, AnotherResolutionScalesEverythingAndIsTold) {
  auto& label = window->make_label(L"Label1", LabelKind::text, {});
  auto& list = window->make_list_view(L"ListView1");
  list.add_column(L"Name", L"Název rádia", 2000);
  place(label, 300, 600, 1500, 300);
  show();
  int told = 0;
  window->on_resize = [&] { ++told; };
  RECT wished{10, 10, 1010, 710};
  SendMessageW(form(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wished));
  EXPECT_GE(told, 1);
  RECT area{};
  GetClientRect(handle(label), &area);
  EXPECT_EQ(area.right, 200);
  EXPECT_EQ(area.bottom, 40);
  EXPECT_EQ(label.rect(), (platform::TwipsRect{300, 600, 1500, 300}));
  EXPECT_EQ(SendMessageW(handle(list), LVM_GETCOLUMNWIDTH, 0, 0), 2 * 133);
  EXPECT_EQ(window->rect().width, 7500);
  GetClientRect(form(), &area);
  EXPECT_EQ(window->client_width(), MulDiv(area.right, 1440, 192));
}

TEST_F(Win32FramedWindowTest, ControlsAreInPlaceWhenTheWindowComes) {
  auto& label = window->make_label(L"Label1", LabelKind::text, {});
  auto& hidden = window->make_label(L"Label2", LabelKind::text, {});
  place(label, 300, 600, 1500, 300);
  place(hidden, 300, 600, 1500, 300);
  hidden.set_visible(false);
  window->set_visible(true);
  RECT area{};
  GetClientRect(handle(label), &area);
  EXPECT_EQ(area.right, 100);
  EXPECT_NE(style(handle(label)) & WS_VISIBLE, 0);
  EXPECT_EQ(style(handle(hidden)) & WS_VISIBLE, 0);
}

// Tree, list, link, text box, button, picture button: in the order of making, and round.
TEST_F(Win32FramedWindowTest, TabGoesInTheOrderOfMaking) {
  const HWND stops[] = {handle(window->make_tree(L"TreeView1")),
                        handle(window->make_list_view(L"ListView1")),
                        handle(window->make_label(L"Label4", LabelKind::link, {})),
                        handle(window->make_text_box(L"Text1")),
                        handle(window->make_button(L"Command1")),
                        handle(window->make_picture(L"Image3", PictureKind::button))};
  (void)window->make_label(L"Label1", LabelKind::text, {});
  (void)window->make_progress(L"Progress");
  (void)window->make_frame(L"Frame1");
  show();
  SetFocus(form());
  EXPECT_EQ(GetFocus(), stops[0]) << "the window hands the keyboard on";
  for (std::size_t i = 1; i <= std::size(stops); ++i) {
    key(VK_TAB);
    EXPECT_EQ(GetFocus(), stops[i % std::size(stops)]) << i;
  }
}

TEST_F(Win32FramedWindowTest, ArrowsGoRoundAmongLinksAndButtonsOnly) {
  (void)window->make_tree(L"TreeView1");
  auto& first = window->make_label(L"Label4", LabelKind::link, {});
  (void)window->make_label(L"Label8", LabelKind::text, {});
  auto& hidden = window->make_label(L"Label9", LabelKind::link, {});
  auto& last = window->make_button(L"Command1");
  hidden.set_visible(false);
  show();
  SetFocus(handle(first));
  key(VK_DOWN);
  EXPECT_EQ(GetFocus(), handle(last));
  key(VK_RIGHT);
  EXPECT_EQ(GetFocus(), handle(first));
  key(VK_UP);
  EXPECT_EQ(GetFocus(), handle(last));
}

TEST_F(Win32FramedWindowTest, EnterAndSpacePressLinksAndButtons) {
  auto& link = window->make_label(L"Label7", LabelKind::link, {});
  auto& button = window->make_button(L"Command1");
  int links = 0;
  int buttons = 0;
  link.on_click = [&] { ++links; };
  button.on_click = [&] { ++buttons; };
  show();
  SetFocus(handle(link));
  key(VK_RETURN);
  key(VK_SPACE);
  SetFocus(handle(button));
  key(VK_RETURN);
  key(VK_SPACE);
  EXPECT_EQ(links, 2);
  EXPECT_EQ(buttons, 2);
}

TEST_F(Win32FramedWindowTest, EscapeDoesNothing) {
  auto& box = window->make_text_box(L"Text1");
  auto& tree = window->make_tree(L"TreeView1");
  int closed = 0;
  window->on_close = [&] { ++closed; };
  show();
  for (const platform::Control* control :
       {static_cast<platform::Control*>(&box), static_cast<platform::Control*>(&tree)}) {
    SetFocus(handle(*control));
    key(VK_ESCAPE);
  }
  SendMessageW(handle(box), WM_KEYDOWN, VK_ESCAPE, 1);
  b.loop.run_pending();
  EXPECT_EQ(closed, 0);
  EXPECT_TRUE(window->visible());
}

TEST_F(Win32FramedWindowTest, TheKeyboardLeavesAControlThatGoesOutOfReach) {
  auto& tree = window->make_tree(L"TreeView1");
  auto& button = window->make_button(L"Command1");
  auto& link = window->make_label(L"Label7", LabelKind::link, {});
  button.on_click = [&] { button.set_enabled(false); };
  show();
  SetFocus(handle(button));
  key(VK_RETURN);
  EXPECT_EQ(GetFocus(), handle(link));
  link.set_visible(false);
  EXPECT_EQ(GetFocus(), handle(tree));
}

TEST_F(Win32FramedWindowTest, TheKeyboardComesBackToWhereItWas) {
  (void)window->make_tree(L"TreeView1");
  auto& list = window->make_list_view(L"ListView1");
  show();
  SetFocus(handle(list));
  SendMessageW(form(), WM_ACTIVATE, WA_INACTIVE, 0);
  SetFocus(nullptr);
  SetFocus(form());
  EXPECT_EQ(GetFocus(), handle(list));
}

TEST_F(Win32FramedWindowTest, AKeyOfOneWindowMayMakeAndEndOthers) {
  std::unique_ptr<platform::FramedWindow> other = b.framed_windows.make(L"Druhe");
  auto& button = window->make_button(L"Command1");
  button.on_click = [&] {
    other.reset();
    for (int i = 0; i < 10; ++i)
      (void)b.framed_windows.make(L"Treti");
    other = b.framed_windows.make(L"Ctvrte");
  };
  show();
  SetFocus(handle(button));
  key(VK_RETURN);
  EXPECT_NE(other, nullptr);
  key(VK_TAB);
  SUCCEED();
}

} // namespace
} // namespace lumotune::contract
