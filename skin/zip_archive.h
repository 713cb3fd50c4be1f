// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads a .zip archive (PKWARE's APPNOTE.TXT) that is whole in memory. The bytes are untrusted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::skin {

// As the archive's directory at its end tells it; none of it is checked against the content yet.
struct ZipEntry {
  std::wstring name; // as packed, with slashes or backslashes; may lead anywhere
  std::uint16_t method = 0;
  std::uint16_t flags = 0;
  std::uint32_t crc = 0;
  std::uint32_t packed = 0; // bytes
  std::uint32_t size = 0;   // bytes when unpacked
  std::uint32_t header = 0; // offset of the entry's own header
};

inline constexpr std::size_t max_zip_entries = 1000;

// The entries in the order of the directory. Nothing when the bytes are no archive, end before it does, are one volume
// of several, or tell of more than `max_zip_entries`. A name that is not valid UTF-8 counts as
// code page 852, in which Czech systems pack. Memory: some hundred bytes an entry, and its name.
[[nodiscard]] std::optional<std::vector<ZipEntry>> zip_entries(std::string_view archive);

// The entry's content, stored or deflated. Nothing when it is longer than `limit` bytes, encrypted, packed otherwise,
// or does not have the size and check sum that the directory tells. Memory: the content, whatever the archive says.
[[nodiscard]] std::optional<std::string> unzipped(std::string_view archive, const ZipEntry& entry, std::size_t limit);

} // namespace lumotune::skin
