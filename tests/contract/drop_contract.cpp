// SPDX-License-Identifier: LGPL-2.1-or-later
// What is dropped on the main window.
#include "tests/contract/fixture_drop.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::Drop;

struct DropContract : testing::Test {
  Backend b;
  platform::ListBox& list = b.window.make_list(L"Seznam");
  std::vector<Drop> dropped;

  DropContract() {
    list.move(600, 600);
    list.resize(3000, 1200);
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.window.activate();
    b.window.on_drop = [this](const Drop& drop) { dropped.push_back(drop); };
    b.pass(500); // a window manager has its say first
  }
};

TEST_F(DropContract, FilesArriveWithTheirPaths) {
  EXPECT_TRUE(drop(b, files_dropped({L"C:\\rádio\\seznam č.m3u", L"\\\\host\\share\\x"}), nullptr));
  ASSERT_EQ(dropped.size(), 1U);
  EXPECT_EQ(dropped[0].paths, (std::vector<std::wstring>{L"C:\\rádio\\seznam č.m3u", L"\\\\host\\share\\x"}));
  EXPECT_EQ(dropped[0].text, L"");
  EXPECT_EQ(dropped[0].over, nullptr);
}

TEST_F(DropContract, ATextArrives) {
  EXPECT_TRUE(drop(b, text_dropped(L"http://rádio.example/a?b=c"), nullptr));
  ASSERT_EQ(dropped.size(), 1U);
  EXPECT_EQ(dropped[0].text, L"http://rádio.example/a?b=c");
  EXPECT_TRUE(dropped[0].paths.empty());
}

TEST_F(DropContract, TheControlUnderThePointerIsTold) {
  EXPECT_TRUE(drop(b, text_dropped(L"a"), &list));
  ASSERT_EQ(dropped.size(), 1U);
  EXPECT_EQ(dropped[0].over, &list);
  list.set_visible(false);
  EXPECT_TRUE(drop(b, text_dropped(L"b"), &list));
  ASSERT_EQ(dropped.size(), 2U);
  EXPECT_EQ(dropped[1].over, nullptr) << "a hidden one is not under it";
}

TEST_F(DropContract, WhatIsTooLargeIsNotTaken) {
  EXPECT_TRUE(drop(b, text_dropped(std::wstring(Drop::max_text, L'a')), nullptr));
  EXPECT_FALSE(drop(b, text_dropped(std::wstring(Drop::max_text + 1, L'a')), nullptr));
  EXPECT_TRUE(drop(b, files_dropped(std::vector<std::wstring>(Drop::max_paths, L"a")), nullptr));
  EXPECT_FALSE(drop(b, files_dropped(std::vector<std::wstring>(Drop::max_paths + 1, L"a")), nullptr));
  EXPECT_FALSE(drop(b, text_dropped(L""), nullptr));
  EXPECT_EQ(dropped.size(), 2U);
}

TEST_F(DropContract, AHiddenWindowTakesNothing) {
  b.window.set_visible(false);
  b.pass(250);
  EXPECT_FALSE(drop(b, text_dropped(L"a"), nullptr));
  EXPECT_TRUE(dropped.empty());
}

} // namespace
} // namespace lumotune::contract
