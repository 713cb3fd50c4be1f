// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/drift.h"
#include "platform/media/open_budget.h"
#include "platform/media/retry.h"
#include "platform/media/title_queue.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

std::vector<std::uint32_t> delays(RetryPolicy& retry, int count, double random) {
  std::vector<std::uint32_t> all;
  for (int i = 0; i < count; ++i)
    all.push_back(retry.next_delay_ms(random));
  return all;
}

TEST(TitleQueue, EachTitleHasItsMoment) {
  TitleQueue titles;
  titles.add(100, L"a");
  titles.add(200, L"b");
  titles.add(300, L"c");
  EXPECT_EQ(titles.take_due(99), std::nullopt);
  EXPECT_EQ(titles.take_due(100), L"a");
  EXPECT_EQ(titles.take_due(100), std::nullopt);
  EXPECT_EQ(titles.take_due(300), L"c");
  EXPECT_EQ(titles.size(), 0U);
}

TEST(TitleQueue, ForgetsWhatIsNotPlayedAnyMore) {
  TitleQueue titles;
  titles.add(100, L"a");
  titles.clear();
  EXPECT_EQ(titles.size(), 0U);
  EXPECT_EQ(titles.take_due(100), std::nullopt);
}

TEST(TitleQueue, AFloodKeepsTheNewest) {
  TitleQueue titles;
  titles.add(0, L"first");
  for (std::uint64_t frame = 0; frame < 100000; ++frame)
    titles.add(frame, std::to_wstring(frame));
  EXPECT_EQ(titles.size(), TitleQueue::most);
  EXPECT_EQ(titles.take_due(0), L"0");
  EXPECT_EQ(titles.take_due(100000), L"99999");
}

TEST(Retry, WaitsLongerEachTimeAndNeverGivesUp) {
  RetryPolicy shortest;
  EXPECT_EQ(delays(shortest, 6, 0.0), (std::vector<std::uint32_t>{200, 1000, 3000, 5000, 5000, 5000}));
  RetryPolicy longest;
  EXPECT_EQ(delays(longest, 6, 1.0), (std::vector<std::uint32_t>{2000, 5000, 10000, 15000, 15000, 15000}));
}

// A station drops a hundred thousand listeners in one moment and stays away: the largest share of them that comes in
// any one second, counted by tenths of a second.
struct Crowd {
  std::chrono::milliseconds attempt; // until it fails
  // From that second on less than this share comes in any one second.
  std::vector<std::pair<std::size_t, double>> shares;
};
class RetryOfACrowd : public testing::TestWithParam<Crowd> {};

TEST_P(RetryOfACrowd, IsSpread) {
  constexpr int crowd = 100000;
  constexpr std::size_t minute = 600;
  std::vector<int> arrivals(minute);
  std::minstd_rand chance(1);
  std::uniform_real_distribution<double> random(0.0, 1.0);
  for (int i = 0; i < crowd; ++i) {
    RetryPolicy retry;
    for (std::size_t tenth = 0, ms = 0; tenth < minute; tenth = ms / 100) {
      ++arrivals[tenth];
      ms += retry.next_delay_ms(random(chance), {}, GetParam().attempt);
      ms += static_cast<std::size_t>(GetParam().attempt.count());
    }
  }
  arrivals[0] -= crowd; // the drop itself
  const auto largest_share = [&](std::size_t from_s, std::size_t to_s) {
    int largest = 0;
    for (std::size_t at = from_s * 10; at + 10 <= to_s * 10; ++at)
      largest = std::max(largest, std::accumulate(&arrivals[at], &arrivals[at] + 10, 0));
    return static_cast<double>(largest) / crowd;
  };
  for (const auto& [second, share] : GetParam().shares)
    EXPECT_LT(largest_share(second, 60), share) << second;
  EXPECT_GT(largest_share(50, 60), 0.09); // nobody gives up
}

INSTANTIATE_TEST_SUITE_P(
    Retry, RetryOfACrowd,
    testing::Values(Crowd{0ms, {{0, 0.65}, {2, 0.28}, {10, 0.15}}}, // who is alone is back in two seconds
                    Crowd{10s, {{0, 0.65}, {20, 0.22}, {40, 0.16}}}, Crowd{25s, {{0, 0.65}, {50, 0.22}}}),
    [](const auto& tried) { return "After" + std::to_string(tried.param.attempt / 1s) + "s"; });

// An attempt begun just before a silent server recovers ends by its time-out; the next one begins within 15 s of it.
TEST(Retry, CountsTheTimeOfASilentAttempt) {
  for (const double random : {0.0, 0.5, 1.0}) {
    RetryPolicy retry;
    (void)delays(retry, 5, random);
    const std::uint32_t after_refusal = retry.next_delay_ms(random);
    EXPECT_EQ(retry.next_delay_ms(random, {}, 2s), after_refusal - 2000);
    EXPECT_LE(10000 + retry.next_delay_ms(random, {}, 10s), 15000U);
    EXPECT_EQ(retry.next_delay_ms(random, {}, 60s), 200 + static_cast<std::uint32_t>(4800 * random))
        << "a crowd stays spread";
    EXPECT_GE(retry.next_delay_ms(random, 20s, 60s), 20000U) << "what the server asks for is granted in full";
  }
  for (const double random : {0.0, 1.0})
    EXPECT_EQ(RetryPolicy().next_delay_ms(random, {}, 60s), RetryPolicy().next_delay_ms(random));
}

TEST(Retry, BeginsAnewAfterAStationThatPlayedWell) {
  RetryPolicy retry;
  (void)delays(retry, 6, 0.5);
  retry.heard(4999); // one that lets nobody stay is not asked every half second
  EXPECT_EQ(retry.next_delay_ms(1.0), 15000U);
  retry.heard(5000);
  EXPECT_EQ(retry.next_delay_ms(1.0), 2000U);
}

TEST(Retry, WaitsAsLongAsTheServerAsksUpToAMinute) {
  using std::chrono::seconds;
  for (const auto& [asked, least, most] : {std::tuple(0, 200U, 2000U),
                                           {1, 1000U, 2000U},
                                           {20, 20000U, 25000U},
                                           {50, 50000U, 60000U},
                                           {60, 60000U, 60000U},
                                           {61, 48000U, 60000U},
                                           {86400, 48000U, 60000U}}) {
    EXPECT_EQ(RetryPolicy().next_delay_ms(0.0, seconds(asked)), least) << asked;
    EXPECT_EQ(RetryPolicy().next_delay_ms(1.0, seconds(asked)), most) << asked;
  }
  RetryPolicy later;
  (void)delays(later, 5, 0.5);
  EXPECT_EQ(later.next_delay_ms(1.0, seconds(2)), 15000U) << "its own delay still holds";
}

struct Day {
  double lowest = 1e9;
  double highest = 0;
};

// One day of a station whose clock is wrong by so many millionths; the buffer's level second by second.
Day simulate(double start_ms, double millionths) {
  DriftControl drift;
  double level = start_ms;
  Day day;
  for (int second = 0; second < 24 * 3600; ++second) {
    const int thousandths = drift.step(static_cast<std::uint32_t>(std::max(level, 0.0)));
    // Slower (below 0) makes more samples of what arrives.
    level += 1000.0 * ((1.0 + millionths / 1e6) * (1.0 - thousandths / 1000.0) - 1.0);
    day.lowest = std::min(day.lowest, level);
    day.highest = std::max(day.highest, level);
  }
  return day;
}

// Clocks of sound cards are wrong by 100 millionths and, badly made, by 500.
TEST(Drift, NeitherStarvesNorGrowsTheBufferInADay) {
  for (const double millionths : {-500.0, -100.0, -20.0, 0.0, 20.0, 100.0, 500.0}) {
    for (const double start : {250.0, 2000.0, 6500.0}) {
      const Day day = simulate(start, millionths);
      EXPECT_GE(day.lowest, std::min(start, 990.0)) << millionths << " from " << start;
      EXPECT_LE(day.highest, std::max(start, 6010.0)) << millionths << " from " << start;
    }
  }
}

TEST(Drift, LeavesAStreamThatFitsAlone) {
  DriftControl drift;
  for (const std::uint32_t level : {1000U, 3000U, 6000U, 1800U, 5000U})
    EXPECT_EQ(drift.step(level), 0);
}

TEST(OpenBudget, OpensNoAddressTwice) {
  OpenBudget budget;
  EXPECT_TRUE(budget.take("http://a/1"));
  EXPECT_FALSE(budget.allows("http://a/1"));
  EXPECT_FALSE(budget.take("http://a/1"));
  EXPECT_TRUE(budget.allows("http://a/2"));
  EXPECT_TRUE(budget.take("http://a/2"));
}

TEST(OpenBudget, EndsAfterFortyOpenings) {
  OpenBudget budget;
  for (int i = 0; i < OpenBudget::max_openings; ++i)
    EXPECT_TRUE(budget.take(std::to_string(i))) << i;
  EXPECT_TRUE(budget.over());
  EXPECT_FALSE(budget.take("one more"));
}

TEST(OpenBudget, EndsWhenTheTimeIsOver) {
  const OpenBudget::Clock::time_point start{};
  OpenBudget budget(start);
  EXPECT_TRUE(budget.take("in time", start + std::chrono::milliseconds(59999)));
  EXPECT_FALSE(budget.take("too late", start + std::chrono::seconds(60)));
}

} // namespace
} // namespace lumotune::media
