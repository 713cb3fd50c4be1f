// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/record_bytes.h"

#include "core/text.h"

#include <algorithm>
#include <string>

namespace lumotune::core {

ByteFolding::ByteFolding(const platform::AnsiCodec& codec) {
  for (unsigned byte = 0; byte < folded_.size(); ++byte) {
    folded_[byte] = static_cast<unsigned char>(byte);
    const std::wstring text = codec.decode(std::string(1, static_cast<char>(byte)));
    if (text.size() != 1 || fold(text[0]) == text[0])
      continue;
    // A small letter that the code page lacks leaves its capital as it is.
    const std::wstring small(1, fold(text[0]));
    const std::string encoded = codec.encode(small);
    if (encoded.size() == 1 && codec.decode(encoded) == small)
      folded_[byte] = static_cast<unsigned char>(encoded[0]);
  }
}

bool ByteFolding::equal(std::string_view a, std::string_view b) const {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [this](char left, char right) {
           return folded_[static_cast<unsigned char>(left)] == folded_[static_cast<unsigned char>(right)];
         });
}

bool ByteFolding::starts_with(std::string_view bytes, std::string_view prefix) const {
  return bytes.size() >= prefix.size() && equal(bytes.substr(0, prefix.size()), prefix);
}

std::string_view record_field(std::string_view record, int index) {
  constexpr std::string_view delimiter = "/@/";
  for (int i = 0; i < index; ++i) {
    const std::size_t cut = record.find(delimiter);
    if (cut == std::string_view::npos)
      return {};
    record.remove_prefix(cut + delimiter.size());
  }
  return record.substr(0, record.find(delimiter));
}

} // namespace lumotune::core
