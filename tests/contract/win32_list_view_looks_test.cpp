// SPDX-License-Identifier: LGPL-2.1-or-later
// What a list in columns shows and looks up.
#include "tests/contract/win32_list_view.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::contract {
namespace {

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

struct TipSearch {
  HWND list;
  std::wstring found;
};

BOOL CALLBACK collect_tip(HWND window, LPARAM with) {
  auto& search = *reinterpret_cast<TipSearch*>(with);
  std::array<wchar_t, 32> kind{};
  GetClassNameW(window, kind.data(), static_cast<int>(kind.size()));
  if (std::wstring_view(kind.data()) != TOOLTIPS_CLASSW)
    return TRUE;
  std::wstring text(2000, L'\0');
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = search.list;
  tool.uId = 1;
  tool.lpszText = text.data();
  SendMessageW(window, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
  search.found += text.c_str();
  return TRUE;
}

// Of all tip windows of this thread; empty when none has a tip for the list.
std::wstring offered_tip(HWND list) {
  TipSearch search{list, {}};
  EnumThreadWindows(GetCurrentThreadId(), collect_tip, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

struct LongRows final : platform::RowModel {
  std::wstring name = L"Jméno, které se do svého sloupce nevejde celé";
  std::wstring country = L"Demokratická republika se jménem, které se nevejde";
  [[nodiscard]] std::size_t count() const override { return 100; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override {
    return row == 2 ? L"A" : column == 0 ? name : country;
  }
  [[nodiscard]] bool bold(std::size_t /*row*/) const override { return false; }
};

struct Win32ListViewTips : Win32ListViewTest {
  LongRows texts;
  Win32ListViewTips() { list.set_rows(&texts); }
  ~Win32ListViewTips() override { list.set_rows(nullptr); }
  void point(std::size_t row, int column) {
    RECT cell{};
    cell.top = column;
    cell.left = LVIR_LABEL;
    SendMessageW(handle(list), LVM_GETSUBITEMRECT, row - 1, reinterpret_cast<LPARAM>(&cell));
    SendMessageW(handle(list), WM_MOUSEMOVE, 0, MAKELPARAM(cell.left + 10, (cell.top + cell.bottom) / 2));
  }
};

TEST_F(Win32ListViewTips, ACutTextIsOfferedWholeInEachColumn) {
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), texts.name);
  point(1, 1);
  EXPECT_EQ(offered_tip(handle(list)), texts.country);
  point(2, 1);
  EXPECT_EQ(offered_tip(handle(list)), L"") << "it fits";
  point(3, 0);
  EXPECT_EQ(offered_tip(handle(list)), texts.name);
  SendMessageW(handle(list), WM_MOUSEMOVE, 0, MAKELPARAM(290, 100));
  EXPECT_EQ(offered_tip(handle(list)), L"") << "beside the columns";
}

TEST_F(Win32ListViewTips, AWiderColumnNeedsNone) {
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 1, 100);
  point(1, 1);
  EXPECT_EQ(offered_tip(handle(list)), texts.country);
  point(1, 0);
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 0, 10);
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 1, 500);
  point(1, 1);
  EXPECT_EQ(offered_tip(handle(list)), texts.country) << "the list is narrower than the column";
  texts.country = L"Česko";
  point(3, 1);
  EXPECT_EQ(offered_tip(handle(list)), L"");
}

// The pointer changes a column in the captions, from where the list hears no move, and comes back to the same cell.
TEST_F(Win32ListViewTips, AColumnOfAnotherWidthIsLookedAtAnew) {
  texts.name = L"Rádio Úsvit";
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 0, 30);
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), texts.name);
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 0, 200);
  EXPECT_EQ(offered_tip(handle(list)), L"");
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), L"") << "it fits now";
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 0, 30);
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), texts.name);
}

TEST_F(Win32ListViewTips, ANarrowerListIsLookedAtAnew) {
  texts.name = L"Rádio Úsvit";
  SendMessageW(handle(list), LVM_SETCOLUMNWIDTH, 0, 200);
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), L"");
  list.resize(600, 3000);
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), texts.name);
}

TEST_F(Win32ListViewTips, WhatMovesTheRowsTakesItBack) {
  const auto offered = [this] {
    point(1, 0);
    return !offered_tip(handle(list)).empty();
  };
  ASSERT_TRUE(offered());
  SendMessageW(handle(list), WM_VSCROLL, SB_LINEDOWN, 0);
  EXPECT_EQ(offered_tip(handle(list)), L"");
  SendMessageW(handle(list), WM_VSCROLL, SB_LINEUP, 0);
  ASSERT_TRUE(offered());
  SendMessageW(handle(list), WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(offered_tip(handle(list)), L"");
  ASSERT_TRUE(offered());
  list.rows_changed();
  EXPECT_EQ(offered_tip(handle(list)), L"");
}

TEST_F(Win32ListViewTips, AHugeTextIsCut) {
  texts.name.assign(1'000'000, L'š');
  point(1, 0);
  EXPECT_EQ(offered_tip(handle(list)), std::wstring(1000, L'š'));
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
    RECT captions{};
    GetClientRect(reinterpret_cast<HWND>(SendMessageW(handle(list), LVM_GETHEADER, 0, 0)), &captions);
    int dark = 0;
    for (int y = captions.bottom + 2; y < room.bottom; ++y)
      for (int x = 2; x < room.right - 2; ++x)
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

} // namespace
} // namespace lumotune::contract
