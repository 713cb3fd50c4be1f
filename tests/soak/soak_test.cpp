// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/soak/soak.h"

#include "platform/media/ffmpeg.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace lumotune::media::soak {
namespace {

Settings stations(int minutes) {
  av_log_set_level(AV_LOG_QUIET);
  Settings settings;
  settings.minutes = minutes;
  settings.sample_minutes = 2;
  settings.shortest_pause_s = 60;
  settings.longest_pause_s = 80;
  for (const char* name : {"440.mp3", "500.aac", "800.oga"}) {
    std::ifstream in(std::string(LUMOTUNE_TEST_MEDIA "/") + name, std::ios::binary);
    settings.sound[name] = {std::istreambuf_iterator<char>(in), {}};
    EXPECT_FALSE(settings.sound[name].empty()) << name;
  }
  return settings;
}

// The long run is the program's; this one meets each kind of fault once.
TEST(Soak, RecoversFromEveryFaultAndKeepsItsBounds) {
  const Result result = run(stations(20), nullptr);
  EXPECT_GE(result.faults.size(), 9U);
  EXPECT_TRUE(result.unrecovered.empty()) << result.unrecovered.front();
  ASSERT_EQ(result.samples.size(), 10U);
  const Sample& last = result.samples.back();
  EXPECT_GE(last.faults, 9);
  EXPECT_EQ(last.recovered, last.faults);
  EXPECT_EQ(last.underruns, 0) << "outside of faults";
  EXPECT_LE(last.longest_recovery_ms, 16000U) << "an attempt that began in the silence counts as a part of the delay";
  long early_kb = 0;
  for (std::size_t i = 0; i < result.samples.size(); ++i) {
    const Sample& sample = result.samples[i];
    EXPECT_GE(sample.lowest_ms, 200U) << sample.minute;
    EXPECT_LE(sample.highest_ms, 8000U) << sample.minute;
    EXPECT_EQ(sample.threads, result.samples.front().threads) << sample.minute;
    // What is allocated depends on the station that plays; each of them played in the first half.
    if (i < result.samples.size() / 2)
      early_kb = std::max(early_kb, sample.heap_kb);
    else
      EXPECT_LE(sample.heap_kb, early_kb + 256) << sample.minute;
  }
}

// A station whose pieces arrive fifty times a second: with a well-filled buffer they collect in the socket meanwhile.
TEST(Soak, WakesRarelyWhileAllIsWell) {
  Settings settings = stations(3);
  settings.sample_minutes = 1;
  settings.piece_ms = 20;
  const Result result = run(settings, nullptr);
  ASSERT_TRUE(result.faults.empty());
  ASSERT_GE(result.samples.size(), 3U);
  EXPECT_EQ(result.samples[2].underruns, 0);
  EXPECT_LE(result.samples[2].waits - result.samples[1].waits, 60 * 8);
}

} // namespace
} // namespace lumotune::media::soak
