// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/code_page_fold.h"

#include "base/text.h"

#include <algorithm>
#include <numeric>

namespace lumotune::base {

// Converts the whole page in three calls: one call per character would take hundreds at every start.
CodePageFold::CodePageFold(const platform::AnsiCodec& codec) {
  std::string bytes(folded_.size(), '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  const std::wstring letters = codec.decode(bytes);
  std::wstring small = letters;
  std::transform(small.begin(), small.end(), small.begin(), [](wchar_t letter) { return base::fold(letter); });
  const std::string folded = codec.encode(small);
  const std::wstring back = codec.decode(folded);
  for (std::size_t byte = 0; byte < folded_.size(); ++byte) {
    // A byte whose lower-case form is not in the code page stays as it is.
    const bool kept = small[byte] == letters[byte] || back[byte] != small[byte];
    folded_[byte] = static_cast<std::uint8_t>(kept ? bytes[byte] : folded[byte]);
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

} // namespace lumotune::base
