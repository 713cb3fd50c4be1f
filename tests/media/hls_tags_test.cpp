// SPDX-License-Identifier: LGPL-2.1-or-later
// What FFmpeg gets of each tag of an HLS list.
#include "platform/media/hls_tags.h"

#include "platform/media/hls_list.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::media {
namespace {

// What is made of these lines, without the first one of each list.
std::string text_of(const std::string& lines) {
  const auto list = read_hls_list("#EXTM3U\n" + lines, 20);
  return list ? list->text.substr(8) : "refused";
}

TEST(HlsTags, OfSegmentsAreWrittenAnew) {
  EXPECT_EQ(text_of("#EXT-X-VERSION:7\n"
                    "#EXT-X-TARGETDURATION: 12 \n"
                    "#EXT-X-MEDIA-SEQUENCE:0042\n"
                    "#EXT-X-PLAYLIST-TYPE:EVENT\n"
                    "#EXT-X-START:TIME-OFFSET=1e99\n"
                    "#EXT-X-DISCONTINUITY\n"
                    "#EXT-X-MAP:URI=\"i.mp4\",BYTERANGE=\"700@0\"\n"
                    "#EXT-X-KEY:METHOD=AES-128,KEYFORMAT=\"a,b=c\",URI=\"k?a=1,2\",IV=0x0aF\n"
                    "#EXTINF:9.9756,A song, of two\n"
                    "#EXT-X-BYTERANGE:1000@20\n"
                    "a.ts?x=\"1\"\n"
                    "#EXT-X-KEY:METHOD=NONE\n"
                    "#EXTINF:10\n"
                    "#EXT-X-BYTERANGE:5\n"
                    "b.ts\n"
                    "nobody.ts\n"
                    "#EXT-X-KEY:METHOD=AES-128,URI=\"k#2\"\n"
                    "#EXTINF:1\n"
                    "c.ts\n"
                    "#EXT-X-ENDLIST\n"),
            "#EXT-X-TARGETDURATION:12\n"
            "#EXT-X-MEDIA-SEQUENCE:42\n"
            "#EXT-X-PLAYLIST-TYPE:EVENT\n"
            "#EXT-X-MAP:URI=\"i.mp4\",BYTERANGE=\"700@0\"\n"
            "#EXT-X-KEY:METHOD=AES-128,URI=\"k?a=1,2\",IV=0x0aF\n"
            "#EXTINF:9.976,\n"
            "#EXT-X-BYTERANGE:1000@20\n"
            "a.ts?x=\"1\"\n"
            "#EXT-X-KEY:METHOD=NONE\n"
            "#EXTINF:10.000,\n"
            "#EXT-X-BYTERANGE:5\n"
            "b.ts\n"
            "#EXT-X-KEY:METHOD=AES-128,URI=\"k#2\"\n"
            "#EXTINF:1.000,\n"
            "c.ts\n"
            "#EXT-X-ENDLIST\n");
  EXPECT_EQ(
      text_of("#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:0\n#EXT-X-PLAYLIST-TYPE:VOD\n#EXT-X-PLAYLIST-TYPE:X\n"),
      "#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:0\n#EXT-X-PLAYLIST-TYPE:VOD\n");
}

TEST(HlsTags, OfChoicesAreWrittenAnew) {
  EXPECT_EQ(
      text_of("#EXT-X-MEDIA:TYPE=AUDIO,URI=\"hi.m3u8\",GROUP-ID=\"a\\b\",NAME=\"Vysoká, 1\",DEFAULT=YES,FORCED=YES\n"
              "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"c\",NAME=\"n\",LANGUAGE=\"cs\"\n"
              "#EXT-X-MEDIA:TYPE=VIDEO,GROUP-ID=\"v\",NAME=\"n\",URI=\"v.m3u8\"\n"
              "#EXT-X-MEDIA:TYPE=SUBTITLES,GROUP-ID=\"s\",NAME=\"n\",URI=\"s.m3u8\"\n"
              "#EXT-X-STREAM-INF:AVERAGE-BANDWIDTH=7,BANDWIDTH=64000,CODECS=\"mp4a.40.2,avc1\", "
              "AUDIO=\"a\\b\",VIDEO=\"v\"\n"
              "low.m3u8\n"
              "nobodys.m3u8\n"
              "#EXT-X-STREAM-INF:AUDIO=bare\n"
              "next.m3u8\n"),
      "#EXT-X-STREAM-INF:BANDWIDTH=64000,AUDIO=\"ab\"\n"
      "low.m3u8\n"
      "#EXT-X-STREAM-INF:BANDWIDTH=0,AUDIO=\"bare\"\n"
      "next.m3u8\n"
      "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"ab\",NAME=\"Vysoká, 1\",LANGUAGE=\"\",DEFAULT=YES,URI=\"hi.m3u8\"\n"
      "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"c\",NAME=\"n\",LANGUAGE=\"cs\"\n");
}

TEST(HlsTags, NameNoListTwice) {
  EXPECT_EQ(text_of("#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"n\",URI=\"one.m3u8\"\n"
                    "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"b\",NAME=\"n\",URI=\"two.m3u8\"\n"
                    "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"c\",NAME=\"n\",URI=\"two.m3u8\"\n"
                    "#EXT-X-STREAM-INF:BANDWIDTH=1\none.m3u8\n"
                    "#EXT-X-STREAM-INF:BANDWIDTH=2\none.m3u8\n"),
            "#EXT-X-STREAM-INF:BANDWIDTH=1\none.m3u8\n"
            "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"b\",NAME=\"n\",LANGUAGE=\"\",URI=\"two.m3u8\"\n");
}

TEST(HlsTags, OfRenditionsAreEightAtMost) {
  std::string lines = "#EXT-X-STREAM-INF:BANDWIDTH=1\nv.m3u8\n";
  for (int i = 1; i <= 9; ++i)
    lines += "#EXT-X-MEDIA:TYPE=SUBTITLES,URI=\"s" + std::to_string(i) + "\"\n";
  for (int i = 1; i <= 9; ++i)
    lines += "#EXT-X-MEDIA:TYPE=AUDIO,URI=\"" + std::to_string(i) + "\"\n";
  const std::string text = text_of(lines);
  EXPECT_NE(text.find("\"8\""), std::string::npos);
  EXPECT_EQ(text.find("\"9\""), std::string::npos);
}

TEST(HlsTags, ThatCannotBePlayedRefuseTheList) {
  for (const char* line : {"#EXT-X-BYTERANGE:-1", "#EXT-X-BYTERANGE:0@5", "#EXT-X-BYTERANGE:5@9999999999999999999",
                           "#EXT-X-BYTERANGE:9999999999999999999", "#EXT-X-BYTERANGE:", "#EXT-X-MAP:",
                           "#EXT-X-MAP:URI=\"\"", "#EXT-X-MAP:URI=\"a\",BYTERANGE=\"x\"", "#EXT-X-MAP:URI=\"a\\\"",
                           "#EXT-X-KEY:", "#EXT-X-KEY:METHOD=SAMPLE-AES,URI=\"k\"", "#EXT-X-KEY:METHOD=AES-128",
                           "#EXT-X-KEY:METHOD=AES-128,URI=\"k\",IV=0x123456789012345678901234567890123",
                           "#EXT-X-KEY:METHOD=AES-128,URI=\"k\",IV=1", "#EXT-X-KEY:METHOD=AES-128,URI=\"k\",IV=0x1g"})
    EXPECT_EQ(text_of("#EXTINF:1,\na.ts\n" + std::string(line) + "\n"), "refused") << line;
  EXPECT_EQ(text_of("#EXTINF:1,\na\tb\n"), "refused");
  EXPECT_EQ(text_of("#EXTINF:1,\na\x7f"
                    "b\n"),
            "refused");
  EXPECT_NE(text_of("#EXT-X-KEY:METHOD=AES-128,URI=\"k\",IV=0X" + std::string(32, 'F') + "\n"), "refused");
  EXPECT_EQ(text_of("#EXT-X-KEY:METHOD=AES-128,URI=\"k\",IV=0X" + std::string(33, 'F') + "\n"), "refused");
  EXPECT_EQ(text_of("#EXTINF:1,\n" + std::string(3881, 'a') + "\n"), "refused");
  EXPECT_NE(text_of("#EXTINF:1,\n" + std::string(3880, 'a') + "\n"), "refused");
}

TEST(HlsTags, HaveNumbersThatCanBeUsed) {
  EXPECT_EQ(hls_number("17 apples", 0, 100), 17);
  EXPECT_EQ(hls_number("", 3, 100), 3);
  EXPECT_EQ(hls_number("-5", 3, 100), 3);
  EXPECT_EQ(hls_number("101", 3, 100), 100);
  EXPECT_EQ(hls_number("99999999999999999999", 3, 100), 100);
  EXPECT_EQ(hls_number("-99999999999999999999", 3, 100), 3);
  EXPECT_EQ(text_of("#EXT-X-MEDIA-SEQUENCE:18446744073709551615\n"), "#EXT-X-MEDIA-SEQUENCE:4611686018427387903\n");
  EXPECT_EQ(text_of("#EXT-X-TARGETDURATION:61\n"), "#EXT-X-TARGETDURATION:60\n");
  for (const char* text : {"", "x", "-1", "0", "nan", "-inf", "0.0001", "-1e300"})
    EXPECT_EQ(hls_seconds(text), "0.001") << text;
  for (const char* text : {"3600", "1e300", "inf"})
    EXPECT_EQ(hls_seconds(text), "3600.000") << text;
  EXPECT_EQ(hls_seconds(" 5.005,"), "5.005");
  EXPECT_EQ(hls_range("999999999999@0"), "999999999999@0");
  EXPECT_EQ(hls_range("1000000000000@0"), std::nullopt);
  EXPECT_EQ(hls_range("1@1000000000000"), std::nullopt);
  EXPECT_EQ(hls_range("1@-1"), "1@0");
}

TEST(HlsTags, HaveNamesOfALengthThatFits) {
  const std::string variant = hls_variant("AUDIO=\"" + std::string(100, 'g') + "\"");
  EXPECT_EQ(variant, "#EXT-X-STREAM-INF:BANDWIDTH=0,AUDIO=\"" + std::string(63, 'g') + "\"\n");
  EXPECT_EQ(hls_variant("BANDWIDTH=99999999999,AUDIO=\"a\tb"), "#EXT-X-STREAM-INF:BANDWIDTH=2147483647,AUDIO=\"ab\"\n");
  EXPECT_EQ(hls_rendition("TYPE=AUDIO,URI=\"" + std::string(3900, 'u') + "\"", 1).text, "");
  EXPECT_EQ(hls_rendition("TYPE=AUDIO,URI=\"a\\b\"", 1).text, "");
  EXPECT_EQ(hls_variant("no attributes at all"), "#EXT-X-STREAM-INF:BANDWIDTH=0\n");
  EXPECT_EQ(hls_variant("A=\"unclosed, BANDWIDTH=5"), "#EXT-X-STREAM-INF:BANDWIDTH=0\n");
}

} // namespace
} // namespace lumotune::media
