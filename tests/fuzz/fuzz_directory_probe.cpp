// SPDX-License-Identifier: LGPL-2.1-or-later
// Any answer to the probe: a size is one that a list can have, and nothing else is taken for one.
#include "directory/probe.h"
#include "platform/files.h"
#include "platform/memory/files.h"
#include "stations/station_limits.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>

using namespace lumotune;
using fuzz::demand;

namespace {

// What the reader looks for.
constexpr const char* const words[] = {"size:", "\r\n", "\n", "\r",       "orb.cz", ":error", "a.cz", "SIZE:",
                                       "100",   "-1",   "0",  "99999999", "1e3",    " ",      "\t",   "orb.cz:error"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const platform::memory::Codec codec;
  using Kind = directory::Probe::Kind;
  const std::string bytes = fuzz::expanded(data, size, words);
  const std::wstring address = codec.decode(bytes.substr(0, bytes.size() / 4));
  const std::wstring server = bytes.size() % 2 == 0 ? std::wstring(L"http://www.a.cz:80/") : address;
  const auto probe = directory::parse_probe(bytes, server, codec);
  demand(probe.kind == Kind::size ? probe.size >= 1 && probe.size <= stations::max_station_bytes : probe.size == 0);
  // Whatever it is, a good last line makes it usable, and a marker refuses it; a refusal stays one.
  const auto better = directory::parse_probe(bytes + "\r\nsize:12\r\n", server, codec);
  demand(probe.kind == Kind::refused ? better.kind == Kind::refused : better.kind == Kind::size && better.size == 12);
  demand(directory::parse_probe(bytes + "\r\nORB.cz:error", server, codec).kind == Kind::refused);
  const std::wstring host = directory::host_of(address);
  demand(host.find_first_of(L"/\\?#") == std::wstring::npos && host.size() <= address.size());
  return 0;
}
