// SPDX-License-Identifier: LGPL-2.1-or-later
// The mouse button and the media keys, with the system's real input.
#include "platform/win32/user_input.h"
#include "player/favourites.h"
#include "tests/contract/fixture_player.h"
#include "tests/contract/fixture_win32.h"
#include "tests/support/playback_parts.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumotune::contract {
namespace {

struct Win32UserInput : testing::Test {
  Backend b;
  platform::win32::Pointer pointer;
  platform::win32::MediaKeys keys{b.loop, b.window.handle()};
  std::wstring heard;

  void SetUp() override {
    keys.on_play_pause = [this] { heard += L"p"; };
    keys.on_stop = [this] { heard += L"s"; };
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.window.activate();
    EXPECT_TRUE(b.until([this] { return GetForegroundWindow() == b.window.handle(); }));
  }
  // Comes back when a key that was pressed after it has arrived: what it leads to has happened by then.
  void press(BYTE key) {
    for (const BYTE each : {key, static_cast<BYTE>(VK_F24)}) {
      keybd_event(each, 0, 0, 0);
      keybd_event(each, 0, KEYEVENTF_KEYUP, 0);
    }
    bool arrived = false;
    b.loop.set_filter(&arrived, [&](MSG& message) {
      arrived = arrived || (message.message == WM_KEYUP && message.wParam == VK_F24);
      return false;
    });
    EXPECT_TRUE(b.until([&] { return arrived; }));
    b.loop.set_filter(&arrived, {});
  }
  LRESULT command(int number) { return SendMessageW(b.window.handle(), WM_APPCOMMAND, 0, MAKELPARAM(0, number)); }
};

TEST_F(Win32UserInput, AClickHitsWhatLiesUnderThePointer) {
  auto& list = b.window.make_list(L"Control_List");
  list.resize(3000, 2000);
  for (const wchar_t* name : {L"První", L"Druhé", L"Třetí"})
    list.add(name);
  std::vector<platform::MouseButton> pressed;
  list.on_mouse_down = [&](const platform::MouseEvent& event) { pressed.push_back(event.button); };
  RECT row{};
  SendMessageW(b.window.handle_of(list), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  MapWindowPoints(b.window.handle_of(list), nullptr, reinterpret_cast<POINT*>(&row), 2);
  SetCursorPos(row.left + 20, (row.top + row.bottom) / 2);
  b.loop.run_pending();
  pointer.click_left();
  EXPECT_TRUE(b.until([&] { return list.selected() == 1U; }));
  EXPECT_EQ(pressed, std::vector<platform::MouseButton>{platform::MouseButton::left});
}

// A system that is slow to deliver what a program puts into its input.
class LatePointer final : public platform::Pointer {
public:
  explicit LatePointer(platform::EventLoop& loop) : timer_(loop.make_timer(150, [this] { click(); })) {}
  void click_left() override { timer_->start(); }

private:
  void click() {
    timer_->stop();
    pointer_.click_left();
  }
  platform::win32::Pointer pointer_;
  std::unique_ptr<platform::Timer> timer_;
};

TEST_F(Win32UserInput, TheMenuOfAFavouriteIsForTheRowUnderThePointerHoweverLateTheClickComes) {
  const auto player = contract::make_player(b.loop);
  player->set_auto_start(false);
  test::PlaybackParts parts(
      {b.files, b.codec, b.real.machine, b.loop, b.window, b.messages, b.real.shell, b.real.dialogs, *player});
  auto& form = parts.form;
  auto& settings = parts.settings;
  LatePointer late(b.loop);
  player::Favourites favourites(
      {parts.folder, settings, parts.session, form, parts.playback, parts.station_files, b.real.dialogs, b.loop, late});
  int clicks = 0;
  std::vector<std::wstring> opened;
  auto& list = form.Control_List;
  list.on_click = [&] {
    ++clicks;
    favourites.Control_List_Click();
  };
  list.on_double_click = [&] { favourites.Control_List_DblClick(); };
  list.on_mouse_down = [&](const platform::MouseEvent& event) {
    if (favourites.Control_List_MouseDown(event))
      opened.push_back(settings.IDlastRadio + L" after " + std::to_wstring(clicks));
  };
  list.resize(3000, 2000);
  list.set_items({std::wstring(93, L'a') + L"1RADIO1u", std::wstring(93, L'b') + L"2RADIO2u"});
  list.select(0);
  list.set_visible(true);
  b.pass(100);
  POINT place{30, 30};
  ClientToScreen(b.window.handle_of(list), &place);
  SetCursorPos(place.x, place.y);
  mouse_event(MOUSEEVENTF_RIGHTDOWN | MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
  b.pass(700);
  EXPECT_EQ(opened, std::vector<std::wstring>{L"RADIO2 after 1"});
  EXPECT_EQ(list.selected(), 1U);
  EXPECT_EQ(clicks, 1);
}

TEST_F(Win32UserInput, AListThatIsScrolledKnowsWhatIsAtAPlace) {
  auto& list = b.window.make_list(L"Control_List");
  list.resize(3000, 900);
  std::vector<std::wstring> names;
  for (int i = 0; i < 70000; ++i)
    names.push_back(std::to_wstring(i));
  list.set_items(names);
  SendMessageW(b.window.handle_of(list), LB_SETTOPINDEX, 69990, 0);
  EXPECT_EQ(list.item_at(30, 330), 69991U);
}

TEST_F(Win32UserInput, TheKeysAreHeardFromTakingToRelease) {
  press(VK_MEDIA_PLAY_PAUSE);
  EXPECT_EQ(heard, L"");
  keys.take();
  keys.take();
  press(VK_MEDIA_PLAY_PAUSE);
  press(VK_MEDIA_STOP);
  EXPECT_EQ(heard, L"ps");
  keys.release();
  press(VK_MEDIA_STOP);
  EXPECT_EQ(heard, L"ps");
}

TEST_F(Win32UserInput, CommandsOfAKeyboardAreHeardToo) {
  EXPECT_EQ(command(APPCOMMAND_MEDIA_STOP), 0);
  keys.take();
  for (const int number :
       {APPCOMMAND_MEDIA_PLAY_PAUSE, APPCOMMAND_MEDIA_PLAY, APPCOMMAND_MEDIA_PAUSE, APPCOMMAND_MEDIA_STOP})
    EXPECT_EQ(command(number), TRUE);
  EXPECT_EQ(heard, L"ppps");
  EXPECT_EQ(command(APPCOMMAND_VOLUME_UP), 0) << "not ours";
  EXPECT_EQ(heard, L"ppps");
}

TEST_F(Win32UserInput, AKeyThatAnotherHoldsStaysThere) {
  constexpr int id = 77;
  ASSERT_NE(RegisterHotKey(nullptr, id, MOD_NOREPEAT, VK_MEDIA_STOP), 0);
  keys.take();
  press(VK_MEDIA_PLAY_PAUSE);
  press(VK_MEDIA_STOP);
  EXPECT_EQ(heard, L"p");
  keys.release();
  EXPECT_NE(UnregisterHotKey(nullptr, id), 0) << "the other one still has it";
}

TEST_F(Win32UserInput, ReleasedKeysAreFreeForOthers) {
  constexpr int id = 78;
  for (const UINT key : {VK_MEDIA_PLAY_PAUSE, VK_MEDIA_STOP}) {
    keys.take();
    EXPECT_EQ(RegisterHotKey(nullptr, id, MOD_NOREPEAT, key), 0);
    keys.release();
    EXPECT_NE(RegisterHotKey(nullptr, id, MOD_NOREPEAT, key), 0);
    UnregisterHotKey(nullptr, id);
  }
}

TEST_F(Win32UserInput, AHandlerThatThrowsHarmsNothing) {
  keys.on_stop = [] { throw 1; };
  keys.take();
  EXPECT_EQ(command(APPCOMMAND_MEDIA_STOP), TRUE);
}

} // namespace
} // namespace lumotune::contract
