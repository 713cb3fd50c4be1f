// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/mixer.h"
#include "platform/media/ring.h"

#include <cmath>
#include <numeric>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using Samples = std::vector<float>;

// A sample that the ring gives back as it was, another one for each of 60,000 numbers.
float sample_number(std::size_t number) {
  return static_cast<float>(static_cast<int>(number % 60000) - 30000) / 32767.0F;
}

Samples counting(std::size_t from, std::size_t frames) {
  Samples samples(frames * 2);
  for (std::size_t i = 0; i < frames * 2; ++i)
    samples[i] = sample_number(from * 2 + i);
  return samples;
}

TEST(Ring, GivesBackWhatWasWrittenAcrossItsSeam) {
  Ring ring(10);
  Samples out(20);
  for (std::size_t at = 0; at < 70; at += 7) {
    ASSERT_EQ(ring.write(counting(at, 7).data(), 7), 7U);
    ASSERT_EQ(ring.read(out.data(), 7), 7U);
    EXPECT_EQ(Samples(out.begin(), out.begin() + 14), counting(at, 7));
  }
  EXPECT_EQ(ring.level(), 0U);
}

TEST(Ring, TakesAndGivesNoMoreThanThereIs) {
  Ring ring(10);
  EXPECT_EQ(ring.write(counting(0, 25).data(), 25), 10U);
  EXPECT_EQ(ring.room(), 0U);
  EXPECT_EQ(ring.write(counting(0, 1).data(), 1), 0U);
  Samples out(40);
  EXPECT_EQ(ring.read(out.data(), 20), 10U);
  EXPECT_EQ(Samples(out.begin(), out.begin() + 20), counting(0, 10));
  EXPECT_EQ(ring.read(out.data(), 20), 0U);
}

TEST(Ring, KeepsSixteenBitsAndClips) {
  Ring ring(10);
  const Samples in = {0.0F, 1.0F, -1.0F, 1.5F, -2.0F, 0.5F};
  ASSERT_EQ(ring.write(in.data(), 3), 3U);
  Samples out(6);
  ASSERT_EQ(ring.read(out.data(), 3), 3U);
  EXPECT_EQ(Samples(out.begin(), out.begin() + 5), (Samples{0.0F, 1.0F, -1.0F, 1.0F, -1.0F}));
  EXPECT_NEAR(out[5], 0.5F, 1.0F / 65534);
}

TEST(Ring, PassesOverWhatWasDiscarded) {
  Ring ring(10);
  (void)ring.write(counting(0, 6).data(), 6);
  ring.discard();
  EXPECT_EQ(ring.level(), 0U);
  EXPECT_EQ(ring.room(), 4U); // the consumer may still be reading there
  (void)ring.write(counting(50, 2).data(), 2);
  EXPECT_EQ(ring.level(), 2U);
  Samples out(20);
  ASSERT_EQ(ring.read(out.data(), 10), 2U);
  EXPECT_EQ(Samples(out.begin(), out.begin() + 4), counting(50, 2));
  EXPECT_EQ(ring.room(), 10U);
}

TEST(Ring, KeepsTheOrderBetweenTwoThreads) {
  constexpr std::size_t frames = 200000;
  Ring ring(997);
  std::thread producer([&] {
    for (std::size_t at = 0; at < frames;) {
      const std::size_t piece = std::min<std::size_t>(frames - at, 64);
      const std::size_t taken = ring.write(counting(at, piece).data(), piece);
      at += taken;
      if (taken == 0)
        std::this_thread::yield();
    }
  });
  Samples out(2 * 50);
  std::size_t read = 0;
  bool right = true;
  while (read < frames) {
    const std::size_t got = ring.read(out.data(), 50);
    for (std::size_t i = 0; i < got * 2; ++i)
      right = right && out[i] == sample_number(read * 2 + i);
    read += got;
    if (got == 0)
      std::this_thread::yield();
  }
  producer.join();
  EXPECT_TRUE(right);
}

class MixerTest : public testing::Test {
protected:
  static constexpr std::size_t rate = 48000;

  void fill(std::size_t frames) {
    const Samples ones(frames * 2, 1.0F);
    ASSERT_EQ(mixer.ring.write(ones.data(), frames), frames);
  }
  Samples render(std::size_t frames) {
    Samples out(frames * 2, 9.0F); // what is not written shows
    mixer.render(out.data(), frames);
    for (std::size_t i = 0; i < frames; ++i) {
      const float step = std::abs(out[i * 2] - last_);
      largest_step = std::max(largest_step, step);
      last_ = out[i * 2];
      EXPECT_EQ(out[i * 2], out[i * 2 + 1]);
    }
    return out;
  }
  void play(std::uint64_t stream) {
    mixer.want(stream);
    mixer.let_flow(stream);
  }

  Mixer mixer{rate, static_cast<int>(rate)};
  float largest_step = 0;
  float last_ = 0;
};

TEST_F(MixerTest, IsSilentUntilTheWantedStreamFlows) {
  fill(1000);
  EXPECT_EQ(render(100), Samples(200, 0.0F));
  mixer.want(2);
  EXPECT_EQ(render(100), Samples(200, 0.0F));
  mixer.let_flow(1); // one that the listener has left
  EXPECT_EQ(render(100), Samples(200, 0.0F));
  EXPECT_EQ(mixer.ring.level(), 1000U);
  mixer.let_flow(2);
  EXPECT_GT(render(480).back(), 0.9F);
}

TEST_F(MixerTest, RampsEverySwitchWithinFiveMilliseconds) {
  fill(rate / 2);
  play(1);
  EXPECT_FLOAT_EQ(render(480).back(), 1.0F);
  mixer.set_volume(50);
  EXPECT_FLOAT_EQ(render(480).back(), 0.25F);
  mixer.set_volume(100);
  EXPECT_FLOAT_EQ(render(480).back(), 1.0F);
  mixer.want(0);
  EXPECT_EQ(render(480).back(), 0.0F);
  EXPECT_EQ(render(480), Samples(960, 0.0F));
  EXPECT_LT(largest_step, 0.0045F);
}

TEST_F(MixerTest, KeepsVolumeInItsBounds) {
  fill(rate / 2);
  play(1);
  mixer.set_volume(0);
  (void)render(480);
  EXPECT_EQ(render(480), Samples(960, 0.0F));
  mixer.set_volume(900);
  (void)render(480);
  EXPECT_EQ(render(10), Samples(20, 1.0F));
  mixer.set_volume(-5);
  (void)render(480);
  EXPECT_EQ(render(10), Samples(20, 0.0F));
}

TEST_F(MixerTest, PadsWithSilenceAndStopsTheFlowWhenItRunsDry) {
  fill(300);
  play(1);
  const Samples out = render(480);
  EXPECT_GT(out[299 * 2], 0.9F);
  EXPECT_EQ(Samples(out.begin() + 600, out.end()), Samples(360, 0.0F));
  EXPECT_FALSE(mixer.flows());
  fill(1000); // not enough to go on with is the worker's to decide
  EXPECT_EQ(render(100), Samples(200, 0.0F));
}

TEST_F(MixerTest, NeverPlaysTheOldStreamInTheNewOne) {
  fill(1000);
  play(1);
  (void)render(100);
  mixer.want(2);
  mixer.let_flow(0);
  mixer.ring.discard();
  const Samples quiet(200, -1.0F);
  (void)mixer.ring.write(quiet.data(), 100);
  mixer.let_flow(2);
  for (const float sample : render(100))
    EXPECT_LE(sample, 0.0F);
}

TEST_F(MixerTest, CountsWhatWasHeardOfEachStream) {
  fill(rate / 2);
  EXPECT_EQ(mixer.heard_ms(1), 0U);
  play(1);
  (void)render(rate / 10);
  EXPECT_EQ(mixer.heard_ms(1), 100U);
  EXPECT_EQ(mixer.heard_ms(2), 0U);
  play(2);
  (void)render(rate / 20);
  EXPECT_EQ(mixer.heard_ms(2), 50U);
  EXPECT_EQ(mixer.heard_ms(1), 0U);
  EXPECT_EQ(mixer.heard_ms(0), 0U);
  mixer.let_flow(0); // an outage
  (void)render(rate / 20);
  EXPECT_EQ(mixer.heard_ms(2), 50U);
}

} // namespace
} // namespace lumotune::media
