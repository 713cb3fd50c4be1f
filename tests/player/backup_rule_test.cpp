// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/backup_rule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace lumotune::player {
namespace {

using platform::StreamPhase;
using platform::StreamStatus;
using platform::StreamTrouble;
using Finding = BackupClock::Finding;

std::wstring order(int chosen, const std::vector<OfferedQuality>& offered) {
  std::wstring numbers;
  for (const OfferedQuality& each : backups_of(chosen, offered))
    numbers += std::to_wstring(each.number);
  return numbers;
}

OfferedQuality quality(int number, int kbps) {
  return {number, kbps, std::to_wstring(kbps), L"http://" + std::to_wstring(number)};
}

TEST(BackupOrder, IsByNearnessOfTheBitRateTheLowerFirst) {
  const std::vector<OfferedQuality> offered = {quality(1, 64), quality(2, 128), quality(3, 192), quality(4, 256),
                                               quality(5, 320)};
  EXPECT_EQ(order(2, offered), L"1345");
  EXPECT_EQ(order(3, offered), L"2415");
  EXPECT_EQ(order(5, offered), L"4321");
  EXPECT_EQ(order(2, {quality(1, 320), quality(2, 64), quality(3, 96)}), L"31");
}

TEST(BackupOrder, IsByNumberWhereTheChosenRateIsUnknown) {
  EXPECT_EQ(order(3, {quality(1, 64), quality(3, 0), quality(4, 320), quality(2, 128)}), L"241");
  EXPECT_EQ(order(4, {quality(1, 64), quality(2, 128)}), L"21") << "the chosen one is none";
  EXPECT_EQ(order(2, {quality(1, 0), quality(2, 128), quality(3, 320)}), L"31") << "an unknown rate comes last";
}

TEST(BackupOrder, LeavesOutWhatIsTheSameStreamOrNone) {
  auto same = quality(2, 128);
  same.address = L"http://1";
  auto twin = quality(4, 192);
  twin.address = L"http://3";
  auto none = quality(5, 32);
  none.address.clear();
  EXPECT_EQ(order(1, {quality(1, 64), same, quality(3, 192), twin, none}), L"3");
  EXPECT_EQ(order(1, {quality(1, 64)}), L"");
  EXPECT_EQ(order(1, {}), L"");
}

struct BackupClockTest : testing::Test {
  BackupClock clock;
  std::uint32_t now = std::numeric_limits<std::uint32_t>::max() - 10000; // the system's count wraps

  BackupClockTest() { clock.begin(now); }
  // So many looks of a second each; the number of the first that finds it, 0 for none.
  int looks(int seconds, StreamPhase phase, Finding wanted, StreamTrouble trouble = StreamTrouble::lost) {
    StreamStatus status;
    status.phase = phase;
    status.trouble = phase == StreamPhase::playing ? StreamTrouble::none : trouble;
    int found = 0;
    for (int i = 1; i <= seconds; ++i) {
      now += 1000;
      if (clock.look(now, status) == wanted && found == 0)
        found = i;
    }
    return found;
  }
};

TEST_F(BackupClockTest, AStreamIsGoneAfterFifteenToNineteenSeconds) {
  const int first = looks(40, StreamPhase::waiting, Finding::gone);
  EXPECT_GE(first, 16);
  EXPECT_LE(first, 20);
}

TEST_F(BackupClockTest, NoTwoMachinesFindItAtTheSameMoment) {
  std::vector<bool> seen(30);
  for (std::uint32_t start = 0; start < 4000; start += 500) {
    now = start;
    clock.begin(now);
    seen.at(static_cast<std::size_t>(looks(25, StreamPhase::waiting, Finding::gone))) = true;
  }
  EXPECT_GE(std::count(seen.begin(), seen.end(), true), 4);
}

TEST_F(BackupClockTest, SoundInBetweenBeginsAnew) {
  EXPECT_EQ(looks(14, StreamPhase::waiting, Finding::gone), 0);
  EXPECT_EQ(looks(1, StreamPhase::playing, Finding::gone), 0);
  EXPECT_EQ(looks(14, StreamPhase::connecting, Finding::gone), 0);
}

TEST_F(BackupClockTest, WhileItFillsItsBufferItIsNotGoneAndNotBackEither) {
  EXPECT_EQ(looks(10, StreamPhase::waiting, Finding::gone), 0);
  EXPECT_EQ(looks(30, StreamPhase::buffering, Finding::gone, StreamTrouble::none), 0);
  EXPECT_EQ(looks(1, StreamPhase::connecting, Finding::gone), 1);
}

TEST_F(BackupClockTest, ASleepOfTheMachineIsNoOutage) {
  EXPECT_EQ(looks(14, StreamPhase::waiting, Finding::gone), 0);
  now += 3600 * 1000;
  EXPECT_EQ(looks(14, StreamPhase::waiting, Finding::gone), 0);
}

TEST_F(BackupClockTest, WhatIsNotTheStationsFaultIsNoOutage) {
  for (const StreamTrouble trouble : {StreamTrouble::no_address, StreamTrouble::unsupported_address,
                                      StreamTrouble::ended, StreamTrouble::no_device, StreamTrouble::internal})
    EXPECT_EQ(looks(40, StreamPhase::waiting, Finding::gone, trouble), 0);
  EXPECT_EQ(looks(40, StreamPhase::stopped, Finding::gone), 0);
}

TEST_F(BackupClockTest, AMinuteOfSoundWorks) {
  EXPECT_EQ(looks(60, StreamPhase::playing, Finding::works), 0);
  EXPECT_EQ(looks(1, StreamPhase::playing, Finding::works), 1);
  EXPECT_EQ(looks(1, StreamPhase::waiting, Finding::works), 0);
  EXPECT_EQ(looks(60, StreamPhase::playing, Finding::works), 0);
}

} // namespace
} // namespace lumotune::player
