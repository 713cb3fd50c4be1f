// SPDX-License-Identifier: LGPL-2.1-or-later
// How often the running program reads the station file: never because a menu opens or an arrow key is pressed.
#include "tests/app/program_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;

struct StationReads : ProgramWorld {
  platform::memory::ListBox& list = *window.list(L"Control_List");

  StationReads() {
    std::string stations;
    std::string favourites;
    for (int i = 10; i < 60; ++i) {
      const std::string id = "RADI" + std::to_string(i);
      stations += PlayerWorld::record(id, "N" + id, "u1", "u2");
      favourites += "lt:" + id + "/2\r\n";
    }
    put(L"radios.tt", stations);
    put(L"list.tt", favourites);
    put(L"kategories.tt", "new//100000/@/A\r\nnew//100001/@/B\r\n");
    EXPECT_TRUE(program.start());
  }
  [[nodiscard]] std::size_t reads() const { return files.reads(machine.folder + L"\\radios.tt"); }
  template <typename Kind>
  Kind& part(const wchar_t* name) {
    return *framed_windows.last->find<Kind>(name);
  }
  void open_directory() {
    auto* button = window.picture(L"Control_Sat");
    button->set_visible(true);
    button->user_click();
    ASSERT_TRUE(program.directory.open());
  }
};

TEST_F(StationReads, TheStartReadsItOnce) {
  EXPECT_EQ(list.count(), 50U);
  EXPECT_EQ(reads(), 1U);
  open_directory();
  EXPECT_EQ(part<platform::memory::ListView>(L"ListView1").count(), 50U);
  EXPECT_EQ(reads(), 1U) << "the directory has the same lines";
}

TEST_F(StationReads, TheDirectoryHoldsTheOwnersLinesAndNoCopy) {
  const long alone = program.station_files.stations().use_count();
  open_directory();
  EXPECT_GT(program.station_files.stations().use_count(), alone);
}

TEST_F(StationReads, NoMenuReadsIt) {
  ASSERT_TRUE(list.user_pick(3));
  ASSERT_TRUE(window.picture(L"Control_Play")->user_click());
  const std::size_t before = reads();
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(window.label(L"InfoName")->user_click());
    EXPECT_TRUE(window.picture(L"Control_Menu")->user_click());
    EXPECT_TRUE(window.picture(L"Control_Volume")->user_click());
    tray_event(517);
    program.menus.open_favourite();
  }
  EXPECT_EQ(popups.opened.size(), 50U);
  EXPECT_EQ(reads(), before);
}

TEST_F(StationReads, NoArrowKeyInTheFavouritesReadsIt) {
  const std::size_t before = reads();
  auto* play = window.picture(L"Control_Play");
  for (std::size_t i = 0; i < 100; ++i) {
    EXPECT_TRUE(list.user_pick(i % list.count())) << "a list box tells a key that moves its selection as a click";
    if (i % 10 == 9) {
      EXPECT_TRUE(play->user_click());
      EXPECT_EQ(program.session.station_name, L"NRADI" + std::to_wstring(10 + i % 50));
      EXPECT_TRUE(play->user_click()) << "ends it again";
    }
  }
  EXPECT_EQ(program.settings.IDlastRadio, L"RADI59");
  EXPECT_EQ(reads(), before);
}

TEST_F(StationReads, NeitherMenusNorArrowKeysOfTheDirectoryReadIt) {
  open_directory();
  auto& rows = part<platform::memory::ListView>(L"ListView1");
  ASSERT_TRUE(rows.user_pick(1, MouseButton::left)) << "the keyboard goes where the mouse is pressed";
  const std::size_t before = reads();
  for (std::size_t i = 0; i < 100; ++i) {
    EXPECT_TRUE(rows.user_arrow(1 + i % rows.count()));
    EXPECT_EQ(part<platform::memory::Label>(L"Label2").text(), L"NRADI" + std::to_wstring(10 + i % 50));
  }
  for (std::size_t i = 1; i <= 10; ++i) {
    EXPECT_TRUE(rows.user_pick(i, MouseButton::left));
    EXPECT_TRUE(part<platform::memory::Label>(L"Label5").user_click());
    EXPECT_TRUE(part<platform::memory::Label>(L"Label7").user_click());
    EXPECT_TRUE(rows.user_pick(i, MouseButton::right));
    EXPECT_TRUE(part<platform::memory::TreeView>(L"TreeView1").user_pick(1 + i % 2));
  }
  EXPECT_EQ(popups.opened.size(), 30U);
  EXPECT_EQ(reads(), before);
}

} // namespace
} // namespace lumotune::test
