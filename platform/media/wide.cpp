// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/wide.h"

#include <cstdint>

namespace lumotune::media {
namespace {

constexpr char32_t replacement = 0xfffd;

char byte(char32_t value) {
  return static_cast<char>(static_cast<unsigned char>(value));
}

void append_utf8(std::string& bytes, char32_t c) {
  if (c < 0x80) {
    bytes += byte(c);
  } else if (c < 0x800) {
    bytes += {byte(0xc0 | c >> 6), byte(0x80 | (c & 0x3f))};
  } else if (c < 0x10000) {
    bytes += {byte(0xe0 | c >> 12), byte(0x80 | (c >> 6 & 0x3f)), byte(0x80 | (c & 0x3f))};
  } else {
    bytes +=
        {byte(0xf0 | c >> 18), byte(0x80 | (c >> 12 & 0x3f)), byte(0x80 | (c >> 6 & 0x3f)), byte(0x80 | (c & 0x3f))};
  }
}

bool is_surrogate(char32_t c) {
  return c >= 0xd800 && c < 0xe000;
}

} // namespace

std::string to_utf8(std::wstring_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto c = static_cast<char32_t>(text[i]);
    if constexpr (sizeof(wchar_t) == 2)
      c &= 0xffff;
    const auto next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) & 0xffff : 0;
    if (c >= 0xd800 && c < 0xdc00 && next >= 0xdc00 && next < 0xe000) {
      c = 0x10000 + ((c - 0xd800) << 10) + (next - 0xdc00);
      ++i;
    }
    append_utf8(bytes, is_surrogate(c) || c > 0x10ffff ? replacement : c);
  }
  return bytes;
}

void append_character(std::wstring& text, char32_t character) {
  if (sizeof(wchar_t) == 2 && character > 0xffff) {
    character -= 0x10000;
    text += static_cast<wchar_t>(0xd800 + (character >> 10));
    text += static_cast<wchar_t>(0xdc00 + (character & 0x3ff));
    return;
  }
  text += static_cast<wchar_t>(character);
}

std::optional<std::wstring> from_utf8(std::string_view bytes) {
  std::wstring text;
  for (std::size_t i = 0; i < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xc2 ? 0
                               : first < 0xe0 ? 2
                               : first < 0xf0 ? 3
                               : first < 0xf5 ? 4
                                              : 0;
    if (length == 0 || i + length > bytes.size())
      return std::nullopt;
    char32_t c = length == 1 ? first : static_cast<char32_t>(first & (0x7f >> length));
    for (std::size_t k = 1; k < length; ++k) {
      const auto more = static_cast<unsigned char>(bytes[i + k]);
      if ((more & 0xc0) != 0x80)
        return std::nullopt;
      c = c << 6 | (more & 0x3fU);
    }
    constexpr char32_t lowest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < lowest[length] || is_surrogate(c) || c > 0x10ffff)
      return std::nullopt;
    append_character(text, c);
    i += length;
  }
  return text;
}

} // namespace lumotune::media
