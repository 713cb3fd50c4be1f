// SPDX-License-Identifier: LGPL-2.1-or-later
// The line that filters the stations shown.
#include "tests/directory/window_world.h"

namespace lumotune::directory {
namespace {

using platform::FramedWindowKey;
using platform::MouseButton;

struct ListRadiosFilter : WindowWorld {
  ListRadiosFilter() { directory.Naladit(); }
  [[nodiscard]] platform::memory::TextEntry& entry() const { return part<platform::memory::TextEntry>(L"Filter"); }
  void type(const std::wstring& text) {
    (void)window_shown().user_key(FramedWindowKey::find);
    EXPECT_TRUE(entry().user_writes(text) || entry().text() == text);
  }
  bool escape() { return window_shown().user_key(FramedWindowKey::escape); }
};

TEST_F(ListRadiosFilter, ItIsHiddenUntilItIsAskedFor) {
  const auto before = list().rect();
  EXPECT_FALSE(entry().visible());
  EXPECT_FALSE(label(L"FilterCount").visible());
  EXPECT_TRUE(window_shown().user_key(FramedWindowKey::find));
  EXPECT_TRUE(entry().visible());
  EXPECT_EQ(window_shown().keyboard_at(), L"Filter");
  EXPECT_EQ(entry().cue(), L"Hledat název nebo zemi");
  EXPECT_EQ(entry().rect().top, before.top);
  EXPECT_GE(list().rect().top, entry().rect().top + entry().rect().height);
  EXPECT_EQ(list().rect().top + list().rect().height, before.top + before.height);
  EXPECT_EQ(names().size(), 4U) << "nothing is typed yet";
  EXPECT_TRUE(escape());
  EXPECT_EQ(list().rect(), before);
  EXPECT_FALSE(entry().visible());
  EXPECT_EQ(window_shown().keyboard_at(), L"ListView1");
  EXPECT_FALSE(escape()) << "it is not ours any more";
}

TEST_F(ListRadiosFilter, WhatIsTypedIsWhatIsShown) {
  type(L"tret");
  EXPECT_EQ(names(), Names{L"Třetí novinka"});
  EXPECT_EQ(label(L"FilterCount").text(), L"1 z 4");
  type(L"CESKO");
  EXPECT_EQ(names(), (Names{L"První", L"Druhé", L"Televize"}));
  EXPECT_EQ(label(L"FilterCount").text(), L"3 z 4");
  type(L"nikde");
  EXPECT_EQ(names(), Names{});
  EXPECT_TRUE(escape());
  EXPECT_EQ(names().size(), 4U);
  (void)window_shown().user_key(FramedWindowKey::find);
  EXPECT_EQ(entry().text(), L"") << "it begins anew";
  EXPECT_EQ(label(L"FilterCount").text(), L"");
}

TEST_F(ListRadiosFilter, TheStatusLineIsTheUpdatesOwn) {
  const std::wstring before = status();
  type(L"tret");
  EXPECT_EQ(status(), before);
  (void)escape();
  EXPECT_EQ(status(), before);
}

TEST_F(ListRadiosFilter, TheSelectionFollowsItsStation) {
  EXPECT_EQ(list().selected(), 2U); // RADIO2, the tuned one
  type(L"e");
  EXPECT_EQ(list().cell(list().selected(), 0), L"Druhé");
  type(L"televize");
  EXPECT_EQ(list().selected(), 0U) << "it is hidden";
  type(L"dr");
  EXPECT_EQ(list().selected(), 1U) << "and back";
  type(L"televize");
  (void)escape();
  EXPECT_EQ(list().selected(), 2U);
  type(L"televize");
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_EQ(label(L"Label2").text(), L"Televize");
  (void)escape();
  EXPECT_EQ(list().selected(), 4U) << "the newer one";
}

TEST_F(ListRadiosFilter, WithoutASelectionTheRememberedRowStays) {
  (void)list().user_pick(4, MouseButton::left);
  pick_node(L"a1000011");
  EXPECT_EQ(list().selected(), 0U);
  type(L"prv");
  EXPECT_EQ(list().selected(), 0U);
  (void)escape();
  pick_node(L"a100000");
  EXPECT_EQ(list().selected(), 4U);
}

// Every action takes the station of the row that is shown.
TEST_F(ListRadiosFilter, ActionsTakeTheStationThatIsShown) {
  type(L"tret");
  EXPECT_TRUE(list().user_double_pick(1));
  loop.advance(5000);
  EXPECT_EQ(player.url(), L"http://r/3");
  popups.choices = {L"Kvalita1"};
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO3/1\r\n");
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_EQ(label(L"Label2").text(), L"Třetí");
  EXPECT_EQ(label(L"Label3").text(), L"Slovensko");
}

TEST_F(ListRadiosFilter, AnotherCategoryIsFilteredAsWell) {
  type(L"televize");
  (void)list().user_pick(1, MouseButton::left);
  pick_node(L"a100001");
  EXPECT_EQ(names(), Names{});
  EXPECT_EQ(label(L"FilterCount").text(), L"0 z 2");
  pick_node(L"a1000001");
  EXPECT_EQ(names(), Names{L"Televize"});
  EXPECT_EQ(list().selected(), 1U) << "the station, and not a position";
  EXPECT_EQ(status(), L"Zobrazeno 1 rádií");
  (void)escape();
  EXPECT_EQ(names().size(), 3U);
  EXPECT_EQ(list().cell(list().selected(), 0), L"Televize");
}

TEST_F(ListRadiosFilter, AnUpdateKeepsFilterAndStation) {
  type(L"tret");
  (void)list().user_pick(1, MouseButton::left);
  serve("orb:k:new//100000/@/V\r\n" +
        test::Record{"RADIO0", "T\xf8"
                               "etina"}
            .line() +
        stations_text());
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(1000);
  EXPECT_EQ(status(), L"Hotovo, připraven...");
  EXPECT_EQ(names(), (Names{L"Třetina", L"Třetí novinka"}));
  EXPECT_EQ(list().selected(), 2U);
  (void)escape();
  EXPECT_EQ(list().selected(), 4U);
}

TEST_F(ListRadiosFilter, GoingToAStationThatItHidesClosesIt) {
  type(L"tret");
  settings.IDlastRadio = L"RADIO3";
  directory.Naladit();
  EXPECT_TRUE(entry().visible()) << "the station is there";
  EXPECT_EQ(list().selected(), 1U);
  settings.IDlastRadio = L"TELKA1";
  directory.Naladit();
  EXPECT_FALSE(entry().visible());
  EXPECT_EQ(list().selected(), 4U);
}

TEST_F(ListRadiosFilter, EnterGoesOnToTheStations) {
  type(L"e");
  EXPECT_TRUE(entry().user_enter());
  EXPECT_EQ(window_shown().keyboard_at(), L"ListView1");
  EXPECT_TRUE(entry().visible());
  EXPECT_TRUE(escape()) << "from there too";
  (void)window_shown().user_key(FramedWindowKey::find);
  window_shown().user_tab(false);
  EXPECT_EQ(window_shown().keyboard_at(), L"ListView1") << "Tab goes there as well";
}

TEST_F(ListRadiosFilter, ItIsClosedWithTheWindow) {
  type(L"tret");
  open_again();
  EXPECT_FALSE(entry().visible());
  EXPECT_EQ(names().size(), 4U);
}

TEST_F(ListRadiosFilter, WhileTheWindowLoadsItWaits) {
  loop.set_look_cost(base::SteppedWork::turn_ms);
  open_again();
  loop.advance(1);
  EXPECT_TRUE(window_shown().visible());
  EXPECT_TRUE(window_shown().user_key(FramedWindowKey::find));
  EXPECT_FALSE(entry().visible());
  loop.advance(200);
  EXPECT_TRUE(entry().visible());
}

} // namespace
} // namespace lumotune::directory
