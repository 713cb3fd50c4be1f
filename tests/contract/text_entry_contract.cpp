// SPDX-License-Identifier: LGPL-2.1-or-later
// A line of text that the user edits, and the keys of a framed window.
#include "tests/contract/fixture.h"
#include "tests/contract/framed_steps.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::FramedWindowKey;

struct TextEntryContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
  platform::Button& button = placed(window->make_button(L"Tlacitko"), 150, 150, 3000, 375);
  platform::TextEntry& entry = placed(window->make_text_entry(L"Filter"), 150, 900, 3000, 375);
  platform::ListView& list = placed(window->make_list_view(L"Seznam"), 150, 1650, 3000, 375);
  std::vector<std::wstring> changes;
  std::vector<FramedWindowKey> keys;
  int entered = 0;

  TextEntryContract() {
    entry.on_change = [this] { changes.push_back(entry.text()); };
    entry.on_enter = [this] { ++entered; };
    window->on_window_key = [this](FramedWindowKey key) {
      keys.push_back(key);
      return true;
    };
    window->resize(7500, 6000);
  }
};

TEST_F(TextEntryContract, WhatTheUserTypesIsTold) {
  bring_up(b, *window);
  entry.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"Filter");
  b.write(*window, entry, L"ž");
  EXPECT_EQ(changes, std::vector<std::wstring>{L"ž"});
  b.write(*window, entry, L"Žluťoučký & kůň");
  EXPECT_EQ(entry.text(), L"Žluťoučký & kůň");
  ASSERT_FALSE(changes.empty());
  EXPECT_EQ(changes.back(), L"Žluťoučký & kůň");
  b.write(*window, entry, L"");
  EXPECT_EQ(entry.text(), L"");
  EXPECT_EQ(changes.back(), L"");
}

TEST_F(TextEntryContract, WhatTheProgramSetsIsNot) {
  bring_up(b, *window);
  entry.set_text(L"rádio");
  entry.set_cue(L"Hledat");
  EXPECT_EQ(entry.text(), L"rádio");
  EXPECT_EQ(entry.cue(), L"Hledat");
  b.pass(50);
  EXPECT_TRUE(changes.empty());
}

TEST_F(TextEntryContract, ThereIsALimitToTyping) {
  bring_up(b, *window);
  entry.take_keyboard();
  b.write(*window, entry, std::wstring(300, L'x'));
  EXPECT_EQ(entry.text(), std::wstring(platform::TextEntry::max_typed, L'x'));
}

TEST_F(TextEntryContract, EnterIsTold) {
  bring_up(b, *window);
  b.enter(*window, entry);
  EXPECT_EQ(entered, 0) << "the keyboard is elsewhere";
  entry.take_keyboard();
  b.enter(*window, entry);
  EXPECT_EQ(entered, 1);
}

TEST_F(TextEntryContract, TheKeyboardIsTakenOnlyWhereItCanBe) {
  entry.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"") << "a hidden window";
  bring_up(b, *window);
  entry.set_visible(false);
  entry.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"Tlacitko");
  list.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
  entry.set_visible(true);
  entry.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"Filter");
  entry.set_enabled(false);
  list.take_keyboard();
  entry.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"Seznam");
  b.leave(*window);
  list.take_keyboard();
  EXPECT_EQ(b.keyboard_at(*window), L"") << "another window is in front";
}

TEST_F(TextEntryContract, TheWindowsKeysComeFromEveryControl) {
  b.window_key(*window, FramedWindowKey::find);
  EXPECT_TRUE(keys.empty()) << "a hidden window";
  bring_up(b, *window);
  for (int control = 0; control < 3; ++control) {
    keys.clear();
    b.window_key(*window, FramedWindowKey::find);
    b.window_key(*window, FramedWindowKey::escape);
    EXPECT_EQ(keys, (std::vector<FramedWindowKey>{FramedWindowKey::find, FramedWindowKey::escape})) << control;
    b.tab(*window);
  }
  EXPECT_TRUE(changes.empty()) << "no letter of them gets through";
  EXPECT_TRUE(window->visible());
}

TEST_F(TextEntryContract, WithoutAHandlerTheKeysDoNothing) {
  window->on_window_key = nullptr;
  bring_up(b, *window);
  entry.take_keyboard();
  b.window_key(*window, FramedWindowKey::find);
  b.window_key(*window, FramedWindowKey::escape);
  EXPECT_TRUE(window->visible());
  EXPECT_EQ(entry.text(), L"");
}

} // namespace
} // namespace lumotune::contract
