// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as the lists of a live station, another one at each opening and reload, whose segments play.
#include "tests/fuzz/media_fuzzing.h"

#include <deque>
#include <string_view>

namespace {

using namespace lumotune::fuzz;

// What the bytes below 32 stand for; a line feed for itself.
constexpr const char* words[] = {
    "#EXTINF:1,\na.mp3\n",
    "#EXTINF:1,\nb.mp3\n",
    "#EXTINF:1,\nc.mp3\n",
    "#EXTINF:",
    "#EXT-X-TARGETDURATION:1\n",
    "#EXT-X-MEDIA-SEQUENCE:",
    "#EXT-X-ENDLIST\n",
    "#EXT-X-STREAM-INF:BANDWIDTH=64000\na.m3u8\n",
    "#EXT-X-STREAM-INF:BANDWIDTH=64000,CODECS=\"mp4a.40.2\",AUDIO=\"a\"\nb.m3u8\n",
    "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"a\",DEFAULT=YES,URI=\"c.m3u8\"\n",
    "\n",
    "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"b\",LANGUAGE=\"cs\"\n",
    "#EXT-X-MEDIA:TYPE=SUBTITLES,GROUP-ID=\"s\",NAME=\"c\",URI=\"d.m3u8\"\n",
    "#EXT-X-MAP:URI=\"m.mp3\"\n",
    "#EXT-X-MAP:URI=\"m.mp3\",BYTERANGE=\"400@0\"\n",
    "#EXT-X-BYTERANGE:417@0\n",
    "#EXT-X-BYTERANGE:",
    "#EXT-X-KEY:METHOD=AES-128,URI=\"k.key\"\n",
    "#EXT-X-KEY:METHOD=SAMPLE-AES,URI=\"k.key\",IV=0x00\n",
    "#EXT-X-KEY:METHOD=NONE\n",
    "#EXT-X-PLAYLIST-TYPE:EVENT\n",
    "#EXT-X-PLAYLIST-TYPE:VOD\n",
    "#EXT-X-START:TIME-OFFSET=",
    "#EXT-X-DISCONTINUITY\n",
    "#EXT-X-PROGRAM-DATE-TIME:2024-01-01T00:00:00Z\n",
    "#EXT-X-",
    "a.m3u8",
    "http://127.0.0.1/",
    "file:///",
    "../",
    "\r\n",
    ",",
};
constexpr std::uint8_t end_of_list = 0xff;
// Lists to begin with, so that most runs come to a reload.
constexpr const char* starts[] = {
    "",
    "#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:1,\na.mp3\n",
    "#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:1\n#EXTINF:1,\na.mp3\n#EXTINF:1,\nb.mp3\n#EXTINF:1,\nc.mp3\n#"
    "EXTINF:1,\nd.mp3\n",
    "#EXT-X-STREAM-INF:BANDWIDTH=64000\na.m3u8\n",
    "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"a\",DEFAULT=YES,URI=\"c.m3u8\"\n"
    "#EXT-X-STREAM-INF:BANDWIDTH=64000,AUDIO=\"a\"\nb.m3u8\n",
};

// Silent frames: 128 kbit/s, 44,100 Hz.
std::string silence() {
  constexpr std::size_t frame_bytes = 417;
  constexpr std::size_t frames = 4;
  std::string sound;
  for (std::size_t i = 0; i < frames; ++i) {
    sound += "\xff\xfb\x90\x64";
    sound.resize((i + 1) * frame_bytes);
  }
  return sound;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  start_media();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0)
    return 0;
  std::deque<std::string> lists;
  std::string first = std::string("#EXTM3U\n") + starts[data[0] % std::size(starts)];
  for (std::size_t begin = 1; begin <= size;) {
    std::size_t end = begin;
    while (end < size && data[end] != end_of_list)
      ++end;
    lists.push_back(std::move(first) + expanded(data + begin, end - begin, words));
    first = "#EXTM3U\n";
    begin = end + 1;
  }
  // The last one stays.
  play("http://127.0.0.1/list.m3u8", [&](const std::string& address) -> std::optional<std::string> {
    if (address.find(".m3u8") == std::string::npos)
      return silence();
    std::string list = lists.front();
    if (lists.size() > 1)
      lists.pop_front();
    return list;
  });
  return 0;
}
