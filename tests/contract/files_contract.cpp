// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace lumotune::contract {
namespace {

struct FilesContract : testing::Test {
  Backend b;
  std::wstring path = b.folder + L"\\soubor ř.txt";
};

TEST_F(FilesContract, AMissingFileIsMissing) {
  EXPECT_FALSE(b.files.exists(path));
  EXPECT_FALSE(b.files.size(path));
  EXPECT_FALSE(b.files.read(path));
  std::string bytes = "staré";
  EXPECT_FALSE(b.files.read_into(path, bytes));
  EXPECT_TRUE(bytes.empty());
  EXPECT_TRUE(b.files.remove(path)) << "it is gone";
}

TEST_F(FilesContract, BytesComeBackExactly) {
  const std::string bytes("a\0b\r\n\xff\x81z", 8);
  EXPECT_TRUE(b.files.replace(path, bytes));
  EXPECT_TRUE(b.files.exists(path));
  EXPECT_EQ(b.files.size(path), 8U);
  EXPECT_EQ(b.files.read(path), bytes);
  EXPECT_TRUE(b.files.replace(path, ""));
  EXPECT_EQ(b.files.read(path), "");
}

TEST_F(FilesContract, ALongerFileThanAskedForCountsAsUnreadable) {
  EXPECT_TRUE(b.files.replace(path, "abcd"));
  std::string bytes;
  for (const std::uint64_t limit : {4U, 5U}) {
    EXPECT_TRUE(b.files.read_at_most(path, bytes, limit));
    EXPECT_EQ(bytes, "abcd");
  }
  for (const std::uint64_t limit : {3U, 0U}) {
    bytes = "old";
    EXPECT_FALSE(b.files.read_at_most(path, bytes, limit));
    EXPECT_EQ(bytes, "");
  }
}

TEST_F(FilesContract, TheDiskOfAFolderHasRoom) {
  const auto room = b.files.free_bytes(b.folder);
  ASSERT_TRUE(room.has_value());
  EXPECT_GT(*room, 1'000'000U);
}

TEST_F(FilesContract, ReplacingLeavesNothingBeside) {
  EXPECT_TRUE(b.files.replace(path, "první"));
  EXPECT_TRUE(b.files.replace(path, "druhý"));
  EXPECT_EQ(b.files.read(path), "druhý");
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 1U);
  EXPECT_TRUE(b.files.remove(path));
}

TEST_F(FilesContract, TwoFilesAreReplacedAtOnce) {
  const std::wstring other = b.folder + L"\\jiny";
  EXPECT_TRUE(b.files.replace_both(path, "a", other, "b")) << "made";
  EXPECT_EQ(b.files.read(path), "a");
  EXPECT_EQ(b.files.read(other), "b");
  EXPECT_TRUE(b.files.replace_both(path, "", other, "delší")) << "replaced";
  EXPECT_EQ(b.files.read(path), "");
  EXPECT_EQ(b.files.read(other), "delší");
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 2U) << "nothing is left beside";
  EXPECT_TRUE(b.files.remove(other));
  EXPECT_TRUE(b.files.replace_both(path, "c", other, "d")) << "one of each";
  EXPECT_EQ(b.files.read(path), "c");
  EXPECT_EQ(b.files.read(other), "d");
}

TEST_F(FilesContract, TheStampChangesWithTheContentAndOnlyThen) {
  const std::wstring other = b.folder + L"\\jiny";
  EXPECT_FALSE(b.files.stamp(path)) << "a missing file has none";
  EXPECT_TRUE(b.files.replace(path, "ab"));
  auto before = b.files.stamp(path);
  ASSERT_TRUE(before);
  EXPECT_EQ(before->size, 2U);
  const auto changed = [&] {
    const auto now = b.files.stamp(path);
    return std::exchange(before, now) != now && now.has_value();
  };
  EXPECT_EQ(b.files.read(path), "ab");
  EXPECT_TRUE(b.files.replace(other, "xy"));
  EXPECT_FALSE(changed()) << "read, and another one written";
  EXPECT_TRUE(b.files.replace(path, "cd"));
  EXPECT_TRUE(changed()) << "of the same length, at once";
  EXPECT_TRUE(b.files.append(path, "e"));
  EXPECT_TRUE(changed()) << "in its place";
  EXPECT_TRUE(b.files.replace_both(other, "xyz", path, "fgh"));
  EXPECT_TRUE(changed()) << "the second of two";
  EXPECT_TRUE(b.files.move(other, path));
  EXPECT_TRUE(changed()) << "another file took its place";
  EXPECT_TRUE(b.files.remove(path));
  EXPECT_FALSE(b.files.stamp(path));
  EXPECT_FALSE(b.files.stamp(b.folder)) << "a folder has none";
}

TEST_F(FilesContract, AFileThatNobodyHoldsIsNotBeingWritten) {
  EXPECT_FALSE(b.files.being_written(path)) << "nor is one that is missing";
  EXPECT_TRUE(b.files.replace(path, "a"));
  EXPECT_FALSE(b.files.being_written(path));
}

TEST_F(FilesContract, AppendingMakesAndLengthens) {
  EXPECT_TRUE(b.files.append(path, "a"));
  EXPECT_TRUE(b.files.append(path, "b"));
  EXPECT_EQ(b.files.read(path), "ab");
  EXPECT_TRUE(b.files.remove(path));
  EXPECT_FALSE(b.files.exists(path));
}

TEST_F(FilesContract, CopiesOverAnExistingFile) {
  const std::wstring other = b.folder + L"\\jiny";
  EXPECT_TRUE(b.files.replace(path, "nový"));
  EXPECT_TRUE(b.files.replace(other, "starý"));
  EXPECT_TRUE(b.files.copy(path, other));
  EXPECT_EQ(b.files.read(other), "nový");
  EXPECT_FALSE(b.files.copy(b.folder + L"\\neni", other));
  EXPECT_EQ(b.files.read(other), "nový");
  EXPECT_TRUE(b.files.remove(other));
  EXPECT_TRUE(b.files.remove(path));
}

TEST_F(FilesContract, LetterCaseAndKindOfSlashDoNotMatter) {
  EXPECT_TRUE(b.files.replace(b.folder + L"\\Abc.txt", "x"));
  EXPECT_TRUE(b.files.exists(b.folder + L"/aBC.TXT"));
  EXPECT_EQ(b.files.read(b.folder + L"/abc.txt"), "x");
  EXPECT_TRUE(b.files.remove(b.folder + L"\\ABC.TXT"));
}

TEST_F(FilesContract, ListsByPattern) {
  for (const wchar_t* name : {L"Jedna.skin", L"Dvě.SKIN", L"tři.txt"})
    EXPECT_TRUE(b.files.replace(b.folder + L"\\" + name, ""));
  auto names = b.files.list(b.folder, L"*.skin");
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::wstring>{L"Dvě.SKIN", L"Jedna.skin"}));
  EXPECT_TRUE(b.files.list(b.folder + L"\\neni", L"*").empty());
  for (const wchar_t* name : {L"Jedna.skin", L"Dvě.SKIN", L"tři.txt"})
    EXPECT_TRUE(b.files.remove(b.folder + L"\\" + name));
}

TEST_F(FilesContract, ALargeFileComesBackWhole) {
  const std::string bytes(20 * 1024 * 1024 + 7, 'x');
  EXPECT_TRUE(b.files.replace(path, bytes));
  EXPECT_EQ(b.files.read(path), bytes);
  EXPECT_TRUE(b.files.remove(path));
}

TEST_F(FilesContract, MovesOverAnExistingFile) {
  const std::wstring other = b.folder + L"\\jiny";
  EXPECT_FALSE(b.files.move(path, other)) << "there is none";
  EXPECT_TRUE(b.files.replace(path, "nový"));
  EXPECT_TRUE(b.files.replace(other, "starý"));
  EXPECT_TRUE(b.files.move(path, other));
  EXPECT_EQ(b.files.read(other), "nový");
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 1U);
}

TEST_F(FilesContract, AFileOfAFolderThatTakesFilesCanBeReplacedAndTryingLeavesNothing) {
  EXPECT_TRUE(b.files.can_replace(path)) << "there is none yet";
  EXPECT_TRUE(b.files.list(b.folder, L"*").empty());
  EXPECT_TRUE(b.files.replace(path, "a"));
  EXPECT_TRUE(b.files.can_replace(path));
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 1U);
  EXPECT_EQ(b.files.read(path), "a");
}

TEST_F(FilesContract, AFolderIsMadeOnceAndTakesFiles) {
  const std::wstring folder = b.folder + L"\\Proužek";
  EXPECT_TRUE(b.files.make_folder(folder));
  EXPECT_FALSE(b.files.exists(folder)) << "it is no file";
  EXPECT_TRUE(b.files.replace(folder + L"\\a.gif", "a"));
  EXPECT_TRUE(b.files.make_folder(folder)) << "it is there";
  EXPECT_EQ(b.files.read(folder + L"\\a.gif"), "a");
  EXPECT_TRUE(b.files.remove(folder + L"\\a.gif"));
}

TEST_F(FilesContract, WhereAFileLiesNoFolderIsMade) {
  EXPECT_TRUE(b.files.replace(path, "a"));
  EXPECT_FALSE(b.files.make_folder(path));
  EXPECT_EQ(b.files.read(path), "a");
}

TEST_F(FilesContract, AHalfWrittenFileGoes) {
  EXPECT_TRUE(b.files.replace(path, "celý"));
  EXPECT_TRUE(b.files.append(path + L".new", "ce"));
  b.files.settle(path);
  EXPECT_EQ(b.files.read(path), "celý");
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 1U);
  b.files.settle(path);
  EXPECT_EQ(b.files.read(path), "celý");
}

// What a crash leaves at each step of replacing two files, as the disk shows it.
TEST_F(FilesContract, ACrashBetweenTwoFilesIsPutRight) {
  struct Left {
    const char* first;
    const char* first_new;
    const char* first_old;
    const char* second;
    const char* second_new;
    const char* expected_first;
    const char* expected_second;
  };
  const std::wstring other = b.folder + L"\\jiny";
  for (const Left& left : {Left{"1", "2", "", "1", "", "1", "1"}, Left{"1", "2", "", "1", "2", "1", "1"},
                           Left{"1", "2", "1", "1", "2", "1", "1"}, Left{"2", "", "1", "1", "2", "2", "2"},
                           Left{"2", "", "1", "2", "", "2", "2"}, Left{"1", "", "", "1", "2", "1", "1"},
                           Left{"", "", "1", "1", "2", "1", "1"}, Left{"", "", "1", "", "", "1", ""}}) {
    const std::pair<std::wstring, const char*> all[] = {{path, left.first},
                                                        {path + L".new", left.first_new},
                                                        {path + L".old", left.first_old},
                                                        {other, left.second},
                                                        {other + L".new", left.second_new}};
    for (const auto& [name, bytes] : all) {
      EXPECT_TRUE(b.files.remove(name));
      if (*bytes != 0) {
        EXPECT_TRUE(b.files.append(name, bytes));
      }
    }
    b.files.settle(path, other);
    EXPECT_EQ(b.files.read(path).value_or(""), left.expected_first);
    EXPECT_EQ(b.files.read(other).value_or(""), left.expected_second);
    EXPECT_EQ(b.files.list(b.folder, L"*").size(), *left.expected_second == 0 ? 1U : 2U) << "nothing beside";
  }
}

} // namespace
} // namespace lumotune::contract
