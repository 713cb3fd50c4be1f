// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/code_page_fold.h"

#include "core/text.h"

#include <algorithm>

namespace lumotune::core {

CodePageFold::CodePageFold(const platform::AnsiCodec& codec) {
  for (unsigned byte = 0; byte < folded_.size(); ++byte) {
    folded_[byte] = static_cast<std::uint8_t>(byte);
    const std::wstring text = codec.decode(std::string(1, static_cast<char>(byte)));
    if (text.size() != 1 || core::fold(text[0]) == text[0])
      continue;
    const auto small = exact_bytes(codec, std::wstring(1, core::fold(text[0])));
    if (small.has_value() && small->size() == 1)
      folded_[byte] = static_cast<std::uint8_t>((*small)[0]);
  }
}

bool CodePageFold::equal(std::string_view a, std::string_view b) const {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [this](char left, char right) { return fold(left) == fold(right); });
}

bool CodePageFold::starts_with(std::string_view text, std::string_view prefix) const {
  return equal(text.substr(0, prefix.size()), prefix);
}

std::optional<std::string> exact_bytes(const platform::AnsiCodec& codec, const std::wstring& text) {
  std::string bytes = codec.encode(text);
  if (codec.decode(bytes) != text)
    return std::nullopt;
  return bytes;
}

bool starts_with_marker(std::string_view text, std::string_view marker) {
  const auto small = [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; };
  return text.size() >= marker.size() && std::equal(marker.begin(), marker.end(), text.begin(),
                                                    [&](char left, char right) { return small(left) == small(right); });
}

} // namespace lumotune::core
