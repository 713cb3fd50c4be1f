// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/title.h"

#include "platform/common/code_page_1250.h"
#include "platform/media/wide.h"

#include <array>
#include <utility>

namespace lumotune::media {
namespace {

constexpr std::size_t max_characters = 500;
// Bounds the work: allows for the longest reference per character and for runs of blanks.
constexpr std::size_t max_bytes = 16 * 1024;

bool begins_key(std::string_view text) {
  std::size_t letters = 0;
  while (letters < text.size() &&
         ((text[letters] >= 'A' && text[letters] <= 'Z') || (text[letters] >= 'a' && text[letters] <= 'z')))
    ++letters;
  return letters > 0 && text.substr(letters, 2) == "='";
}

// A closing "';" is followed by the end (zero padding) or by another key and its "='".
bool closes(std::string_view after) {
  const std::size_t start = after.find_first_not_of(std::string_view("\0 ", 2));
  return start == std::string_view::npos || begins_key(after.substr(start));
}

bool is_utf16(std::string_view bytes) {
  return bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff");
}

// The character for a reference without its "&" and ";"; 0 if unknown.
char32_t referenced(std::wstring_view name) {
  constexpr std::array<std::pair<std::wstring_view, char32_t>, 6> names = {
      {{L"amp", U'&'}, {L"lt", U'<'}, {L"gt", U'>'}, {L"quot", U'"'}, {L"apos", U'\''}, {L"nbsp", U' '}}};
  for (const auto& [known, character] : names) {
    if (name == known)
      return character;
  }
  if (name.size() < 2 || name.size() > 8 || name[0] != L'#')
    return 0;
  const bool hex = name[1] == L'x' || name[1] == L'X';
  char32_t number = 0;
  for (const wchar_t c : name.substr(hex ? 2 : 1)) {
    char32_t digit = 99;
    if (c >= L'0' && c <= L'9')
      digit = static_cast<char32_t>(c - L'0');
    else if (hex && c >= L'a' && c <= L'f')
      digit = static_cast<char32_t>(c - L'a' + 10);
    else if (hex && c >= L'A' && c <= L'F')
      digit = static_cast<char32_t>(c - L'A' + 10);
    if (digit == 99)
      return 0;
    number = number * (hex ? 16 : 10) + digit;
  }
  const bool surrogate = number >= 0xd800 && number < 0xe000;
  return surrogate || number > 0x10ffff ? 0 : number;
}

std::wstring resolve_references(const std::wstring& text) {
  std::wstring resolved;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::wstring_view ahead = std::wstring_view(text).substr(i, 11); // the longest reference
    const std::size_t end = text[i] == L'&' ? ahead.find(L';') : std::wstring_view::npos;
    const char32_t character = end == std::wstring_view::npos ? 0 : referenced(ahead.substr(1, end - 1));
    if (character != 0) {
      append_character(resolved, character);
      i += end;
    } else {
      resolved += text[i];
    }
  }
  return resolved;
}

// At most `max_bytes`, cut between UTF-8 characters.
std::string_view cut(std::string_view bytes) {
  if (bytes.size() <= max_bytes)
    return bytes;
  std::size_t end = max_bytes;
  while (end > max_bytes - 3 && (static_cast<unsigned char>(bytes[end]) & 0xc0) == 0x80)
    --end;
  return bytes.substr(0, end);
}

bool is_control(wchar_t c) {
  const auto code = static_cast<char32_t>(c);
  return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x2028 || code == 0x2029 ||
         (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

bool is_high_surrogate(wchar_t c) {
  return sizeof(wchar_t) == 2 && (c & 0xfc00) == 0xd800;
}

// Cuts the text, but never within a surrogate pair.
void shorten(std::wstring& text) {
  if (text.size() > max_characters)
    text.resize(is_high_surrogate(text[max_characters - 1]) ? max_characters - 1 : max_characters);
}

} // namespace

std::optional<std::string> icy_stream_title(std::string_view block) {
  constexpr std::string_view key = "StreamTitle='";
  const std::size_t start = block.find(key);
  if (start == std::string_view::npos)
    return begins_key(block) ? std::nullopt : std::optional<std::string>("");
  block.remove_prefix(start + key.size());
  for (std::size_t end = block.find("';"); end != std::string_view::npos; end = block.find("';", end + 1)) {
    if (closes(block.substr(end + 2)))
      return std::string(block.substr(0, end));
  }
  return "";
}

std::wstring readable_text(std::string_view bytes) {
  if (is_utf16(bytes))
    return {};
  bytes = cut(bytes);
  const auto unicode = from_utf8(bytes);
  const std::wstring text = resolve_references(unicode ? *unicode : platform::decode_1250(bytes));
  std::wstring readable;
  for (const wchar_t c : text) {
    const bool blank = c == L' ' || is_control(c);
    if (!blank)
      readable += c;
    else if (!readable.empty() && readable.back() != L' ')
      readable += L' ';
    if (readable.size() > max_characters)
      break;
  }
  shorten(readable);
  while (!readable.empty() && readable.back() == L' ')
    readable.pop_back();
  return readable;
}

} // namespace lumotune::media
