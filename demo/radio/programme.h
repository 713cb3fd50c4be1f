// SPDX-License-Identifier: LGPL-2.1-or-later
// What the small radio answers with: made by demo/export_radio.py, read once, all of it in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace demo_radio {

struct Reply {
  std::string type; // of its content
  std::string body;
  std::uint32_t milliseconds = 0; // how long it takes to be sent
};

struct Stream {
  std::string type;
  std::string name;
  std::uint32_t bit_rate = 0;          // kilobits a second, as the address tells it
  std::uint32_t loop_milliseconds = 1; // how long the sound lasts, 1 at least
  std::vector<std::string> titles;     // one at least
  std::string sound;
  bool has_inner_titles = false; // an Ogg file, which begins anew instead of being joined anywhere
};

// From its folder:
//   odpovedi.tsv   a line each, cells parted by tabs, UTF-8:
//                  reply|list|prefix  KEY  TYPE  OFFSET  LENGTH  MILLISECONDS
//                  stream             KEY  TYPE  FILE  LOOP-MILLISECONDS  BIT-RATE  NAME  TITLE|TITLE...
//   odpovedi.bin   the replies one behind the other; "{RADIO}" in them stands for the radio's own address
//   zvuk/FILE      the sound
// A KEY is the path of an address, or of one with "?tid=VALUE" in lower case; that of a prefix stands for every path
// that begins with it. A list also answers "size=1" with its length.
class Programme {
public:
  // Throws std::runtime_error with a text for the user when a file is missing, too long or not of that form: 1 MiB for
  // the table, 5,000 lines, 64 MiB for the rest.
  Programme(const std::filesystem::path& folder, const std::string& address);

  // `target` is the address as requested, from its first slash on; backslashes count as slashes. nullptr and, of
  // `reply`, an empty type without one.
  [[nodiscard]] const Stream* stream(std::string_view target) const;
  [[nodiscard]] Reply reply(std::string_view target) const;

private:
  void take(const std::vector<std::string_view>& cells, const std::filesystem::path& folder, std::string_view bodies,
            const std::string& address);

  std::map<std::string, Reply, std::less<>> replies_;
  std::map<std::string, Reply, std::less<>> lists_;
  std::map<std::string, Reply, std::less<>> prefixes_;
  std::map<std::string, Stream, std::less<>> streams_;
  std::size_t left_; // of the bytes that may still be read
};

} // namespace demo_radio
