// SPDX-License-Identifier: LGPL-2.1-or-later
// Lists of HLS: what they may be, what FFmpeg gets of them, and how long they may stand still.
#include "platform/media/hls_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST(HlsList, IsToldFromAPlainList) {
  EXPECT_TRUE(is_hls_list("#EXTM3U\n#EXT-X-VERSION:3\n"));
  EXPECT_TRUE(is_hls_list("\xef\xbb\xbf\r\n#EXTM3U\r\n#EXTINF:1,\r\na.ts\r\n#EXT-X-ENDLIST"));
  EXPECT_FALSE(is_hls_list("#EXTM3U\n#EXTINF:-1,The #EXT-X-Files\nhttp://a/\n"));
  EXPECT_FALSE(is_hls_list("#EXT-X-VERSION:3\n"));
  EXPECT_FALSE(is_hls_list(""));
}

TEST(HlsList, IsRead) {
  const auto list = read_hls_list("#EXTM3U\n# a remark\n#EXT-X-TARGETDURATION:4\n#EXTINF:4,\na.ts\n#EXT-X-ENDLIST", 10);
  ASSERT_TRUE(list.has_value());
  EXPECT_TRUE(list->media);
  EXPECT_TRUE(list->ended);
  EXPECT_EQ(list->target_s, 4);
  EXPECT_EQ(list->text, "#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXTINF:4.000,\na.ts\n#EXT-X-ENDLIST\n");
}

TEST(HlsList, TellsSegmentsFromChoices) {
  const auto only_segments = [](const std::string& lines) {
    return read_hls_list("#EXTM3U\n" + lines, 0)->only_segments();
  };
  EXPECT_TRUE(only_segments("#EXT-X-TARGETDURATION:4\n#EXTINF:4,\na.ts\n"));
  EXPECT_TRUE(only_segments("#EXTINF:4,\n#EXT-X-BYTERANGE:100@0\na.ts\n"));
  EXPECT_FALSE(only_segments("#EXT-X-TARGETDURATION:4\n"));
  EXPECT_FALSE(only_segments("#EXT-X-TARGETDURATION:4\na.ts\n"));
  EXPECT_FALSE(only_segments("#EXT-X-STREAM-INF:BANDWIDTH=1\na.m3u8\n"));
  for (const char* choice :
       {"#EXT-X-STREAM-INF:BANDWIDTH=1\na.m3u8\n", "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"b\",URI=\"c\"\n"})
    EXPECT_FALSE(read_hls_list("#EXTM3U\n#EXTINF:4,\na.ts\n" + std::string(choice), 0).has_value()) << "both";
}

TEST(HlsList, OfNonsenseHasASaneTargetDuration) {
  for (const char* nonsense : {"99999999999999999999", "-5", "0", "x", "1000000"}) {
    const auto list = read_hls_list("#EXTM3U\n#EXT-X-TARGETDURATION:" + std::string(nonsense) + "\n", 0);
    ASSERT_TRUE(list.has_value());
    EXPECT_GE(list->target_s, 1);
    EXPECT_LE(list->target_s, 10);
  }
}

TEST(HlsList, OverALimitIsRefused) {
  EXPECT_FALSE(read_hls_list("#EXTM3U\n" + repeated("#EXTINF:1,\nsegment.ts\n", 60000), 0).has_value());
  EXPECT_FALSE(read_hls_list("#EXTM3U\n" + std::string(5000, 'x') + "\n", 0).has_value());
  EXPECT_FALSE(read_hls_list("#EXTM3U\n" + repeated("#EXT-X-MAP:URI=\"a\"\n", 100), 0).has_value());
  // Each short name is put behind a long address, or has a long key.
  EXPECT_FALSE(read_hls_list("#EXTM3U\n" + repeated("#EXTINF:1,\na\n", 20000), 3800).has_value());
  EXPECT_FALSE(read_hls_list("#EXTM3U\n#EXT-X-KEY:METHOD=AES-128,URI=\"" + std::string(3800, 'k') + "\"\n" +
                                 repeated("#EXTINF:1,\na\n", 20000),
                             20)
                   .has_value());
  EXPECT_TRUE(read_hls_list("#EXTM3U\n" + repeated("#EXTINF:1,\nsegment.ts\n", 20000), 60).has_value());
}

TEST(HlsList, KeepsTheFirstVariants) {
  std::string text = "#EXTM3U\n";
  for (int i = 0; i < 40; ++i)
    text += "#EXT-X-STREAM-INF:BANDWIDTH=1\nv" + std::to_string(i) + ".m3u8\n";
  const auto list = read_hls_list(text, 0);
  ASSERT_TRUE(list.has_value());
  EXPECT_NE(list->text.find("v7.m3u8\n"), std::string::npos);
  EXPECT_EQ(list->text.find("v8.m3u8\n"), std::string::npos);
}

TEST(HlsList, MayHaveMarksBlanksAndAnyLineEnd) {
  EXPECT_TRUE(is_hls_list("#EXTM3U\r#EXT-X-VERSION:3\r"));
  EXPECT_TRUE(begins_m3u("\xef\xbb\xbf#EXTM3U\n"));
  EXPECT_FALSE(begins_m3u("EXTM3U"));
  const auto list = read_hls_list("\xef\xbb\xbf#EXTM3U\r\r\n \t#EXTINF:1, \n\n  a.ts \t\r", 0);
  ASSERT_TRUE(list.has_value());
  EXPECT_EQ(list->text, "#EXTM3U\n#EXTINF:1.000,\na.ts\n");
  EXPECT_FALSE(read_hls_list("a.ts\n#EXTM3U\n#EXTINF:1,\na.ts\n", 0).has_value());
}

TEST(HlsList, OfSegmentsIsToldByAnyOfTheirTags) {
  for (const char* line : {"#EXT-X-TARGETDURATION:4", "#EXT-X-MEDIA-SEQUENCE:4", "#EXTINF:4,"}) {
    const auto list = read_hls_list("#EXTM3U\n" + std::string(line) + "\n", 0);
    ASSERT_TRUE(list.has_value());
    EXPECT_TRUE(list->media) << line;
    EXPECT_EQ(list->target_s, line[7] == 'T' ? 4 : 10) << line;
  }
  const auto choice = read_hls_list("#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\na.m3u8\n", 0);
  EXPECT_FALSE(choice->media);
  EXPECT_EQ(choice->target_s, 0);
  EXPECT_TRUE(HlsProgress().note("x", *choice)) << "is loaded once";
}

TEST(HlsList, IsAnotherOneWithOtherSegments) {
  const auto digest = [](const std::string& lines) { return read_hls_list("#EXTM3U\n" + lines, 0)->digest; };
  const std::string two = "#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:4,\na.ts\n#EXTINF:4,\nb.ts\n";
  EXPECT_EQ(digest(two), digest(two + "# a remark\n"));
  for (const char* other : {"#EXT-X-MEDIA-SEQUENCE:2\n#EXTINF:4,\na.ts\n#EXTINF:4,\nb.ts\n",
                            "#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:4,\nc.ts\n#EXTINF:4,\nb.ts\n",
                            "#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:4,\nb.ts\n#EXTINF:4,\na.ts\n"})
    EXPECT_NE(digest(two), digest(other)) << other;
}

// What FFmpeg would keep: for each segment its own address and that of its key, each behind the list's.
TEST(HlsList, MayHaveAsManySegmentsAsFitIntoItsMemory) {
  constexpr std::size_t base = 1900;
  const std::string key = "#EXT-X-KEY:METHOD=AES-128,URI=\"k\"\n";
  const std::string name(4096 - 160 - 2 * base - key.size(), 'a'); // a segment costs 4 KiB
  const auto accepted = [&](int count) {
    return read_hls_list("#EXTM3U\n" + key + repeated("#EXTINF:1,\n" + name + "\n", count), base).has_value();
  };
  constexpr int most = static_cast<int>(max_hls_cost / 4096);
  EXPECT_TRUE(accepted(most));
  EXPECT_FALSE(accepted(most + 1));
  const auto without_key = [](int count) {
    return read_hls_list("#EXTM3U\n" + repeated("#EXTINF:1,\naa\n", count), 3934 - 160).has_value();
  };
  constexpr int many = static_cast<int>(max_hls_cost / 3936);
  EXPECT_TRUE(without_key(many));
  EXPECT_FALSE(without_key(many + 1));
}

TEST(HlsList, HasLimitsThatAreAllowedThemselves) {
  const std::string segment = "#EXTM3U\n#EXTINF:1,\na.ts\n";
  EXPECT_TRUE(read_hls_list(segment + "#" + std::string(4094, 'x') + "\n", 0).has_value());
  EXPECT_FALSE(read_hls_list(segment + "#" + std::string(4095, 'x') + "\n", 0).has_value());
  EXPECT_TRUE(read_hls_list(segment + repeated("#EXT-X-MAP:URI=\"a\"\n", 64), 0).has_value());
  EXPECT_FALSE(read_hls_list(segment + repeated("#EXT-X-MAP:URI=\"a\"\n", 65), 0).has_value());
  std::string text = segment;
  while (text.size() < max_hls_list_bytes)
    text += "#" + std::string(std::min<std::size_t>(1000, max_hls_list_bytes - text.size() - 1), 'x') +
            (text.size() + 1001 < max_hls_list_bytes ? "\n" : "");
  text.resize(max_hls_list_bytes);
  text.back() = 'x';
  EXPECT_TRUE(read_hls_list(text, 0).has_value());
  EXPECT_FALSE(read_hls_list(text + "x", 0).has_value());
}

TEST(HlsProgress, TellsAListThatStandsStill) {
  HlsProgress progress;
  const auto at = [&](int number, std::chrono::seconds when) {
    const auto list = read_hls_list(
        "#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXT-X-MEDIA-SEQUENCE:" + std::to_string(number) + "\n#EXTINF:4,\na.ts\n",
        0);
    return progress.note("x", *list, HlsProgress::Clock::time_point(when));
  };
  EXPECT_TRUE(at(1, 100s));
  EXPECT_TRUE(at(1, 111s));
  EXPECT_TRUE(at(2, 112s));
  EXPECT_TRUE(at(2, 123s));
  EXPECT_FALSE(at(2, 124s));
  EXPECT_EQ(progress.longest_target_s(), 4);
}

TEST(HlsProgress, LetsAFinishedListBe) {
  HlsProgress progress;
  const auto list = read_hls_list("#EXTM3U\n#EXT-X-TARGETDURATION:4\n#EXTINF:4,\na.ts\n#EXT-X-ENDLIST\n", 0);
  EXPECT_TRUE(progress.note("x", *list, HlsProgress::Clock::time_point(1s)));
  EXPECT_TRUE(progress.note("x", *list, HlsProgress::Clock::time_point(1000s)));
  EXPECT_EQ(progress.longest_target_s(), 0);
}

} // namespace
} // namespace lumotune::media
