// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as a playlist of any kind: few entries, none larger than the list, and none that leads out of the network.
#include "platform/media/address.h"
#include "platform/media/playlist.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace lumotune::media;
using lumotune::fuzz::demand;
using lumotune::platform::AddressOrigin;

constexpr const char* words[] = {
    "[playlist]\nFile1=", "[reference]\nRef1=", "#EXTM3U\n", "<asx",  "<ref href=\"", "\"/>",  "<?xml ",  "<playlist",
    "<location>",         "</location>",        "http://",   "file:", "\\\\",         "&amp;", "#EXT-X-", "\nFile2="};

void try_entries(PlaylistKind kind, const std::string& text) {
  const auto entries = playlist_entries(kind, text);
  demand(entries.size() <= max_playlist_entries);
  for (const std::string& entry : entries) {
    demand(!entry.empty() && entry.size() <= text.size() + 4); // "mmsh" in the place of "http"
    const std::string whole = resolve_address("http://host/folder/list", entry);
    const AddressOrigin origin = origin_of_entry("http://host/folder/list", AddressOrigin::listener, whole);
    demand(origin == AddressOrigin::station);
    for (const std::string& each : may_open(whole, origin) ? openable_addresses(whole) : std::vector<std::string>())
      demand(each.starts_with("http") || each.starts_with("mms"));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = lumotune::fuzz::expanded(data, size, words);
  const std::string head = text.substr(0, text.size() / 4);
  (void)playlist_kind(text, head, "http://host/" + head);
  const PlaylistKind kind = playlist_kind(text, "", "");
  demand(kind == playlist_kind(text, "", "")); // pure
  for (const PlaylistKind each : {PlaylistKind::pls, PlaylistKind::reference, PlaylistKind::m3u, PlaylistKind::asx,
                                  PlaylistKind::xspf, PlaylistKind::none})
    try_entries(each, text);
  return 0;
}
