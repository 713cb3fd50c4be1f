// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's mouse and keyboard on tree and text box.
#include "tests/contract/win32_framed.h"

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::MouseButton;
using platform::MouseEvent;

struct Win32Tree : Win32Framed {
  platform::TreeView& tree = window->make_tree(L"TreeView1");
  platform::Button& button = window->make_button(L"Command1");
  std::vector<std::size_t> clicks;
  std::vector<std::size_t> keys;

  Win32Tree() {
    place(tree, 150, 150, 3000, 3000);
    place(button, 3300, 150, 1500, 300);
    EXPECT_TRUE(tree.add(L"a1", L"", L"Česká & slovenská"));
    EXPECT_TRUE(tree.add(L"a11", L"a1", L"Folk"));
    EXPECT_TRUE(tree.add(L"a2", L"", L"Zahraniční"));
    tree.on_click = [this] { clicks.push_back(tree.selected()); };
    tree.on_key_up = [this] { keys.push_back(tree.selected()); };
    show();
  }
  [[nodiscard]] HTREEITEM item(std::size_t index) const {
    auto found = reinterpret_cast<HTREEITEM>(SendMessageW(handle(tree), TVM_GETNEXTITEM, TVGN_ROOT, 0));
    for (std::size_t i = 1; found != nullptr && i < index; ++i)
      found = reinterpret_cast<HTREEITEM>(
          SendMessageW(handle(tree), TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(found)));
    return found;
  }
  // The text of a row in sight, from 1. The message takes the item in the place of its answer.
  [[nodiscard]] RECT area_of(std::size_t row) const {
    RECT area{};
    const HTREEITEM wanted = item(row);
    std::memcpy(&area, &wanted, sizeof wanted);
    EXPECT_NE(SendMessageW(handle(tree), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)), 0);
    return area;
  }
  [[nodiscard]] POINT middle(std::size_t row) const {
    const RECT area = area_of(row);
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  }
};

TEST_F(Win32Tree, AClickIsToldWhenTheNodeIsSelected) {
  click(tree, middle(2)); // "Zahraniční": the first one is closed
  EXPECT_EQ(clicks, (std::vector<std::size_t>{3}));
  click(tree, middle(2));
  EXPECT_EQ(clicks, (std::vector<std::size_t>{3, 3})) << "again on the same node";
  click(tree, {190, 190});
  EXPECT_EQ(clicks.size(), 2U) << "beside the nodes";
}

TEST_F(Win32Tree, OpeningANodeIsNoClickOnIt) {
  const POINT text = middle(1);
  EXPECT_EQ(item(3), nullptr) << "two roots";
  click(tree, {area_of(1).left - 10, text.y}); // the plus
  EXPECT_NE(item(3), nullptr) << "it is open";
  EXPECT_TRUE(clicks.empty());
}

TEST_F(Win32Tree, SelectingOpensWhatHides) {
  tree.select(2);
  EXPECT_EQ(tree.selected(), 2U);
  EXPECT_GT(middle(2).y, middle(1).y);
  EXPECT_TRUE(clicks.empty());
}

TEST_F(Win32Tree, KeysThatMoveAreTold) {
  SetFocus(handle(tree));
  tree.select(1);
  key(VK_DOWN);
  EXPECT_EQ(keys, (std::vector<std::size_t>{3}));
  key(VK_UP);
  EXPECT_EQ(keys, (std::vector<std::size_t>{3, 1}));
  key(VK_RIGHT); // opens
  key(VK_DOWN);
  EXPECT_EQ(keys, (std::vector<std::size_t>{3, 1, 1, 2}));
  EXPECT_TRUE(clicks.empty());
}

TEST_F(Win32Tree, AKeyThatBroughtTheKeyboardIsNotTold) {
  tree.select(1);
  SetFocus(handle(button));
  key(VK_TAB);
  EXPECT_EQ(GetFocus(), handle(tree));
  SendMessageW(handle(tree), WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xc0000001));
  SendMessageW(handle(tree), WM_KEYUP, VK_DOWN, static_cast<LPARAM>(0xc0000001));
  EXPECT_TRUE(keys.empty());
}

TEST_F(Win32Tree, TypingFindsANode) {
  SetFocus(handle(tree));
  tree.select(1);
  letter(L'z');
  EXPECT_EQ(tree.selected(), 3U);
}

TEST_F(Win32Tree, TheNodesMayGoInTheirOwnClick) {
  tree.on_click = [this] {
    clicks.push_back(tree.selected());
    tree.clear();
    EXPECT_TRUE(tree.add(L"b", L"", L"Jiné"));
  };
  click(tree, middle(1));
  EXPECT_EQ(clicks, (std::vector<std::size_t>{1}));
  EXPECT_EQ(tree.count(), 1U);
}

TEST_F(Win32Framed, ANodeSelectedBeforeTheWindowCameIsInSight) {
  auto& tree = window->make_tree(L"TreeView1");
  for (int i = 0; i < 200; ++i)
    ASSERT_TRUE(tree.add(L"a" + std::to_wstring(i), L"", L"uzel"));
  tree.select(150);
  place(tree, 150, 150, 3000, 3000);
  show();
  RECT area{};
  const LRESULT selected = SendMessageW(handle(tree), TVM_GETNEXTITEM, TVGN_CARET, 0);
  std::memcpy(&area, &selected, sizeof selected);
  RECT room{};
  GetClientRect(handle(tree), &room);
  EXPECT_NE(SendMessageW(handle(tree), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)), 0);
  EXPECT_GE(area.top, 0);
  EXPECT_LE(area.bottom, room.bottom);
}

TEST_F(Win32Framed, ATextBoxShowsItsBarOnlyWhenItIsNeeded) {
  auto& box = window->make_text_box(L"Text1");
  place(box, 150, 150, 3000, 1200);
  show();
  const auto has_bar = [&] { return (GetWindowLongPtrW(handle(box), GWL_STYLE) & WS_VSCROLL) != 0; };
  box.set_text(L"jedna\ndvě");
  EXPECT_FALSE(has_bar());
  EXPECT_EQ(SendMessageW(handle(box), EM_GETLINECOUNT, 0, 0), 2);
  box.set_text(std::wstring(2000, L'x') + L"\n" + std::wstring(500, L'\n'));
  EXPECT_TRUE(has_bar());
  box.set_text(L"");
  EXPECT_FALSE(has_bar());
}

TEST_F(Win32Framed, ATextBoxIsReadAndCopiedNotChanged) {
  auto& box = window->make_text_box(L"Text1");
  place(box, 150, 150, 3000, 1200);
  box.set_text(L"text stanice");
  show();
  SetFocus(handle(box));
  letter(L'x');
  wchar_t text[64] = {};
  GetWindowTextW(handle(box), text, 64);
  EXPECT_STREQ(text, L"text stanice");
  DWORD from = 0;
  DWORD to = 0;
  SendMessageW(handle(box), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  EXPECT_EQ(from, to) << "the keyboard's coming selects nothing";
}

} // namespace
} // namespace lumotune::contract
