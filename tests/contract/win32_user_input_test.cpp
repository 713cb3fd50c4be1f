// SPDX-License-Identifier: LGPL-2.1-or-later
// The mouse button and the media keys, with the system's real input.
#include "platform/win32/user_input.h"
#include "tests/contract/fixture_win32.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumotune::contract {
namespace {

struct Win32UserInput : testing::Test {
  Backend b;
  platform::win32::Win32Pointer pointer;
  platform::win32::Win32MediaKeys keys{b.window.handle()};
  std::wstring heard;

  void SetUp() override {
    keys.on_play_pause = [this] { heard += L"p"; };
    keys.on_stop = [this] { heard += L"s"; };
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.window.activate();
    b.pass(300);
  }
  void press(BYTE key) {
    keybd_event(key, 0, 0, 0);
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    b.pass(100);
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
  b.pass(100);
  RECT row{};
  SendMessageW(b.window.handle_of(list), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  MapWindowPoints(b.window.handle_of(list), nullptr, reinterpret_cast<POINT*>(&row), 2);
  SetCursorPos(row.left + 20, (row.top + row.bottom) / 2);
  b.pass(100);
  pointer.click_left();
  b.loop.run_pending();
  b.pass(50);
  EXPECT_EQ(list.selected(), 1U);
  EXPECT_EQ(pressed, std::vector<platform::MouseButton>{platform::MouseButton::left});
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
