// SPDX-License-Identifier: LGPL-2.1-or-later
// Files that take the place of others while the machine dies, at every step, and while other programs hold them.
#include "base/crash_leftovers.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumotune::test {
namespace {

const std::wstring folder = L"C:\\Orb";
const std::wstring first = folder + L"\\radios.tt";
const std::wstring second = folder + L"\\kategories.tt";

void settle_leftovers(platform::memory::Files& files) {
  const platform::memory::Codec codec;
  const platform::memory::Machine machine;
  base::settle_leftovers({files, codec, machine});
}

struct FileReplacingTest : testing::Test {
  // A missing file and an empty one are the same to whoever reads them.
  static std::string content(const platform::memory::Files& files, const std::wstring& path) {
    return files.read(path).value_or("");
  }
  static void put(platform::memory::Files& files, const std::wstring& path, const char* bytes) {
    if (*bytes != 0) {
      ASSERT_TRUE(files.replace(path, bytes));
    }
  }
  static void expect_nothing_beside(const platform::memory::Files& files) {
    for (const std::wstring& name : files.list(folder, L"*"))
      EXPECT_TRUE(name.ends_with(L".tt"));
  }
  static void expect_pair(const platform::memory::Files& files, const char* old_first, const char* old_second,
                          bool may_be_new) {
    const std::string one = content(files, first);
    const std::string two = content(files, second);
    const bool old = one == old_first && two == old_second;
    EXPECT_TRUE(old || (may_be_new && one == "new 1" && two == "new 2")) << one << ", " << two;
    expect_nothing_beside(files);
  }
};

TEST_F(FileReplacingTest, OneFileIsOldOrNewAfterACrashAtAnyStep) {
  int step = 0;
  for (bool died = true; died; ++step) {
    platform::memory::Files files;
    put(files, first, "old");
    files.crash_at(step);
    const bool done = files.replace(first, "new");
    died = files.power_on();
    files.settle(first);
    EXPECT_EQ(content(files, first), done ? "new" : "old") << step;
    expect_nothing_beside(files);
  }
  EXPECT_EQ(step, 3) << "two steps, and a run in which the machine lives";
}

// The start after a crash may crash as well.
TEST_F(FileReplacingTest, TwoFilesAreBothOldOrBothNewAfterCrashesAtAnySteps) {
  struct Before {
    const char* first;
    const char* second;
  };
  int crashes = 0;
  for (const Before before : {Before{"old 1", "old 2"}, Before{"old 1", ""}, Before{"", "old 2"}, Before{"", ""}}) {
    bool died = true;
    for (int step = 0; died; ++step) {
      bool died_again = true;
      for (int again = 0; died_again; ++again) {
        SCOPED_TRACE(std::string(before.first) + "/" + before.second + " " + std::to_string(step) + " " +
                     std::to_string(again));
        platform::memory::Files files;
        put(files, first, before.first);
        put(files, second, before.second);
        files.crash_at(step);
        (void)files.replace_both(first, "new 1", second, "new 2");
        died = files.power_on();
        crashes += died ? 1 : 0;
        files.crash_at(again);
        files.settle(first, second);
        died_again = files.power_on();
        files.settle(first, second);
        expect_pair(files, before.first, before.second, true);
      }
    }
  }
  EXPECT_GT(crashes, 40);
}

TEST_F(FileReplacingTest, TheWayBackSurvivesACrashAtAnyStep) {
  for (const char* old_first : {"old 1", ""}) {
    bool died = true;
    for (int step = 0; died; ++step) {
      SCOPED_TRACE(std::string(old_first) + " " + std::to_string(step));
      platform::memory::Files files;
      put(files, first, old_first);
      put(files, second, "old 2");
      files.hold(second);
      files.crash_at(step);
      EXPECT_FALSE(files.replace_both(first, "new 1", second, "new 2"));
      died = files.power_on();
      files.settle(first, second);
      expect_pair(files, old_first, "old 2", false);
    }
  }
}

TEST_F(FileReplacingTest, APairIsCompletedAtTheNextStartUnlessTheSecondFileIsNewer) {
  for (const bool newer : {false, true}) {
    platform::memory::Files files;
    put(files, first, "old 1");
    put(files, second, "old 2");
    files.crash_at(4); // both new files, the copy and the first file's change are done
    EXPECT_FALSE(files.replace_both(first, "new 1", second, "new 2"));
    EXPECT_TRUE(files.power_on());
    EXPECT_EQ(content(files, first), "new 1");
    EXPECT_EQ(content(files, second), "old 2");
    if (newer) {
      EXPECT_TRUE(files.append(second, " and more"));
    }
    settle_leftovers(files);
    EXPECT_EQ(content(files, second), newer ? "old 2 and more" : "new 2");
    expect_nothing_beside(files);
  }
}

TEST_F(FileReplacingTest, AnOldFileComesBackWhereThereIsNone) {
  platform::memory::Files files;
  put(files, first + L".old", "old 1");
  settle_leftovers(files);
  EXPECT_EQ(content(files, first), "old 1");
  EXPECT_EQ(files.list(folder, L"*").size(), 1U);
}

TEST_F(FileReplacingTest, EveryFileThatIsWrittenIsPutInOrderAtTheStart) {
  for (const wchar_t* name :
       {L"\\Orb_Data\\options.ini", L"\\Orb_Data\\orb_server.tt", L"\\list.tt", L"\\radios.tt", L"\\kategories.tt"}) {
    platform::memory::Files files;
    const std::wstring path = folder + name;
    put(files, path, "whole");
    put(files, path + L".new", "to");
    settle_leftovers(files);
    EXPECT_EQ(content(files, path), "whole");
    EXPECT_FALSE(files.exists(path + L".new"));
  }
}

TEST_F(FileReplacingTest, AHolderThatLetsGoIsWaitedFor) {
  platform::memory::Files files;
  put(files, first, "old");
  files.hold(first);
  int waits = 0;
  files.while_waiting = [&] {
    if (++waits == 3)
      files.release(first);
  };
  EXPECT_TRUE(files.replace(first, "new"));
  EXPECT_EQ(content(files, first), "new");
  EXPECT_EQ(files.waited_ms, 150);
}

TEST_F(FileReplacingTest, ALeftoverThatIsHeldForAMomentIsRemovedAllTheSame) {
  for (const std::wstring& left : {first + L".new", second + L".new", folder + L"\\list.tt.new"}) {
    platform::memory::Files files;
    put(files, left, "torn");
    files.hold(left);
    int waits = 0;
    files.while_waiting = [&] {
      if (++waits == 3)
        files.release(left);
    };
    settle_leftovers(files);
    expect_nothing_beside(files);
    EXPECT_EQ(files.waited_ms, 150);
  }
}

TEST_F(FileReplacingTest, ALeftoverThatStaysHeldCostsFiveTries) {
  platform::memory::Files files;
  put(files, first + L".new", "torn");
  files.hold(first + L".new");
  files.settle(first, second);
  EXPECT_EQ(files.waited_ms, 200);
}

TEST_F(FileReplacingTest, AHolderThatStaysCostsFiveTriesAndTheOldFileStays) {
  platform::memory::Files files;
  put(files, first, "old");
  files.hold(first);
  EXPECT_FALSE(files.replace(first, "new"));
  EXPECT_EQ(content(files, first), "old");
  EXPECT_EQ(files.waited_ms, 200);
  expect_nothing_beside(files);
}

TEST_F(FileReplacingTest, TwoFilesThatAreHeldCostAsMuchTwiceAtMost) {
  platform::memory::Files files;
  put(files, first, "old 1");
  put(files, second, "old 2");
  files.hold(second);
  files.while_waiting = [&] { files.hold(first); }; // so that it cannot come back either
  EXPECT_FALSE(files.replace_both(first, "new 1", second, "new 2"));
  EXPECT_LE(files.waited_ms, 400);
  EXPECT_FALSE(files.replace_both(first, "newer 1", second, "newer 2")) << "not before the last one is put right";
  files.release(first);
  files.release(second);
  settle_leftovers(files);
  EXPECT_EQ(content(files, first), "new 1");
  EXPECT_EQ(content(files, second), "new 2");
  expect_nothing_beside(files);
}

TEST_F(FileReplacingTest, AReplacementSettlesWhatACrashLeft) {
  for (const int step : {1, 2, 3, 4}) {
    platform::memory::Files files;
    put(files, first, "old 1");
    put(files, second, "old 2");
    files.crash_at(step);
    EXPECT_FALSE(files.replace_both(first, "torn 1", second, "torn 2"));
    EXPECT_TRUE(files.power_on());
    EXPECT_TRUE(files.replace_both(first, "new 1", second, "new 2")) << step;
    expect_pair(files, "new 1", "new 2", false);
  }
}

TEST_F(FileReplacingTest, AFirstFileThatIsHeldLeavesNothingBeside) {
  platform::memory::Files files;
  put(files, first, "old 1");
  put(files, second, "old 2");
  files.hold(first);
  EXPECT_FALSE(files.replace_both(first, "new 1", second, "new 2"));
  expect_pair(files, "old 1", "old 2", false);
}

TEST_F(FileReplacingTest, AFirstFileThatWasNotThereIsNotThereAfterTheWayBack) {
  platform::memory::Files files;
  put(files, second, "old 2");
  files.hold(second);
  EXPECT_FALSE(files.replace_both(first, "new 1", second, "new 2"));
  EXPECT_FALSE(files.exists(first)) << "not even empty";
  expect_pair(files, "", "old 2", false);
}

TEST_F(FileReplacingTest, WhatIsReadOnlyIsNotWaitedFor) {
  platform::memory::Files files;
  put(files, first, "old");
  files.make_readonly(first);
  EXPECT_FALSE(files.can_replace(first));
  EXPECT_FALSE(files.replace(first, "new"));
  EXPECT_EQ(files.waited_ms, 0);
  files.make_folder_readonly(folder);
  EXPECT_FALSE(files.replace(second, "new"));
  EXPECT_FALSE(files.can_replace(second));
  EXPECT_FALSE(files.append(second, "new"));
  EXPECT_TRUE(files.can_replace(L"C:\\Jinde\\a"));
}

} // namespace
} // namespace lumotune::test
