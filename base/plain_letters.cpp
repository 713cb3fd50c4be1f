// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/plain_letters.h"

#include "base/code_page_fold.h"
#include "base/text.h"

namespace lumotune::base {
namespace {

constexpr wchar_t first_accented = 0xe0;
// A letter for each character from U+00E0 to U+017F; '.' for those that are none or more than one.
constexpr std::wstring_view accented = L"aaaaaa.ceeeeiiiidnooooo.ouuuuy.y"
                                       L"aaaaaaccccccccddddeeeeeeeeeegggg"
                                       L"gggghhhhiiiiiiiiii..jjkkklllllll"
                                       L"lllnnnnnnnnnoooooo..rrrrrrssssss"
                                       L"ssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(accented.size() == 0x180 - 0xe0);

std::wstring_view two_letters(wchar_t small) {
  switch (small) {
  case 0xdf: // sharp s
    return L"ss";
  case 0xe6:
    return L"ae";
  case 0xfe: // thorn
    return L"th";
  case 0x133:
    return L"ij";
  case 0x153:
    return L"oe";
  default:
    return {};
  }
}

wchar_t plain_letter(wchar_t small) {
  if (small == 0x219) // Romanian letters with a comma below
    return L's';
  if (small == 0x21b)
    return L't';
  if (small < first_accented || static_cast<std::size_t>(small - first_accented) >= accented.size())
    return small;
  const wchar_t letter = accented[static_cast<std::size_t>(small - first_accented)];
  return letter == L'.' ? small : letter;
}

} // namespace

std::wstring plain_letters(std::wstring_view text) {
  std::wstring plain;
  plain.reserve(text.size());
  for (const wchar_t character : text) {
    const wchar_t small = fold(character);
    if (const std::wstring_view two = two_letters(small); !two.empty())
      plain += two;
    else
      plain += plain_letter(small);
  }
  return plain;
}

// A letter whose plain form the code page lacks stays as it is.
PlainLetters::PlainLetters(const platform::AnsiCodec& codec) : codec_(codec) {
  for (std::size_t byte = 0; byte < lengths_.size(); ++byte) {
    const std::string stored(1, static_cast<char>(byte));
    const auto plain = exact_bytes(codec, plain_letters(codec.decode(stored)));
    const std::string kept = plain && plain->size() <= 2 ? *plain : stored;
    kept.copy(letters_[byte].data(), kept.size());
    lengths_[byte] = static_cast<std::uint8_t>(kept.size());
  }
}

void PlainLetters::append(std::string& to, std::string_view bytes) const {
  for (const char byte : bytes) {
    const auto index = static_cast<std::uint8_t>(byte);
    to += letters_[index][0];
    if (lengths_[index] > 1)
      to += letters_[index][1];
  }
}

std::optional<std::string> PlainLetters::of(const std::wstring& typed) const {
  const auto bytes = exact_bytes(codec_, plain_letters(typed));
  if (!bytes)
    return std::nullopt;
  std::string plain;
  append(plain, *bytes); // so that what stayed as it is stays so here too
  return plain;
}

} // namespace lumotune::base
