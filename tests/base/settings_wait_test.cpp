// SPDX-License-Identifier: LGPL-2.1-or-later
// A settings file that others write, hold or take away.
#include "tests/support/base_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

// The client's way of writing: the file goes and comes back line by line.
struct SettingsWaitTest : testing::Test {
  BaseWorld w;
  std::wstring file = w.path(L"Orb_Data\\options.ini");
  void write(std::size_t count) {
    auto lines = option_lines();
    lines[8] = "#008:klient:nova hodnota";
    for (std::size_t i = lines.size(); i < count; ++i)
      lines.push_back("#0" + std::to_string(i) + ":klient");
    lines.resize(count);
    w.put(L"Orb_Data\\options.ini", joined(lines));
  }
  void read() {
    w.options.LoadOptions();
    w.options.read_values();
  }
  // The file stays as it is, and the log says so.
  void save_in_vain() {
    w.settings.LTvolume = L"85";
    w.options.LoadOptions();
    w.options.SaveOptions();
    w.files.mend(file);
    EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
    EXPECT_EQ(w.get(L"Orb_Data\\error.log"), "1. 2. 2024 3:04:05 Lumotune (SaveOptions) options.ini\r\n");
    EXPECT_TRUE(w.dialogs.shown.empty()) << "nobody wants a box at the end";
  }
};

TEST_F(SettingsWaitTest, AFileThatIsBeingWrittenIsWaitedForAndReadAgain) {
  read();
  w.files.set_being_written(file, true);
  w.loop.at(300, [&] {
    write(26);
    w.files.set_being_written(file, false);
  });
  w.settings.LTvolume = L"85";
  w.options.LoadOptions();
  w.options.SaveOptions();
  const std::string saved = w.get(L"Orb_Data\\options.ini");
  EXPECT_NE(saved.find("#008:klient:nova hodnota\r\n"), std::string::npos);
  EXPECT_NE(saved.find("#025:klient\r\n"), std::string::npos);
  EXPECT_NE(saved.find("#020:LTvolume:85\r\n"), std::string::npos);
}

TEST_F(SettingsWaitTest, WhatTheClientWritesBetweenReadingAndSavingIsKept) {
  read();
  write(25);
  w.options.SaveOptions();
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("#024:klient\r\n"), std::string::npos);
}

TEST_F(SettingsWaitTest, AtTheStartAFileThatCannotBeReadIsWaitedForTwoSeconds) {
  for (const std::uint32_t released_at : {1900U, 60'000U}) {
    test::BaseWorld world;
    const std::wstring options = world.path(L"Orb_Data\\options.ini");
    world.files.make_unreadable(options);
    world.loop.at(released_at, [&] { world.files.mend(options); });
    const std::uint32_t begun = world.loop.tick_count_ms();
    world.options.LoadOptions();
    EXPECT_EQ(world.options.locked(), released_at > 2000);
    EXPECT_EQ(world.options.logged_in(), released_at < 2000);
    const std::uint32_t took = world.loop.tick_count_ms() - begun;
    EXPECT_GE(took, 1900U);
    EXPECT_LT(took, 2050U);
  }
}

TEST_F(SettingsWaitTest, AtTheEndItIsWaitedForOneSecondOnly) {
  test::BaseWorld world;
  world.options.LoadOptions();
  world.options.read_values();
  world.files.make_unreadable(world.path(L"Orb_Data\\options.ini"));
  const std::uint32_t begun = world.loop.tick_count_ms();
  world.options.LoadOptions();
  EXPECT_LT(world.loop.tick_count_ms() - begun, 1050U);
}

TEST_F(SettingsWaitTest, AFileThatIsWrittenIsUsedOnceItIsComplete) {
  for (const std::size_t lines : {base::options_line_count - 1, base::options_line_count}) {
    test::BaseWorld world;
    auto all = option_lines();
    all.resize(lines);
    world.put(L"Orb_Data\\options.ini", joined(all));
    world.files.set_being_written(world.path(L"Orb_Data\\options.ini"), true);
    world.options.LoadClientValues();
    EXPECT_EQ(world.settings.idh.empty(), lines < base::options_line_count);
  }
}

TEST_F(SettingsWaitTest, AHugeFileIsNotRead) {
  test::BaseWorld world;
  world.put(L"Orb_Data\\options.ini", joined(option_lines()) + std::string(base::SettingsFiles::max_bytes, 'x'));
  world.options.LoadOptions();
  EXPECT_TRUE(world.options.locked());
}

TEST_F(SettingsWaitTest, AFileThatIsMissingForAMomentIsWaitedFor) {
  read();
  (void)w.files.remove(file);
  w.loop.at(900, [&] { write(24); });
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("nova hodnota"), std::string::npos);
  EXPECT_NE(w.get(L"Orb_Data\\options.ini").find("#020:LTvolume:40\r\n"), std::string::npos);
}

TEST_F(SettingsWaitTest, AFileThatIsComplete24LinesButWasLongerIsWaitedFor) {
  write(30);
  read();
  write(27);
  w.loop.at(200, [&] { write(31); });
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_EQ(base::without_empty_lines(base::split_text_lines(w.get(L"Orb_Data\\options.ini"))).size(), 31U);
}

TEST_F(SettingsWaitTest, FewerLinesThatStayAreTheClientsWill) {
  write(30);
  read();
  write(27);
  w.options.LoadOptions();
  w.settings.LTvolume = L"85";
  w.options.SaveOptions();
  const std::string saved = w.get(L"Orb_Data\\options.ini");
  EXPECT_EQ(base::without_empty_lines(base::split_text_lines(saved)).size(), 27U);
  EXPECT_NE(saved.find("#020:LTvolume:85\r\n"), std::string::npos);
}

TEST_F(SettingsWaitTest, AWriterThatNeverEndsKeepsItsFileAndIsLogged) {
  read();
  w.files.set_being_written(file, true);
  const std::uint32_t start = w.loop.tick_count_ms();
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_LE(w.loop.tick_count_ms() - start, 2100U);
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
  EXPECT_EQ(w.get(L"Orb_Data\\error.log"), "1. 2. 2024 3:04:05 Lumotune (SaveOptions) options.ini\r\n");
}

TEST_F(SettingsWaitTest, AWholeFileIsNotWaitedFor) {
  read();
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_EQ(w.loop.wait_passes(), 0U);
}

TEST_F(SettingsWaitTest, BeforeAnyValueIsReadNothingIsSaved) {
  w.options.LoadOptions();
  w.options.SaveOptions();
  EXPECT_EQ(w.get(L"Orb_Data\\options.ini"), joined(option_lines()));
}

TEST_F(SettingsWaitTest, ASaveThatFailsIsLogged) {
  read();
  w.files.hold(file);
  save_in_vain();
}

TEST_F(SettingsWaitTest, AFileThatCannotBeReadAtTheEndIsLogged) {
  read();
  w.files.make_unreadable(file);
  save_in_vain();
}

} // namespace
} // namespace lumotune::test
