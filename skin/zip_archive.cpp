// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/zip_archive.h"

#include <zlib.h>

#include <algorithm>
#include <array>

namespace lumotune::skin {
namespace {

constexpr std::string_view entry_signature("PK\x03\x04", 4);
constexpr std::string_view directory_signature("PK\x01\x02", 4);
constexpr std::string_view end_signature("PK\x05\x06", 4);
constexpr std::size_t entry_length = 30;
constexpr std::size_t directory_length = 46;
constexpr std::size_t end_length = 22;
constexpr std::size_t max_comment = 65535;
constexpr std::uint16_t encrypted = 1U;
constexpr std::uint16_t stored = 0;
constexpr std::uint16_t deflated = 8;

std::uint32_t number(std::string_view bytes, std::size_t at, unsigned length) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < length; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return value;
}

std::uint16_t number16(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint16_t>(number(bytes, at, 2));
}

std::uint32_t number32(std::string_view bytes, std::size_t at) {
  return number(bytes, at, 4);
}

// The upper half of code page 852.
constexpr std::array<wchar_t, 128> upper_852 = {
    0x00c7, 0x00fc, 0x00e9, 0x00e2, 0x00e4, 0x016f, 0x0107, 0x00e7, 0x0142, 0x00eb, 0x0150, 0x0151, 0x00ee,
    0x0179, 0x00c4, 0x0106, 0x00c9, 0x0139, 0x013a, 0x00f4, 0x00f6, 0x013d, 0x013e, 0x015a, 0x015b, 0x00d6,
    0x00dc, 0x0164, 0x0165, 0x0141, 0x00d7, 0x010d, 0x00e1, 0x00ed, 0x00f3, 0x00fa, 0x0104, 0x0105, 0x017d,
    0x017e, 0x0118, 0x0119, 0x00ac, 0x017a, 0x010c, 0x015f, 0x00ab, 0x00bb, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x00c1, 0x00c2, 0x011a, 0x015e, 0x2563, 0x2551, 0x2557, 0x255d, 0x017b, 0x017c, 0x2510, 0x2514,
    0x2534, 0x252c, 0x251c, 0x2500, 0x253c, 0x0102, 0x0103, 0x255a, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256c, 0x00a4, 0x0111, 0x0110, 0x010e, 0x00cb, 0x010f, 0x0147, 0x00cd, 0x00ce, 0x011b, 0x2518, 0x250c,
    0x2588, 0x2584, 0x0162, 0x016e, 0x2580, 0x00d3, 0x00df, 0x00d4, 0x0143, 0x0144, 0x0148, 0x0160, 0x0161,
    0x0154, 0x00da, 0x0155, 0x0170, 0x00fd, 0x00dd, 0x0163, 0x00b4, 0x00ad, 0x02dd, 0x02db, 0x02c7, 0x02d8,
    0x00a7, 0x00f7, 0x00b8, 0x00b0, 0x00a8, 0x02d9, 0x0171, 0x0158, 0x0159, 0x25a0, 0x00a0};

std::wstring decode_852(std::string_view bytes) {
  std::wstring text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += code < 128 ? static_cast<wchar_t>(code) : upper_852[code - 128U];
  }
  return text;
}

// Characters of the basic plane alone, which suffices for names that the settings can hold; nothing for other bytes.
std::optional<std::wstring> decode_utf8(std::string_view bytes) {
  std::wstring text;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[at++]);
    const unsigned more = first < 0x80 ? 0 : first >= 0xc2 && first < 0xe0 ? 1 : first >= 0xe0 && first < 0xf0 ? 2 : 3;
    if (more == 3 || bytes.size() - at < more)
      return std::nullopt;
    unsigned code = more == 0 ? first : first & (0x3fU >> more);
    for (unsigned i = 0; i < more; ++i) {
      const auto next = static_cast<unsigned char>(bytes[at++]);
      if ((next & 0xc0U) != 0x80)
        return std::nullopt;
      code = code << 6U | (next & 0x3fU);
    }
    if ((more == 2 && code < 0x800) || (code >= 0xd800 && code < 0xe000))
      return std::nullopt;
    text += static_cast<wchar_t>(code);
  }
  return text;
}

std::wstring decode_name(std::string_view bytes) {
  const auto name = decode_utf8(bytes);
  return name ? *name : decode_852(bytes);
}

// The end record lies behind everything but the archive's comment.
std::optional<std::size_t> find_end(std::string_view archive) {
  if (archive.size() < end_length)
    return std::nullopt;
  const std::size_t last = archive.size() - end_length;
  const std::size_t first = last - std::min(last, max_comment);
  for (std::size_t at = last + 1; at-- > first;) {
    if (archive.substr(at, 4) == end_signature && number16(archive, at + 20) == last - at)
      return at;
  }
  return std::nullopt;
}

std::optional<std::string> inflated(std::string_view packed, std::size_t size) {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) // without zlib's own header
    return std::nullopt;
  std::string content(size, '\0');
  Bytef none = 0;
  stream.next_in = reinterpret_cast<z_const Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = size == 0 ? &none : reinterpret_cast<Bytef*>(content.data());
  stream.avail_out = static_cast<uInt>(size);
  const int result = inflate(&stream, Z_FINISH);
  const bool whole = result == Z_STREAM_END && stream.total_out == size;
  inflateEnd(&stream);
  return whole ? std::optional(std::move(content)) : std::nullopt;
}

bool has_crc(const std::string& content, std::uint32_t crc) {
  return crc32_z(0, reinterpret_cast<const Bytef*>(content.data()), content.size()) == crc;
}

} // namespace

std::optional<std::vector<ZipEntry>> zip_entries(std::string_view archive) {
  const auto end = find_end(archive);
  if (!end || number32(archive, *end + 4) != 0) // the numbers of this volume and of the directory's
    return std::nullopt;
  const std::size_t count = number16(archive, *end + 10);
  std::size_t at = number32(archive, *end + 16);
  if (count != number16(archive, *end + 8) || count > max_zip_entries)
    return std::nullopt;
  std::vector<ZipEntry> entries;
  for (std::size_t i = 0; i < count; ++i) {
    if (at > *end || *end - at < directory_length || archive.substr(at, 4) != directory_signature)
      return std::nullopt;
    const std::size_t name_length = number16(archive, at + 28);
    const std::size_t length = directory_length + name_length + number16(archive, at + 30) + number16(archive, at + 32);
    if (*end - at < length)
      return std::nullopt;
    entries.push_back({decode_name(archive.substr(at + directory_length, name_length)), number16(archive, at + 10),
                       number16(archive, at + 8), number32(archive, at + 16), number32(archive, at + 20),
                       number32(archive, at + 24), number32(archive, at + 42)});
    at += length;
  }
  return entries;
}

std::optional<std::string> unzipped(std::string_view archive, const ZipEntry& entry, std::size_t limit) {
  const std::size_t header = entry.header;
  if (entry.size > limit || (entry.flags & encrypted) != 0 || header > archive.size() ||
      archive.size() - header < entry_length || archive.substr(header, 4) != entry_signature)
    return std::nullopt;
  const std::size_t start = header + entry_length + number16(archive, header + 26) + number16(archive, header + 28);
  if (start > archive.size() || archive.size() - start < entry.packed)
    return std::nullopt;
  const std::string_view packed = archive.substr(start, entry.packed);
  std::optional<std::string> content;
  if (entry.method == deflated)
    content = inflated(packed, entry.size);
  else if (entry.method == stored && entry.packed == entry.size)
    content = std::string(packed);
  if (!content || !has_crc(*content, entry.crc))
    return std::nullopt;
  return content;
}

} // namespace lumotune::skin
