// SPDX-License-Identifier: LGPL-2.1-or-later
// What the directory keeps for the run of the program, and what an empty list says.
#include "tests/directory/window_world.h"

namespace lumotune::directory {
namespace {

using platform::FramedWindowKey;

struct ListRadiosKept : WindowWorld {
  [[nodiscard]] bool open(const wchar_t* key) const { return tree().expanded(tree().find(key)); }
};

TEST_F(ListRadiosKept, TheWindowOpensWhereItWasAndAsLarge) {
  directory.Naladit();
  window_shown().user_move(3000, 2250);
  window_shown().user_resize(12000, 7500);
  const platform::TwipsRect place{3000, 2250, 12000, 7500};
  ASSERT_EQ(window_shown().rect(), place);
  const auto lists = list().rect();
  open_again();
  EXPECT_EQ(window_shown().rect(), place);
  EXPECT_EQ(list().rect(), lists) << "laid out for it";
}

TEST_F(ListRadiosKept, AMaximizedWindowComesBackInItsNormalPlace) {
  directory.Naladit();
  window_shown().user_move(3000, 2250);
  const auto place = window_shown().rect();
  window_shown().user_maximize();
  open_again();
  EXPECT_EQ(window_shown().rect(), place);
}

TEST_F(ListRadiosKept, APlaceThatIsGoneComesIntoView) {
  directory.Naladit();
  window_shown().user_move(60000, 60000);
  open_again();
  const auto place = window_shown().rect();
  EXPECT_LE(place.left + place.width, window_shown().work_area.width);
  EXPECT_LE(place.top + place.height, window_shown().work_area.height);
}

TEST_F(ListRadiosKept, OpenCategoriesStayOpen) {
  directory.Naladit();
  EXPECT_FALSE(open(L"a100000"));
  (void)tree().user_expands(tree().find(L"a100001"), true);
  open_again();
  EXPECT_TRUE(open(L"a100001"));
  EXPECT_FALSE(open(L"a100000"));
  (void)tree().user_expands(tree().find(L"a100001"), false);
  open_again();
  EXPECT_FALSE(open(L"a100001"));
}

TEST_F(ListRadiosKept, AnUpdateLeavesOpenCategoriesOpen) {
  directory.Naladit();
  (void)tree().user_expands(tree().find(L"a100001"), true);
  serve("orb:k:new//100007/@/Nov\xe1\r\norb:k:new//100000/@/V\r\norb:k:add//1000001/@/P\r\norb:k:new//100001/@/C\r\n"
        "orb:k:add//1000011/@/P\r\n" +
        stations_text());
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(1000);
  EXPECT_EQ(status(), L"Hotovo, připraven...");
  EXPECT_EQ(tree().count(), 5U);
  EXPECT_TRUE(open(L"a100001"));
  EXPECT_FALSE(open(L"a100000"));
}

TEST_F(ListRadiosKept, AWindowClosedBeforeItsTreeWasThereForgetsNothing) {
  directory.Naladit();
  (void)tree().user_expands(tree().find(L"a100001"), true);
  loop.set_look_cost(base::SteppedWork::turn_ms);
  open_again();
  window_shown().user_close();
  loop.advance(200);
  loop.set_look_cost(0);
  directory.Naladit();
  EXPECT_TRUE(open(L"a100001"));
}

TEST_F(ListRadiosKept, WithoutAnyStationTheListSaysWhatToDo) {
  for (const wchar_t* name : {L"radios.tt", L"kategories.tt"})
    (void)files.remove(machine.folder + L"\\" + name);
  directory.Naladit();
  EXPECT_EQ(list().empty_text(), L"Seznam rádií se stahuje, za chvíli bude tady. Pokud ne, otevřete okno znovu.");
  EXPECT_EQ(status(), L"Připojování k databázi rádií...") << "the update's own text stays";
  connection.now.connected = false;
  open_again();
  EXPECT_EQ(list().empty_text(), L"Nejste připojeni k internetu. Připojte se a otevřete okno znovu.");
  write(L"radios.tt", "\r\n\r\n"); // what an empty list leaves
  open_again();
  EXPECT_EQ(list().empty_text(), L"Nejste připojeni k internetu. Připojte se a otevřete okno znovu.");
}

TEST_F(ListRadiosKept, AnEmptyCategoryAndAnEmptySearchSayWhy) {
  write(L"kategories.tt", "new//100000/@/V\r\nnew//100009/@/Nic\r\n");
  directory.Naladit();
  pick_node(L"a100009");
  EXPECT_EQ(list().count(), 0U);
  EXPECT_EQ(list().empty_text(), L"V této kategorii žádná rádia nejsou. Vyberte vlevo jinou.");
  EXPECT_EQ(status(), L"Zobrazeno 0 rádií");
  pick_node(L"a100000");
  (void)window_shown().user_key(FramedWindowKey::find);
  (void)part<platform::memory::TextEntry>(L"Filter").user_writes(L"nikde");
  EXPECT_EQ(list().empty_text(), L"Hledání nic neodpovídá. Esc zobrazí zase všechna rádia.");
}

} // namespace
} // namespace lumotune::directory
