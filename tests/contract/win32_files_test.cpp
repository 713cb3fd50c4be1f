// SPDX-License-Identifier: LGPL-2.1-or-later
// Files that other programs hold, and two files that change together.
#include "platform/win32/win.h"
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <aclapi.h>
#include <memory>
#include <sddl.h>
#include <thread>

namespace lumotune::contract {
namespace {

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct Win32FilesTest : testing::Test {
  Backend b;
  std::wstring first = b.folder + L"\\radios.tt";
  std::wstring second = b.folder + L"\\kategories.tt";

  // The file as another program has it open.
  static platform::win32::KernelHandle held(const std::wstring& path, DWORD access, DWORD share) {
    return platform::win32::KernelHandle(
        CreateFileW(path.c_str(), access, share, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  }
  [[nodiscard]] std::string content(const std::wstring& path) const { return b.files.read(path).value_or("(missing)"); }
  [[nodiscard]] bool replace_both() { return b.files.replace_both(first, "new 1", second, "new 2"); }
  void put_old() {
    EXPECT_TRUE(b.files.replace(first, "old 1"));
    EXPECT_TRUE(b.files.replace(second, "old 2"));
  }
  void expect_old_and_nothing_beside() {
    EXPECT_EQ(content(first), "old 1");
    EXPECT_EQ(content(second), "old 2");
    EXPECT_EQ(b.files.list(b.folder, L"*").size(), 2U);
  }
};

TEST_F(Win32FilesTest, BothOrNeitherWhenTheSecondIsHeld) {
  put_old();
  const auto holder = held(second, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_FALSE(replace_both());
  expect_old_and_nothing_beside();
}

TEST_F(Win32FilesTest, BothOrNeitherWhenTheFirstIsHeld) {
  put_old();
  const auto holder = held(first, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_FALSE(replace_both());
  expect_old_and_nothing_beside();
}

TEST_F(Win32FilesTest, BothOrNeitherWhenOneIsAFolder) {
  EXPECT_TRUE(CreateDirectoryW(second.c_str(), nullptr));
  EXPECT_FALSE(replace_both());
  EXPECT_EQ(content(first), "(missing)") << "there was none before";
  EXPECT_TRUE(b.files.list(b.folder, L"*").empty());
  EXPECT_TRUE(RemoveDirectoryW(second.c_str()));
}

TEST_F(Win32FilesTest, WhatCannotBeWrittenBesideChangesNothing) {
  put_old();
  EXPECT_TRUE(CreateDirectoryW((second + L".new").c_str(), nullptr));
  EXPECT_FALSE(replace_both());
  expect_old_and_nothing_beside();
  EXPECT_TRUE(RemoveDirectoryW((second + L".new").c_str()));
  EXPECT_TRUE(replace_both()) << "and nothing stands in the way of the next time";
}

// Not every system lets an open file be replaced, whatever its reader shares.
TEST_F(Win32FilesTest, TheOldFileStaysUntilTheNewOneIsWritten) {
  put_old();
  const std::wstring beside = first + L".new";
  EXPECT_TRUE(CreateDirectoryW(beside.c_str(), nullptr)) << "where the new content would be written";
  EXPECT_FALSE(b.files.replace(first, "new"));
  EXPECT_EQ(content(first), "old 1");
  EXPECT_TRUE(RemoveDirectoryW(beside.c_str()));
}

TEST_F(Win32FilesTest, BothOrNeitherUnderTheEyesOfAReader) {
  for (const std::wstring& read : {first, second}) {
    put_old();
    const auto reader = held(read, GENERIC_READ, share_all);
    const bool done = replace_both();
    EXPECT_EQ(content(first), done ? "new 1" : "old 1");
    EXPECT_EQ(content(second), done ? "new 2" : "old 2");
  }
}

TEST_F(Win32FilesTest, OneFileOrNothingWhenItIsHeld) {
  put_old();
  const auto holder = held(first, GENERIC_READ, FILE_SHARE_READ);
  EXPECT_FALSE(b.files.replace(first, "new"));
  EXPECT_FALSE(b.files.remove(first));
  expect_old_and_nothing_beside();
}

TEST_F(Win32FilesTest, AWriterIsSeenWhateverHeShares) {
  for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}, share_all}) {
    auto writer = held(first, GENERIC_WRITE, share);
    EXPECT_TRUE(b.files.being_written(first)) << share;
    writer.reset();
    EXPECT_FALSE(b.files.being_written(first)) << share;
  }
  const auto reader = held(first, GENERIC_READ, share_all);
  EXPECT_FALSE(b.files.being_written(first)) << "a reader is none";
}

TEST_F(Win32FilesTest, AFileGrowsBeforeTheEyes) {
  const auto writer = held(first, GENERIC_WRITE, share_all);
  EXPECT_EQ(b.files.size(first), 0U);
  for (std::uint64_t length = 4; length <= 12; length += 4) {
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(writer.get(), "abcd", 4, &written, nullptr));
    EXPECT_EQ(b.files.size(first), length) << "it is not closed yet";
    EXPECT_EQ(b.files.stamp(first).value_or(platform::FileStamp{}).size, length);
    EXPECT_EQ(content(first).size(), length);
  }
}

TEST_F(Win32FilesTest, AFileThatIsShutToReadersIsUnreadableButThere) {
  EXPECT_TRUE(b.files.replace(first, "abc"));
  const auto writer = held(first, GENERIC_WRITE, 0);
  EXPECT_TRUE(b.files.exists(first));
  EXPECT_EQ(b.files.size(first), 3U);
  EXPECT_FALSE(b.files.read(first));
  EXPECT_FALSE(b.files.stamp(first));
}

TEST_F(Win32FilesTest, TheStampHasTheTimeOfTheLastWriting) {
  EXPECT_TRUE(b.files.replace(first, "abc"));
  const auto before = b.files.stamp(first);
  const auto writer = held(first, FILE_WRITE_ATTRIBUTES, share_all);
  FILETIME time{};
  EXPECT_TRUE(GetFileTime(held(first, GENERIC_READ, share_all).get(), nullptr, nullptr, &time));
  time.dwHighDateTime += 1;
  EXPECT_TRUE(SetFileTime(writer.get(), nullptr, nullptr, &time));
  EXPECT_NE(b.files.stamp(first), before) << "same length, same file";
}

TEST_F(Win32FilesTest, AHolderThatLetsGoIsWaitedFor) {
  put_old();
  auto holder = held(first, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  // Lets go once the new content lies beside the file: then the first try has failed or is about to.
  std::thread other([&] {
    while (GetFileAttributesW((first + L".new").c_str()) == INVALID_FILE_ATTRIBUTES)
      std::this_thread::yield();
    holder.reset();
  });
  EXPECT_TRUE(b.files.replace(first, "new 1"));
  other.join();
  EXPECT_EQ(content(first), "new 1");
  EXPECT_EQ(b.files.list(b.folder, L"*").size(), 2U);
}

TEST_F(Win32FilesTest, AHolderThatStaysIsTriedFiveTimes) {
  put_old();
  const auto holder = held(first, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  const DWORD start = GetTickCount();
  EXPECT_FALSE(b.files.replace(first, "new 1"));
  EXPECT_GE(GetTickCount() - start, 150U) << "four waits of 50 ms, counted by a clock of 16";
  expect_old_and_nothing_beside();
}

TEST_F(Win32FilesTest, AFileMarkedReadOnlyIsLeftAloneAtOnce) {
  put_old();
  EXPECT_TRUE(SetFileAttributesW(first.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(b.files.can_replace(first));
  EXPECT_FALSE(b.files.replace(first, "new 1"));
  EXPECT_FALSE(replace_both());
  EXPECT_TRUE(SetFileAttributesW(first.c_str(), FILE_ATTRIBUTE_NORMAL));
  expect_old_and_nothing_beside();
}

TEST_F(Win32FilesTest, TheOldFilesAttributesAreKept) {
  put_old();
  constexpr DWORD marks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  EXPECT_TRUE(SetFileAttributesW(first.c_str(), marks));
  ASSERT_EQ(GetFileAttributesW(first.c_str()) & marks, marks) << "the temporary folder's file system must keep them";
  EXPECT_TRUE(b.files.replace(first, "new 1"));
  EXPECT_EQ(GetFileAttributesW(first.c_str()) & marks, marks);
  EXPECT_TRUE(replace_both());
  EXPECT_EQ(GetFileAttributesW(first.c_str()) & marks, marks);
  EXPECT_EQ(GetFileAttributesW(second.c_str()) & marks, 0U);
  EXPECT_EQ(content(first), "new 1");
}

// The list that says who may do what, as text.
std::wstring access_rights(const std::wstring& path) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  wchar_t* text = nullptr;
  if (GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr, nullptr,
                            &descriptor) != ERROR_SUCCESS)
    return L"(none)";
  ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text,
                                                       nullptr);
  const std::wstring told = text == nullptr ? L"(none)" : text;
  LocalFree(text);
  LocalFree(descriptor);
  return told;
}

TEST_F(Win32FilesTest, TheOldFilesAccessRightsAreKept) {
  put_old();
  const std::wstring plain = access_rights(first);
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  PACL list = nullptr;
  BOOL present = FALSE;
  BOOL defaulted = FALSE;
  ASSERT_TRUE(
      ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &descriptor, nullptr));
  ASSERT_TRUE(GetSecurityDescriptorDacl(descriptor, &present, &list, &defaulted));
  std::wstring name = first;
  EXPECT_EQ(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                  DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                  list, nullptr),
            DWORD{ERROR_SUCCESS});
  LocalFree(descriptor);
  const std::wstring own = access_rights(first);
  ASSERT_NE(own, plain) << "the temporary folder's file system must keep them";
  EXPECT_TRUE(b.files.replace(first, "new 1"));
  EXPECT_EQ(access_rights(first), own);
  EXPECT_TRUE(replace_both());
  EXPECT_EQ(access_rights(first), own);
  EXPECT_EQ(access_rights(second), plain);
}

} // namespace
} // namespace lumotune::contract
