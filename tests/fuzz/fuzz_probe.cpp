// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as the answer of a station, and as what it names in turn.
#include "tests/fuzz/media_fuzzing.h"

#include <string_view>

namespace {

using namespace std::string_view_literals;

// How each kind of sound and of list begins; the first byte of the input chooses, so that most runs come to a demuxer.
constexpr std::string_view starts[] = {
    ""sv,
    "ID3\x03\0\0\0\0\0\x10"sv,
    "\xff\xfb\x90\x64"sv,
    "\xff\xf1\x50\x80\x02\x1f\xfc"sv,
    "OggS\0\x02\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\x01\x1e\x01vorbis"sv,
    "OggS\0\x02\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0\0\0\0\0\x01\x13OpusHead"sv,
    "fLaC\0\0\0\x22"sv,
    "RIFF\xff\xff\xff\x7fWAVEfmt "sv,
    "FORM\0\0\xff\xff"
    "AIFFCOMM"sv,
    "\0\0\0\x14"
    "ftypM4A \0\0\0\0M4A \0\0\xff\xff"
    "moov"sv,
    "\x1a\x45\xdf\xa3\x80"sv,
    "\x0b\x77"sv,
    "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\na.aac\n#EXT-X-ENDLIST\n"sv,
    "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\na.m3u8\n"sv,
    "#EXTM3U\n#EXT-X-TARGETDURATION:1\n"sv,
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  lumotune::fuzz::start_media();
  return 0;
}

// A newline and a NUL part the answers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0)
    return 0;
  std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::vector<std::string> answers;
  while (true) {
    const std::size_t end = rest.find("\n\0"sv);
    answers.emplace_back(rest.substr(0, end));
    if (end == std::string_view::npos)
      break;
    rest.remove_prefix(end + 2);
  }
  answers[0].insert(0, starts[data[0] % std::size(starts)]);
  lumotune::fuzz::play("http://127.0.0.1/x", std::move(answers));
  return 0;
}
