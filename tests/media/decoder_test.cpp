// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/decoder.h"
#include "tests/media/tone.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

struct ParametersFree {
  void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
};
using Parameters = std::unique_ptr<AVCodecParameters, ParametersFree>;

Parameters pcm(int rate, int channels) {
  Parameters parameters(avcodec_parameters_alloc());
  parameters->codec_type = AVMEDIA_TYPE_AUDIO;
  parameters->codec_id = AV_CODEC_ID_PCM_S16LE;
  parameters->format = AV_SAMPLE_FMT_S16;
  parameters->sample_rate = rate;
  av_channel_layout_default(&parameters->ch_layout, channels);
  return parameters;
}

// A packet of that many frames of a tone, the same in every channel.
Packet tone_packet(double hertz, int rate, int channels, int frames, int from) {
  Packet packet(av_packet_alloc());
  EXPECT_EQ(av_new_packet(packet.get(), frames * channels * 2), 0);
  for (int i = 0; i < frames; ++i) {
    const auto value = static_cast<std::int16_t>(8000 * std::sin(2 * std::acos(-1.0) * hertz * (from + i) / rate));
    for (int channel = 0; channel < channels; ++channel)
      std::memcpy(packet->data + (i * channels + channel) * 2, &value, 2);
  }
  return packet;
}

// A packet that says that its sound has another rate from here on.
Packet changing_packet(int rate) {
  Packet packet = tone_packet(440, 44100, 2, 1024, 0);
  std::uint8_t* change = av_packet_new_side_data(packet.get(), AV_PKT_DATA_PARAM_CHANGE, 8);
  EXPECT_NE(change, nullptr);
  const std::int32_t values[] = {AV_SIDE_DATA_PARAM_CHANGE_SAMPLE_RATE, rate};
  std::memcpy(change, values, sizeof values);
  return packet;
}

class DecoderTest : public testing::Test {
protected:
  void feed(Decoder& decoder, int rate, int channels, int packets) {
    for (int i = 0; i < packets; ++i) {
      const Packet packet = tone_packet(440, rate, channels, 1024, i * 1024);
      EXPECT_TRUE(decoder.decode(*packet, [this](const float* frames, std::size_t count) {
        for (std::size_t k = 0; k < count; ++k) {
          left.push_back(frames[k * 2]);
          same = same && frames[k * 2] == frames[k * 2 + 1];
        }
        return true;
      }));
    }
  }
  std::vector<float> left;
  bool same = true;
};

TEST_F(DecoderTest, MakesStereoOfTheWantedRate) {
  for (const int channels : {1, 2}) {
    left.clear();
    Decoder decoder(48000);
    ASSERT_TRUE(decoder.open(*pcm(44100, channels)));
    EXPECT_EQ(decoder.sample_rate(), 0);
    feed(decoder, 44100, channels, 43);
    EXPECT_EQ(decoder.sample_rate(), 44100);
    EXPECT_NEAR(static_cast<double>(left.size()), 43 * 1024 * 48000.0 / 44100, 100);
    EXPECT_GT(rig::tone_share(left, 440, 48000), 0.99);
    EXPECT_TRUE(same);
  }
}

TEST_F(DecoderTest, PlaysSlowerBelowZeroAndFasterAbove) {
  for (const int rate : {44100, 48000}) {
    double counts[3] = {};
    for (const int thousandths : {-2, 0, 2}) {
      left.clear();
      Decoder decoder(48000);
      ASSERT_TRUE(decoder.open(*pcm(rate, 2)));
      feed(decoder, rate, 2, 4);
      left.clear();
      for (int second = 0; second < 10; ++second) {
        if (thousandths != 0)
          decoder.compensate(thousandths);
        feed(decoder, rate, 2, rate / 1024);
      }
      counts[thousandths / 2 + 1] = static_cast<double>(left.size());
    }
    EXPECT_NEAR(counts[0] / counts[1], 1.002, 0.0003) << rate;
    EXPECT_NEAR(counts[2] / counts[1], 0.998, 0.0003) << rate;
  }
}

TEST_F(DecoderTest, RefusesACodecThatNobodyKnows) {
  const Parameters parameters = pcm(44100, 2);
  parameters->codec_id = AV_CODEC_ID_NONE;
  Decoder decoder(48000);
  EXPECT_FALSE(decoder.open(*parameters));
}

TEST_F(DecoderTest, RefusesRatesAndChannelsThatNoSoundHas) {
  for (const int rate : {1, 3999, 384001, 1000000000})
    EXPECT_FALSE(Decoder(48000).open(*pcm(rate, 2))) << rate;
  for (const int channels : {9, 64, 255})
    EXPECT_FALSE(Decoder(48000).open(*pcm(44100, channels))) << channels;
}

TEST_F(DecoderTest, PlaysEveryRateAndChannelOfSound) {
  for (const auto& [rate, channels] : {std::pair(4000, 1), std::pair(384000, 2), std::pair(44100, 8)}) {
    left.clear();
    Decoder decoder(48000);
    ASSERT_TRUE(decoder.open(*pcm(rate, channels)));
    feed(decoder, rate, channels, 100);
    EXPECT_NEAR(static_cast<double>(left.size()), 100 * 1024 * 48000.0 / rate, 400) << rate;
    EXPECT_GT(rig::tone_share(left, 440, 48000), 0.99) << rate << "/" << channels;
  }
}

// A chained stream changes in the middle; what is over the limit there is no sound either.
TEST_F(DecoderTest, RefusesARateThatComesInTheMiddle) {
  for (const int rate : {1, 3999, 384001, 1000000000}) {
    Decoder decoder(48000);
    ASSERT_TRUE(decoder.open(*pcm(44100, 2)));
    feed(decoder, 44100, 2, 2);
    const Packet packet = changing_packet(rate);
    EXPECT_FALSE(decoder.decode(*packet, [](const float*, std::size_t) {
      ADD_FAILURE() << "sound of no rate";
      return true;
    })) << rate;
  }
}

// One packet may hold minutes of sound: it is made into steps, and the listener's next wish ends them.
TEST_F(DecoderTest, MakesSmallStepsThatCanBeEnded) {
  Decoder decoder(192000);
  ASSERT_TRUE(decoder.open(*pcm(4000, 1)));
  const Packet packet = tone_packet(440, 4000, 1, 4000 * 600, 0);
  std::size_t largest = 0;
  int steps = 0;
  ASSERT_TRUE(decoder.decode(*packet, [&](const float*, std::size_t count) {
    largest = std::max(largest, count);
    return ++steps < 20;
  }));
  EXPECT_EQ(steps, 20);
  EXPECT_LE(largest, Decoder::max_step_frames);
}

TEST_F(DecoderTest, BearsTornPacketsButNotForEver) {
  const Parameters parameters = pcm(44100, 2);
  parameters->codec_id = AV_CODEC_ID_MP3;
  Decoder decoder(48000);
  ASSERT_TRUE(decoder.open(*parameters));
  av_log_set_level(AV_LOG_QUIET);
  const Packet torn = tone_packet(440, 44100, 2, 200, 0);
  const auto no_sound = [](const float*, std::size_t) {
    ADD_FAILURE() << "sound out of nothing";
    return true;
  };
  int borne = 0;
  while (borne < 10000 && decoder.decode(*torn, no_sound))
    ++borne;
  EXPECT_GT(borne, 50);
  EXPECT_LT(borne, 10000);
}

} // namespace
} // namespace lumotune::media
