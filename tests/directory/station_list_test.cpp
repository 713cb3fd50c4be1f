// SPDX-License-Identifier: LGPL-2.1-or-later
// The tree and the list by their procedures, without the window around them.
#include "directory/station_list.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"
#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

// Notes the flag at each call.
struct CountingFavourites final : player::FavouritesPort {
  explicit CountingFavourites(const base::Session& session_used) : session(session_used) {}
  void show_in_place() override {}
  void ZobrazOblibene() override { flags.push_back(session.refresh_favourites); }
  const base::Session& session;
  std::vector<std::wstring> flags;
};

struct StationListTest : testing::Test {
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  stations::StationFiles station_files{folder};
  base::Session session;
  CountingFavourites favourites{session};
  platform::memory::FramedWindow window{L"ListRadios", files};
  directory::ListRadiosForm form{window};
  std::unique_ptr<directory::StationList> stations = std::make_unique<directory::StationList>(
      directory::StationList::Uses{form, station_files, codec, session, favourites});
  platform::memory::ListView& list = *window.find<platform::memory::ListView>(L"ListView1");
  platform::memory::TreeView& tree = *window.find<platform::memory::TreeView>(L"TreeView1");

  StationListTest() {
    put(L"radios.tt", station("RADIO1", "100001") + "\r\n" + station("RADIO2", "100002") + station("RADIO3", "100002"));
    put(L"kategories.tt", "new//100001/@/A\r\nnew//100002/@/B\r\n");
  }
  static std::string station(const std::string& id, const std::string& category) {
    return Record{id, "N" + id, "", "", category}.line();
  }
  void put(const std::wstring& name, const std::string& bytes) {
    (void)files.replace(machine.folder + L"\\" + name, bytes);
  }
  void load(bool only_memory) {
    bool OnlyMemory = only_memory;
    stations->NactiRadia(OnlyMemory);
    EXPECT_EQ(OnlyMemory, only_memory);
  }
  std::wstring show(std::wstring Kategorie) {
    stations->ZobrazKategoriiRadii(Kategorie);
    return Kategorie;
  }
  [[nodiscard]] std::wstring status() const { return form.Label1.text(); }
};

TEST_F(StationListTest, NewCategoriesHaveTheFavouritesShownAnew) {
  stations->CommandOK();
  EXPECT_EQ(favourites.flags, std::vector<std::wstring>{L"1"});
  EXPECT_EQ(session.refresh_favourites, L"");
}

TEST_F(StationListTest, LoadingListsEveryStationWithoutAWord) {
  load(false);
  EXPECT_EQ(list.count(), 3U);
  EXPECT_EQ(list.cell(3, 0), L"NRADIO3");
  EXPECT_EQ(stations->table().lines()->count(), 4U) << "the empty line too";
  EXPECT_EQ(status(), L"");
}

TEST_F(StationListTest, LoadingSelectsTheRememberedRow) {
  load(false);
  EXPECT_EQ(list.selected(), 0U);
  stations->select_station(L"radio2");
  EXPECT_EQ(list.selected(), 2U);
  load(false);
  EXPECT_EQ(list.selected(), 2U);
  put(L"radios.tt", station("RADIO1", "100001"));
  load(false);
  EXPECT_EQ(list.selected(), 0U) << "beyond the rows";
}

TEST_F(StationListTest, LoadingIntoMemoryOnlyLeavesTheList) {
  load(false);
  stations->select_station(L"RADIO2");
  const int changes = list.changes;
  put(L"radios.tt", station("NOVA01", "100001"));
  load(true);
  EXPECT_EQ(list.changes, changes);
  EXPECT_EQ(list.count(), 3U);
  EXPECT_EQ(list.cell(1, 0), L"NRADIO1") << "what is shown is still there";
  EXPECT_EQ(list.selected(), 2U);
  EXPECT_EQ(stations->table().lines()->count(), 1U);
  (void)show(L"");
  EXPECT_EQ(list.count(), 1U);
  EXPECT_EQ(list.cell(1, 0), L"NNOVA01");
}

TEST_F(StationListTest, AFileThatIsGoneEmptiesTableAndList) {
  load(false);
  (void)files.remove(machine.folder + L"\\radios.tt");
  load(false);
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(stations->table().lines()->count(), 0U);
}

TEST_F(StationListTest, ACategoryIsShownCountedAndItsRowSelected) {
  load(false);
  stations->select_station(L"RADIO2");
  EXPECT_EQ(show(L"100002"), L"100002");
  EXPECT_EQ(list.count(), 2U);
  EXPECT_EQ(list.selected(), 2U) << "the position, not the station";
  EXPECT_EQ(list.cell(2, 0), L"NRADIO3");
  EXPECT_EQ(status(), L"Zobrazeno 2 rádií");
  EXPECT_EQ(show(L"100001"), L"100001");
  EXPECT_EQ(list.selected(), 0U);
  EXPECT_EQ(status(), L"Zobrazeno 1 rádií");
  EXPECT_EQ(show(L"100000"), L"") << "the argument becomes empty";
  EXPECT_EQ(list.selected(), 2U);
  EXPECT_EQ(show(L"neni"), L"neni");
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(status(), L"Zobrazeno 0 rádií");
}

TEST_F(StationListTest, AStationIsSelectedAmongTheRowsShown) {
  load(false);
  (void)show(L"100002");
  stations->select_station(L"RADIO3");
  EXPECT_EQ(list.selected(), 2U);
  EXPECT_EQ(stations->selected_id(), L"RADIO3");
  EXPECT_EQ(stations->selected_text(), L"NRADIO3");
  stations->select_station(L"RADIO1");
  EXPECT_EQ(list.selected(), 2U) << "it is not among them: the old position stays";
  list.select(0);
  EXPECT_EQ(stations->selected_id(), L"");
  EXPECT_EQ(stations->selected_text(), L"");
  stations->select_station(L"RADIO1");
  EXPECT_EQ(list.selected(), 2U) << "and is selected again";
}

TEST_F(StationListTest, TheTreeIsFilledAnewAndItsNodeSelected) {
  load(false);
  stations->NactiKategorie();
  EXPECT_EQ(tree.count(), 2U);
  EXPECT_EQ(tree.selected(), 0U) << "none was clicked yet";
  tree.select(2);
  stations->choose_category();
  put(L"kategories.tt", "new//100005/@/X\r\nnew//100006/@/Y\r\nnew//100007/@/Z\r\n");
  stations->NactiKategorie();
  EXPECT_EQ(tree.count(), 3U);
  EXPECT_EQ(tree.selected(), 2U);
  put(L"kategories.tt", "new//100005/@/X\r\n");
  stations->NactiKategorie();
  EXPECT_EQ(tree.selected(), 0U);
  (void)files.remove(machine.folder + L"\\kategories.tt");
  stations->NactiKategorie();
  EXPECT_EQ(tree.count(), 0U);
}

TEST_F(StationListTest, ChoosingNoNodeChangesNothing) {
  load(false);
  stations->NactiKategorie();
  const int changes = list.changes;
  stations->choose_category();
  EXPECT_EQ(list.changes, changes);
  EXPECT_EQ(status(), L"");
}

TEST_F(StationListTest, ReloadingListsEverythingFirstOnlyWithoutATree) {
  load(false);
  stations->NactiKategorie();
  const int before = list.changes;
  stations->reload();
  EXPECT_EQ(list.changes, before + 1) << "the category alone";
  EXPECT_EQ(status(), L"Zobrazeno 1 rádií");
  tree.clear();
  stations->reload();
  EXPECT_EQ(list.changes, before + 1 + 3) << "cleared, filled with every station, then the category";
  EXPECT_EQ(tree.count(), 2U);
}

TEST_F(StationListTest, AnUpdateSelectsNoOtherRowWithoutAnIdentifier) {
  put(L"radios.tt", station("RADIO1", "100001") + "/@/Bez/@//@//@//@/100001\r\n");
  put(L"kategories.tt", "new//100000/@/A\r\n");
  load(false);
  stations->NactiKategorie();
  window.set_visible(true);
  ASSERT_TRUE(list.user_pick(2, platform::MouseButton::left));
  ASSERT_EQ(stations->selected_text(), L"Bez");
  put(L"radios.tt", "/@/Jina/@//@//@//@/100001\r\n" + station("RADIO1", "100001"));
  stations->reload();
  EXPECT_EQ(list.count(), 2U);
  EXPECT_EQ(list.selected(), 0U);
  stations->select_station(L"");
  EXPECT_EQ(list.selected(), 0U);
}

TEST_F(StationListTest, TheListLetsGoOfItsRowsWithThem) {
  load(false);
  stations.reset();
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(list.cell(1, 0), L"");
}

} // namespace
} // namespace lumotune::test
