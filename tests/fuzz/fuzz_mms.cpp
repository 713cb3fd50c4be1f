// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as what a media server sends: chunks of a kind and a length, whose contents are ASF. The chunks are taken
// apart here as FFmpeg does it, because its own reader of them wants a socket; what they hold goes through all the
// rest.
#include "tests/fuzz/media_fuzzing.h"

#include <array>
#include <string_view>

namespace {

using namespace std::string_view_literals;

// The bytes from 16 on stand for the marks of ASF's objects, which chance never finds.
constexpr std::array<std::string_view, 9> marks = {
    "\x30\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\0\xaa\0\x62\xce\x6c"sv,                     // header
    "\xa1\xdc\xab\x8c\x47\xa9\xcf\x11\x8e\xe4\0\xc0\x0c\x20\x53\x65\x68\0\0\0\0\0\0\0"sv, // file properties
    "\x91\x07\xdc\xb7\xb7\xa9\xcf\x11\x8e\xe6\0\xc0\x0c\x20\x53\x65\x72\0\0\0\0\0\0\0"
    "\x40\x9e\x69\xf8\x4d\x5b\xcf\x11\xa8\xfd\0\x80\x5f\x5c\x44\x2b"sv,                   // a stream of sound
    "\x40\x52\xd1\x86\x1d\x31\xd0\x11\xa3\xa4\0\xa0\xc9\x03\x48\xf6"sv,                   // codecs
    "\x33\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\0\xaa\0\x62\xce\x6c"sv,                     // what it is called
    "\x40\xa4\xd0\xd2\x07\xe3\xd2\x11\x97\xf0\0\xa0\xc9\x5e\xa8\x50"sv,                   // more of that
    "\xb5\x03\xbf\x5f\x2e\xa9\xcf\x11\x8e\xe3\0\xc0\x0c\x20\x53\x65"sv,                   // more header
    "\x36\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\0\xaa\0\x62\xce\x6c\xff\xff\0\0\0\0\0\0"sv, // the packets
    "\x82\0\0\x09\0\0\x01\x81"sv,                                                         // a packet's head
};

std::string contents_of(std::string_view chunks) {
  constexpr std::size_t head = 4;
  constexpr std::size_t numbers = 8; // that count as contents
  std::string all(marks[0]);
  while (chunks.size() > head) {
    const std::size_t length =
        static_cast<unsigned char>(chunks[2]) | static_cast<std::size_t>(static_cast<unsigned char>(chunks[3])) << 8U;
    const bool named = chunks.starts_with("$H") || chunks.starts_with("$D");
    chunks.remove_prefix(head);
    const std::string_view content = chunks.substr(0, named ? length : std::string_view::npos);
    for (const char c : content.substr(named ? std::min(numbers, content.size()) : 0)) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte >= 0x10 && byte - 0x10U < marks.size())
        all.append(marks[byte - 0x10U]);
      else
        all += c;
    }
    chunks.remove_prefix(content.size());
  }
  return all;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  lumotune::fuzz::start_media();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lumotune::fuzz::play("mmsh://127.0.0.1/x", {contents_of({reinterpret_cast<const char*>(data), size})});
  return 0;
}
