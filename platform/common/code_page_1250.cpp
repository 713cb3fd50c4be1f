// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/code_page_1250.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace lumotune::platform {
namespace {

// Bytes 0x80..0xff; the five bytes without a letter stand for the control characters of the same number.
constexpr std::array<wchar_t, 128> upper_half = {
    0x20ac, 0x0081, 0x201a, 0x0083, 0x201e, 0x2026, 0x2020, 0x2021, 0x0088, 0x2030, 0x0160, 0x2039, 0x015a,
    0x0164, 0x017d, 0x0179, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0161, 0x203a, 0x015b, 0x0165, 0x017e, 0x017a, 0x00a0, 0x02c7, 0x02d8, 0x0141, 0x00a4, 0x0104, 0x00a6,
    0x00a7, 0x00a8, 0x00a9, 0x015e, 0x00ab, 0x00ac, 0x00ad, 0x00ae, 0x017b, 0x00b0, 0x00b1, 0x02db, 0x0142,
    0x00b4, 0x00b5, 0x00b6, 0x00b7, 0x00b8, 0x0105, 0x015f, 0x00bb, 0x013d, 0x02dd, 0x013e, 0x017c, 0x0154,
    0x00c1, 0x00c2, 0x0102, 0x00c4, 0x0139, 0x0106, 0x00c7, 0x010c, 0x00c9, 0x0118, 0x00cb, 0x011a, 0x00cd,
    0x00ce, 0x010e, 0x0110, 0x0143, 0x0147, 0x00d3, 0x00d4, 0x0150, 0x00d6, 0x00d7, 0x0158, 0x016e, 0x00da,
    0x0170, 0x00dc, 0x00dd, 0x0162, 0x00df, 0x0155, 0x00e1, 0x00e2, 0x0103, 0x00e4, 0x013a, 0x0107, 0x00e7,
    0x010d, 0x00e9, 0x0119, 0x00eb, 0x011b, 0x00ed, 0x00ee, 0x010f, 0x0111, 0x0144, 0x0148, 0x00f3, 0x00f4,
    0x0151, 0x00f6, 0x00f7, 0x0159, 0x016f, 0x00fa, 0x0171, 0x00fc, 0x00fd, 0x0163, 0x02d9};

// The other way round: in the order of the characters.
constexpr auto by_character = [] {
  std::array<std::pair<wchar_t, unsigned char>, upper_half.size()> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i)
    pairs[i] = {upper_half[i], static_cast<unsigned char>(0x80 + i)};
  std::sort(pairs.begin(), pairs.end());
  return pairs;
}();

char encode_one(wchar_t character) {
  if (static_cast<std::uint32_t>(character) < 0x80U)
    return static_cast<char>(character);
  const auto* found = std::lower_bound(by_character.begin(), by_character.end(), character,
                                       [](const auto& pair, wchar_t wanted) { return pair.first < wanted; });
  return found != by_character.end() && found->first == character ? static_cast<char>(found->second) : '?';
}

bool is_high_surrogate(wchar_t character) {
  const auto code = static_cast<std::uint32_t>(character);
  return code >= 0xd800U && code < 0xdc00U;
}

} // namespace

wchar_t decode_1250(unsigned char byte) {
  return byte < 0x80U ? static_cast<wchar_t>(byte) : upper_half[byte - 0x80U];
}

std::wstring decode_1250(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return decode_1250(static_cast<unsigned char>(byte)); });
  return text;
}

std::string encode_1250(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    bytes.push_back(encode_one(text[i]));
    // A pair of 16-bit halves is one character and so one '?'.
    if (sizeof(wchar_t) == 2 && is_high_surrogate(text[i]) && i + 1 < text.size())
      ++i;
  }
  return bytes;
}

} // namespace lumotune::platform
