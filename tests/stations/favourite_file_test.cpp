// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/favourite_file.h"

#include "tests/support/stations_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct FavouriteFileTest : testing::Test {
  StationsWorld w;
  stations::FavouriteFile file{w.folder};
};

TEST_F(FavouriteFileTest, RemovingWhatIsNotThereRewritesTheRest) {
  w.put(L"list.tt", "\r\n\r\nlt:RADIO1/1\r\nbez konce");
  EXPECT_EQ(file.remove(L"lt:RADIO9/1"), stations::FavouriteRemoved::not_there);
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/1\r\nbez konce\r\n");
  EXPECT_EQ(file.remove(L""), stations::FavouriteRemoved::not_there) << "an empty line is no favourite";
}

TEST_F(FavouriteFileTest, RemovingTheLastOneLeavesAnEmptyLine) {
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  EXPECT_EQ(file.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::removed);
  EXPECT_EQ(w.get(L"list.tt"), "\r\n");
}

TEST_F(FavouriteFileTest, EveryByteOfTheOtherLinesIsKept) {
  std::string line;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '\r' && byte != '\n')
      line += static_cast<char>(byte);
  }
  w.put(L"list.tt", line + "\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(file.add(L"lt:RADIO2/1"), stations::FavouriteAdded::added);
  EXPECT_EQ(file.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::removed);
  EXPECT_EQ(w.get(L"list.tt"), "\r\n" + line + "\r\nlt:RADIO2/1\r\n");
}

TEST_F(FavouriteFileTest, RemovingComparesWithoutLetterCaseAndTakesEveryEqualLine) {
  w.put(L"list.tt", "lt:RADIO1/1\r\nLT:radio1/1\r\nlt:RADIO1/2\r\n");
  EXPECT_EQ(file.remove(L"lt:Radio1/1"), stations::FavouriteRemoved::removed);
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/2\r\n");
}

TEST_F(FavouriteFileTest, RemovingReplacesTheFileInOneStep) {
  w.put(L"list.tt", "lt:RADIO1/1\r\nlt:radio2/2\r\n");
  const std::size_t before = w.files.changes().size();
  EXPECT_EQ(file.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::removed);
  ASSERT_EQ(w.files.changes().size(), before + 1);
  EXPECT_EQ(w.files.changes().back(), L"replace C:\\Orb\\list.tt");
}

TEST_F(FavouriteFileTest, AddingAppends) {
  w.put(L"list.tt", "\r\nlt:RADIO1/1\r\n\r\n");
  EXPECT_EQ(file.add(L"lt:radio2/3"), stations::FavouriteAdded::added);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\nlt:radio2/3\r\n");
}

TEST_F(FavouriteFileTest, AddingInAnotherQualityAddsASecondLine) {
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  EXPECT_EQ(file.add(L"lt:RADIO1/2"), stations::FavouriteAdded::added);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\nlt:RADIO1/2\r\n");
}

TEST_F(FavouriteFileTest, AddingTwiceChangesNothing) {
  w.put(L"list.tt", "LT:radio1/1\r\n");
  const std::size_t changes = w.files.changes().size();
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::already_there);
  EXPECT_EQ(w.get(L"list.tt"), "LT:radio1/1\r\n");
  EXPECT_EQ(w.files.changes().size(), changes) << "what would be the same is not written";
}

TEST_F(FavouriteFileTest, AddingDropsEmptyLinesAlsoWhenItIsThere) {
  w.put(L"list.tt", "\r\nlt:RADIO1/1\r\n\r\n");
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::already_there);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
}

TEST_F(FavouriteFileTest, AddingMakesAMissingFile) {
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::added);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
}

TEST_F(FavouriteFileTest, AnEmptyLineCountsAsAddedAndIsNotWritten) {
  EXPECT_EQ(file.add(L""), stations::FavouriteAdded::added);
  EXPECT_FALSE(w.files.exists(w.path(L"list.tt"))) << "nothing to write, no file";
  w.put(L"list.tt", "\r\n\r\n");
  EXPECT_EQ(file.add(L""), stations::FavouriteAdded::added);
  EXPECT_FALSE(w.files.exists(w.path(L"list.tt")));
  w.put(L"list.tt", "\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(file.add(L""), stations::FavouriteAdded::added);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
}

TEST_F(FavouriteFileTest, AddingWhereNothingCanBeWrittenFailsAndLosesNothing) {
  w.files.make_readonly(w.path(L"list.tt"));
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::failed);
  EXPECT_FALSE(w.files.exists(w.path(L"list.tt")));
  w.files.mend(w.path(L"list.tt"));
  w.put(L"list.tt", "lt:radio2/2\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::failed);
  EXPECT_EQ(file.add(L"lt:RADIO2/2"), stations::FavouriteAdded::already_there);
  EXPECT_EQ(w.get(L"list.tt"), "lt:radio2/2\r\n");
  w.files.mend(w.path(L"list.tt"));
  w.files.make_unreadable(w.path(L"list.tt"));
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::failed);
  w.files.mend(w.path(L"list.tt"));
  EXPECT_EQ(w.get(L"list.tt"), "lt:radio2/2\r\n");
}

TEST_F(FavouriteFileTest, ATextOfSeveralLinesIsNoFavourite) {
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  EXPECT_EQ(file.add(L"lt:RADIO2/1\r\nlt:RADIO3/1"), stations::FavouriteAdded::failed);
  EXPECT_EQ(file.add(std::wstring(L"lt:RADIO2/1\0", 12)), stations::FavouriteAdded::failed);
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO1/1\r\n");
}

TEST_F(FavouriteFileTest, OneThatIsThereIsThereThoughTheFileCannotBeTidied) {
  w.put(L"list.tt", "\r\nlt:RADIO1/1\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  EXPECT_EQ(file.add(L"lt:RADIO1/1"), stations::FavouriteAdded::already_there);
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/1\r\n");
}

TEST_F(FavouriteFileTest, RemovingTellsAFileThatIsMissingFromOneThatCannotBeRead) {
  EXPECT_EQ(file.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::not_there);
  w.put(L"list.tt", "lt:RADIO1/1\r\n");
  w.files.make_unreadable(w.path(L"list.tt"));
  EXPECT_EQ(file.remove(L"lt:RADIO1/1"), stations::FavouriteRemoved::failed);
}

TEST_F(FavouriteFileTest, AddingManyCountsThoseThatAreNew) {
  w.put(L"list.tt", "\r\nLT:radio1/1\r\n");
  EXPECT_EQ(file.add_all({L"lt:RADIO1/1", L"lt:RADIO2/1", L"", L"lt:radio2/1", L"lt:RADIO3/5"}), 2U);
  EXPECT_EQ(w.get(L"list.tt"), "LT:radio1/1\r\nlt:RADIO2/1\r\nlt:RADIO3/5\r\n");
}

TEST_F(FavouriteFileTest, AddingManyThatAreThereWritesNothing) {
  w.put(L"list.tt", "\r\nlt:RADIO1/1\r\n");
  const std::size_t changes = w.files.changes().size();
  EXPECT_EQ(file.add_all({L"lt:radio1/1", L""}), 0U);
  EXPECT_EQ(file.add_all({}), 0U);
  EXPECT_EQ(w.get(L"list.tt"), "\r\nlt:RADIO1/1\r\n");
  EXPECT_EQ(w.files.changes().size(), changes);
}

TEST_F(FavouriteFileTest, AddingManyIsAllOrNothing) {
  EXPECT_EQ(file.add_all({L"lt:RADIO1/1", std::wstring(L"lt:RADIO2/1\0", 12)}), std::nullopt);
  EXPECT_EQ(file.add_all({L"lt:RADIO1/1", L"lt:RADIO2/1\r\nlt:RADIO3/1"}), std::nullopt);
  EXPECT_FALSE(w.files.exists(w.path(L"list.tt")));
  w.put(L"list.tt", "lt:RADIO9/1\r\n");
  w.files.make_readonly(w.path(L"list.tt"));
  EXPECT_EQ(file.add_all({L"lt:RADIO1/1"}), std::nullopt);
  w.files.mend(w.path(L"list.tt"));
  w.files.make_unreadable(w.path(L"list.tt"));
  EXPECT_EQ(file.add_all({L"lt:RADIO1/1"}), std::nullopt);
  w.files.mend(w.path(L"list.tt"));
  EXPECT_EQ(w.get(L"list.tt"), "lt:RADIO9/1\r\n");
}

} // namespace
} // namespace lumotune::test
