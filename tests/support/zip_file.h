// SPDX-License-Identifier: LGPL-2.1-or-later
// Archives for tests, also such as no packing program makes.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lumotune::test {

struct ZipFile {
  std::string name;
  std::string content;
  bool deflated = true;
  std::int64_t told_size = -1; // what the directory says, when it lies
};

inline std::string zip_number(std::uint64_t value, unsigned bytes) {
  std::string text;
  for (unsigned i = 0; i < bytes; ++i)
    text += static_cast<char>(value >> (8 * i) & 255U);
  return text;
}

inline std::string deflated(const std::string& content) {
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, content.size()), '\0');
  std::string input = content;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

inline std::string zip_of(const std::vector<ZipFile>& files, const std::string& comment = "") {
  std::string bytes;
  std::string directory;
  for (const ZipFile& each : files) {
    const std::string packed = each.deflated ? deflated(each.content) : each.content;
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(each.content.data()), static_cast<uInt>(each.content.size()));
    const std::uint64_t size = each.told_size < 0 ? each.content.size() : static_cast<std::uint64_t>(each.told_size);
    // Flags, method, time, date, then what both headers share.
    const std::string facts = zip_number(0, 2) + zip_number(each.deflated ? 8 : 0, 2) + zip_number(0, 4) +
                              zip_number(crc, 4) + zip_number(packed.size(), 4) + zip_number(size, 4) +
                              zip_number(each.name.size(), 2) + zip_number(0, 2);
    directory += "PK\x01\x02" + zip_number(20, 2) + zip_number(20, 2) + facts + zip_number(0, 2) + zip_number(0, 2) +
                 zip_number(0, 2) + zip_number(0, 4) + zip_number(bytes.size(), 4) + each.name;
    bytes += "PK\x03\x04" + zip_number(20, 2) + facts + each.name + packed;
  }
  const std::size_t start = bytes.size();
  return bytes + directory + "PK\x05\x06" + zip_number(0, 4) + zip_number(files.size(), 2) +
         zip_number(files.size(), 2) + zip_number(directory.size(), 4) + zip_number(start, 4) +
         zip_number(comment.size(), 2) + comment;
}

} // namespace lumotune::test
