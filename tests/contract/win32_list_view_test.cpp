// SPDX-License-Identifier: LGPL-2.1-or-later
// The user's mouse and keyboard on a list in columns.
#include "tests/contract/win32_framed.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::MouseButton;
using platform::MouseEvent;

struct ManyRows final : platform::RowModel {
  std::size_t size = 300;
  mutable std::set<std::size_t> asked;
  [[nodiscard]] std::size_t count() const override { return size; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override {
    asked.insert(row);
    if (column == 1)
      return L"Česko";
    return row == size ? L"Žluťoučký kůň & přátelé" : L"Stejné jméno";
  }
  [[nodiscard]] bool bold(std::size_t row) const override { return row == 5; }
};

struct Win32ListViewTest : Win32Framed {
  ManyRows rows;
  platform::ListView& list = window->make_list_view(L"ListView1");
  std::wstring events; // in their order, each with what was selected then

  Win32ListViewTest() {
    place(list, 150, 150, 4500, 3000);
    list.add_column(L"Name", L"Název rádia", 2000);
    list.add_column(L"zeme", L"Země", 800);
    list.set_rows(&rows);
    list.on_mouse_down = [this](const MouseEvent& event) {
      note(event.button == MouseButton::right ? L"right" : L"left");
    };
    list.on_click = [this] { note(L"click"); };
    list.on_double_click = [this] { note(L"double"); };
    list.on_key_up = [this] { note(L"up"); };
    list.on_key_press = [this](wchar_t c) { note(L"key" + std::to_wstring(static_cast<int>(c))); };
    show();
    SetFocus(handle(list));
  }
  ~Win32ListViewTest() override { window.reset(); } // before its rows
  void note(const std::wstring& what) { events += what + std::to_wstring(list.selected()) + L" "; }
  [[nodiscard]] RECT area(std::size_t row) const {
    RECT found{};
    found.left = LVIR_BOUNDS;
    SendMessageW(handle(list), LVM_GETITEMRECT, row - 1, reinterpret_cast<LPARAM>(&found));
    return found;
  }
  [[nodiscard]] POINT middle(std::size_t row) const {
    const RECT found = area(row);
    return {found.left + 40, (found.top + found.bottom) / 2};
  }
};

TEST_F(Win32ListViewTest, TheButtonIsToldBeforeTheRowAndTheClickAfterIt) {
  click(list, middle(3));
  EXPECT_EQ(events, L"left0 click3 ");
  events.clear();
  mouse(list, WM_RBUTTONDOWN, middle(5));
  EXPECT_EQ(events, L"right3 ") << "a menu waits until the button is let go";
  EXPECT_EQ(list.selected(), 5U);
  mouse(list, WM_RBUTTONUP, middle(5));
  EXPECT_EQ(events, L"right3 click5 ");
}

TEST_F(Win32ListViewTest, TheSecondColumnBelongsToTheRow) {
  POINT at = middle(4);
  at.x = area(4).left + 150;
  click(list, at);
  EXPECT_EQ(events, L"left0 click4 ");
}

TEST_F(Win32ListViewTest, BesideTheRowsNothingIsClicked) {
  rows.size = 3;
  list.rows_changed();
  list.select(2);
  const POINT below{50, 150};
  click(list, below);
  mouse(list, WM_RBUTTONDOWN, below);
  mouse(list, WM_RBUTTONUP, below);
  mouse(list, WM_LBUTTONDBLCLK, below);
  mouse(list, WM_LBUTTONUP, below);
  EXPECT_EQ(events.find(L"click"), std::wstring::npos) << "neither a click nor a double click";
  EXPECT_EQ(events.find(L"double"), std::wstring::npos);
  EXPECT_EQ(list.selected(), 2U);
}

TEST_F(Win32ListViewTest, ADoubleClickIsToldOnceWhenItIsLetGo) {
  click(list, middle(3));
  mouse(list, WM_LBUTTONDBLCLK, middle(3));
  EXPECT_EQ(events, L"left0 click3 ");
  mouse(list, WM_LBUTTONUP, middle(3));
  EXPECT_EQ(events, L"left0 click3 double3 ");
  mouse(list, WM_LBUTTONUP, middle(3));
  EXPECT_EQ(events, L"left0 click3 double3 ");
}

TEST_F(Win32ListViewTest, EnterIsACharacterAndItsEndNoMove) {
  list.select(7);
  key(VK_RETURN);
  EXPECT_EQ(events, L"key137 ");
}

TEST_F(Win32ListViewTest, ArrowsMoveAndAreTold) {
  list.select(7);
  key(VK_DOWN);
  key(VK_END);
  EXPECT_EQ(events, L"up8 up300 ");
  events.clear();
  SendMessageW(handle(list), WM_KEYUP, VK_TAB, static_cast<LPARAM>(0xc0000001));
  SendMessageW(handle(list), WM_KEYUP, VK_DOWN, static_cast<LPARAM>(0xc0000001));
  EXPECT_EQ(events, L"") << "these went down somewhere else";
}

TEST_F(Win32ListViewTest, TheKeyForMenusIsNoClick) {
  list.on_menu_key = [this] { note(L"menu"); };
  list.select(6);
  const auto asked = [this](LPARAM place) {
    SendMessageW(handle(list), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle(list)), place);
  };
  asked(-1);
  EXPECT_EQ(events, L"menu6 ");
  asked(MAKELPARAM(100, 100)); // the mouse's, which has been told as a press
  EXPECT_EQ(events, L"menu6 ");
}

TEST_F(Win32ListViewTest, TypingFindsARowAmongFiftyThousand) {
  rows.size = 50000;
  list.rows_changed();
  letter(L'ž');
  EXPECT_EQ(list.selected(), 50000U);
}

TEST_F(Win32ListViewTest, ADoubleClickOnTheDividerFitsTheColumnToWhatIsInSight) {
  const HWND captions = reinterpret_cast<HWND>(SendMessageW(handle(list), LVM_GETHEADER, 0, 0));
  const auto fit = [&](int column) {
    NMHEADERW told{};
    told.hdr.hwndFrom = captions;
    told.hdr.code = static_cast<UINT>(HDN_DIVIDERDBLCLICKW);
    told.iItem = column;
    SendMessageW(handle(list), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told));
    return SendMessageW(handle(list), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0);
  };
  rows.size = 200'000; // the longest name is the last row's
  list.rows_changed();
  rows.asked.clear();
  const LRESULT narrow = fit(0);
  EXPECT_LT(rows.asked.size(), 100U);
  list.select(rows.size);
  const LRESULT wide = fit(0);
  EXPECT_GT(wide, narrow);
  EXPECT_EQ(SendMessageW(handle(list), LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(L"Žluťoučký kůň & přátelé")) <
                wide,
            TRUE)
      << "all of it is shown";
  EXPECT_GT(fit(1), 0);
  EXPECT_EQ(fit(7), 0) << "no such column";
}

TEST_F(Win32ListViewTest, AnEmptyListDrawsItsText) {
  rows.size = 0;
  list.rows_changed();
  const auto ink = [this] {
    RedrawWindow(handle(list), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    b.loop.run_pending();
    const HDC dc = GetDC(handle(list));
    RECT room{};
    GetClientRect(handle(list), &room);
    int dark = 0;
    for (int y = room.bottom / 4; y < room.bottom; y += 2)
      for (int x = 0; x < room.right; x += 2)
        dark += GetRValue(GetPixel(dc, x, y)) < 200 ? 1 : 0;
    ReleaseDC(handle(list), dc);
    return dark;
  };
  EXPECT_EQ(ink(), 0);
  list.set_empty_text(L"Žádná rádia tu nejsou, vyberte jinou kategorii vlevo v seznamu kategorií a zkuste to znovu.");
  EXPECT_GT(ink(), 30);
  list.set_empty_text(L"");
  EXPECT_EQ(ink(), 0);
}

struct NamedRows final : platform::RowModel {
  std::vector<std::wstring> names{L"Alfa",   L"ČRo Plus", L"česko", L"Žižkov", L"Čas",       L"Plus",
                                  L"PLUSKO", L"ώμεγα",    L"plus",  L"",       L"ČESKO dnes"};
  bool quick = false; // answers beginnings itself
  mutable int made = 0;
  [[nodiscard]] std::size_t count() const override { return names.size(); }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override {
    ++made;
    return column == 0 ? names[row - 1] : L"";
  }
  [[nodiscard]] std::size_t beginning(std::size_t row, wchar_t* out, std::size_t room) const override {
    return quick ? names[row - 1].copy(out, room) : RowModel::beginning(row, out, room);
  }
  [[nodiscard]] bool bold(std::size_t /*row*/) const override { return false; }
};

TEST_F(Win32ListViewTest, TypedLettersFindTheRowThatBeginsWithThem) {
  NamedRows named;
  const auto find = [&](const wchar_t* text, UINT flags, int after) {
    LVFINDINFOW wanted{};
    wanted.flags = flags;
    wanted.psz = text;
    return SendMessageW(handle(list), LVM_FINDITEMW, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(&wanted)) + 1;
  };
  for (const bool quick : {false, true}) {
    named.quick = quick;
    list.set_rows(&named);
    EXPECT_EQ(find(L"č", LVFI_PARTIAL, -1), 2) << "not the plain letter";
    EXPECT_EQ(find(L"č", LVFI_PARTIAL, 1), 3);
    EXPECT_EQ(find(L"ČES", LVFI_PARTIAL, -1), 3);
    EXPECT_EQ(find(L"česko ", LVFI_PARTIAL, -1), 11);
    EXPECT_EQ(find(L"ž", LVFI_PARTIAL, -1), 4);
    EXPECT_EQ(find(L"z", LVFI_PARTIAL, -1), 0);
    EXPECT_EQ(find(L"p", LVFI_PARTIAL, -1), 6);
    EXPECT_EQ(find(L"PLUS", LVFI_STRING, 6), 9) << "the whole text";
    EXPECT_EQ(find(L"plusk", LVFI_PARTIAL, -1), 7);
    EXPECT_EQ(find(L"Ώ", LVFI_PARTIAL, -1), 8);
    EXPECT_EQ(find(L"pluskový", LVFI_PARTIAL, -1), 0) << "longer than any";
    named.made = 0;
    (void)find(L"x", LVFI_PARTIAL, -1);
    EXPECT_EQ(named.made, quick ? 0 : 11);
  }
  list.set_rows(nullptr);
}

TEST_F(Win32ListViewTest, OnlyRowsInSightAreAskedFor) {
  rows.size = 50000;
  list.rows_changed();
  rows.asked.clear();
  list.select(40000);
  RedrawWindow(handle(list), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_TRUE(b.until([&] { return rows.asked.contains(40000); }));
  EXPECT_LT(rows.asked.size(), 200U);
}

// Bold letters are wider in every font. How dark they are, next to the others, differs between versions of one font.
TEST_F(Win32ListViewTest, ABoldRowIsWider) {
  RedrawWindow(handle(list), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  b.loop.run_pending();
  const HDC dc = GetDC(handle(list));
  const auto last_ink = [&](std::size_t row) {
    const RECT place = area(row);
    int last = 0;
    for (int y = place.top; y < place.bottom; ++y)
      for (int x = place.left; x < place.left + 130; ++x)
        if (GetRValue(GetPixel(dc, x, y)) < 128)
          last = std::max(last, x - static_cast<int>(place.left));
    return last;
  };
  const int normal = last_ink(4);
  EXPECT_GT(normal, 30);
  EXPECT_GT(last_ink(5), normal + 2);
  EXPECT_LT(last_ink(5), 125) << "the column has room for it";
  EXPECT_EQ(last_ink(6), normal) << "the font goes back";
  ReleaseDC(handle(list), dc);
}

TEST_F(Win32ListViewTest, TextsCanBeReadFromOutsideAsTheyAre) {
  wchar_t text[64] = {};
  LVITEMW item{};
  item.pszText = text;
  item.cchTextMax = 64;
  SendMessageW(handle(list), LVM_GETITEMTEXTW, 299, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(text, L"Žluťoučký kůň & přátelé");
  rows.size = 5; // behind the list's back
  SendMessageW(handle(list), LVM_GETITEMTEXTW, 299, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(text, L"");
}

TEST_F(Win32ListViewTest, TheRowsMayChangeInTheirOwnClick) {
  list.on_click = [this] {
    rows.size = 1;
    list.rows_changed();
  };
  click(list, middle(5));
  EXPECT_EQ(list.selected(), 0U);
  mouse(list, WM_LBUTTONDBLCLK, {40, 100});
  mouse(list, WM_LBUTTONUP, {40, 100});
  EXPECT_EQ(list.selected(), 0U);
}

using Win32ListViewFirst = Win32Framed;

TEST_F(Win32ListViewFirst, ARowSelectedBeforeTheWindowCameIsInSight) {
  ManyRows rows;
  auto& list = window->make_list_view(L"ListView1");
  list.add_column(L"Name", L"Název rádia", 2000);
  list.set_rows(&rows);
  list.select(250);
  place(list, 150, 150, 4500, 3000);
  show();
  const LRESULT top = SendMessageW(handle(list), LVM_GETTOPINDEX, 0, 0);
  const LRESULT page = SendMessageW(handle(list), LVM_GETCOUNTPERPAGE, 0, 0);
  EXPECT_GE(249, top);
  EXPECT_LT(249, top + page);
  window.reset();
}

// What the list is asked that makes it look at every row.
LRESULT CALLBACK count_searches(HWND view, UINT message, WPARAM w, LPARAM l, UINT_PTR /*id*/, DWORD_PTR counted) {
  const bool all_set = message == LVM_SETITEMSTATE && w == static_cast<WPARAM>(-1);
  const bool all_asked = message == LVM_GETNEXTITEM && (l & LVNI_FOCUSED) == 0;
  *reinterpret_cast<int*>(counted) += all_set || all_asked ? 1 : 0;
  return DefSubclassProc(view, message, w, l);
}

TEST_F(Win32ListViewTest, SelectingDoesNotLookThroughAllRows) {
  int searches = 0;
  SetWindowSubclass(handle(list), count_searches, 1, reinterpret_cast<DWORD_PTR>(&searches));
  rows.size = 100'000;
  list.rows_changed();
  for (const std::size_t row : {std::size_t{70'000}, std::size_t{3}, std::size_t{100'000}}) {
    list.select(row);
    EXPECT_EQ(list.selected(), row);
  }
  UpdateWindow(handle(list));
  list.rows_changed();
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_EQ(searches, 0);
  RemoveWindowSubclass(handle(list), count_searches, 1);
}

TEST_F(Win32ListViewTest, ASelectedRowWithoutTheFocusIsStillFoundAndLeft) {
  const auto state = [this](int row, UINT bits) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = bits;
    SendMessageW(handle(list), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  };
  list.select(10);
  state(9, LVIS_SELECTED);
  state(20, LVIS_FOCUSED); // as Ctrl and an arrow key do
  EXPECT_EQ(list.selected(), 10U);
  list.select(0);
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_EQ(SendMessageW(handle(list), LVM_GETSELECTEDCOUNT, 0, 0), 0);
  EXPECT_LT(SendMessageW(handle(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 0);
}

} // namespace
} // namespace lumotune::contract
