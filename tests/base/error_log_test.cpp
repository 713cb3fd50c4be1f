// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/error_log.h"

#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

struct ErrorLogTest : testing::Test, MemoryPlatform {
  base::ErrorLog log{{folder, machine}};
  std::wstring path = machine.folder + L"\\Orb_Data\\error.log";
  std::wstring old = path + L".old";
  [[nodiscard]] std::uint64_t size(const std::wstring& file) const { return files.size(file).value_or(0); }
};

TEST_F(ErrorLogTest, IsPutAsideWhenItIsFullAndBothStayBounded) {
  constexpr std::uint64_t limit = base::ErrorLog::max_bytes;
  EXPECT_TRUE(files.replace(path, std::string(limit - 11, 'a') + "\n"));
  log.add(L"LoadSkin", L"prvni");
  EXPECT_EQ(size(old), limit - 10);
  EXPECT_EQ(files.read(path), "1. 2. 2024 3:04:05 Lumotune (LoadSkin) prvni\r\n");
  EXPECT_TRUE(files.replace(path, std::string(limit, 'b')));
  log.add(L"LoadSkin", L"druhy");
  EXPECT_EQ(files.read(old), std::string(limit, 'b')) << "the oldest lines go";
}

TEST_F(ErrorLogTest, FillsUpToItsLimit) {
  const std::string line = "1. 2. 2024 3:04:05 Lumotune (a) b\r\n";
  EXPECT_TRUE(files.replace(path, std::string(base::ErrorLog::max_bytes - line.size() - 1, 'a') + "\n"));
  log.add(L"a", L"b");
  EXPECT_EQ(size(path), base::ErrorLog::max_bytes);
  EXPECT_FALSE(files.exists(old));
}

TEST_F(ErrorLogTest, ACrashInBetweenLosesNoLine) {
  EXPECT_TRUE(files.replace(path, std::string(base::ErrorLog::max_bytes, 'a')));
  files.crash_at(1);
  log.add(L"LoadSkin", L"prvni");
  EXPECT_TRUE(files.power_on());
  EXPECT_EQ(size(old), base::ErrorLog::max_bytes);
  log.add(L"LoadSkin", L"druhy");
  EXPECT_EQ(files.read(path), "1. 2. 2024 3:04:05 Lumo\r\n1. 2. 2024 3:04:05 Lumotune (LoadSkin) druhy\r\n");
  EXPECT_EQ(size(old), base::ErrorLog::max_bytes);
}

TEST_F(ErrorLogTest, ALineThatACrashCutShortIsEndedBeforeTheNextOne) {
  for (const char* torn : {"1. 2. 2024 3:0", "1. 2. 2024 3:04:05 Lumotune (a) b\r"}) {
    EXPECT_TRUE(files.replace(path, torn));
    base::ErrorLog next_run{{folder, machine}};
    next_run.add(L"LoadSkin", L"prvni");
    next_run.add(L"LoadSkin", L"druhy");
    EXPECT_EQ(files.read(path), std::string(torn) + "\r\n1. 2. 2024 3:04:05 Lumotune (LoadSkin) prvni\r\n"
                                                    "1. 2. 2024 3:04:05 Lumotune (LoadSkin) druhy\r\n");
  }
  EXPECT_EQ(files.reads(path), 4U) << "once a run, besides this test";
}

TEST_F(ErrorLogTest, AFullOneThatCannotBePutAsideGrowsNoMore) {
  EXPECT_TRUE(files.replace(path, std::string(base::ErrorLog::max_bytes, 'a')));
  files.hold(path);
  for (int i = 0; i < 100; ++i)
    log.add(L"LoadSkin", L"x");
  EXPECT_EQ(size(path), base::ErrorLog::max_bytes);
}

TEST_F(ErrorLogTest, ALineIsCut) {
  log.add(L"LoadSkin", std::wstring(100'000, L'x'));
  EXPECT_GT(size(path), base::ErrorLog::max_text);
  EXPECT_LT(size(path), 1100U);
}

} // namespace
} // namespace lumotune::test
