// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/identity.h"

#include "base/settings_files.h"
#include "base/text.h"

#include <optional>
#include <utility>

namespace lumotune::companions {
namespace {

// Lines of options.ini, counted from 0, and where their values start.
constexpr std::size_t idh_line = 5;
constexpr std::size_t h_line = 6;
constexpr std::size_t nick_line = 7;

// A character code, with blanks around it.
std::optional<unsigned char> code_value(std::wstring_view piece) {
  piece = base::trimmed(piece, L" ");
  if (piece.empty())
    return std::nullopt;
  unsigned code = 0;
  for (const wchar_t digit : piece) {
    if (digit < L'0' || digit > L'9')
      return std::nullopt;
    code = code * 10 + static_cast<unsigned>(digit - L'0');
    if (code > 255)
      return std::nullopt;
  }
  return static_cast<unsigned char>(code);
}

} // namespace

void Identity::read_lines() {
  List5 = base::read_options_lines(uses_.folder).value_or(base::TextLines());
}

bool Identity::LoadOptionsLodin() {
  read_lines();
  if (List5.size() <= h_line)
    return false;
  uses_.settings.idh = base::line_value(List5, idh_line, 12, uses_.folder.codec());
  uses_.settings.h = base::line_value(List5, h_line, 14, uses_.folder.codec());
  return true;
}

bool Identity::LoadOptionsNick() {
  read_lines();
  if (List5.size() <= nick_line)
    return false;
  uses_.settings.nickname = base::line_value(List5, nick_line, 14, uses_.folder.codec());
  return true;
}

// By value: events may change what was given.
std::wstring Identity::Prehod(std::wstring Orbvstup) {
  std::wstring swapped;
  swapped.reserve(Orbvstup.size());
  for (std::size_t at = 0; at < Orbvstup.size(); at += 2) {
    if (at + 1 < Orbvstup.size())
      swapped += Orbvstup[at + 1];
    swapped += Orbvstup[at];
    if (!uses_.loop.quitting())
      uses_.loop.run_pending();
  }
  return swapped;
}

std::wstring Identity::Encrypt(std::wstring& Orbvstup) {
  Orbvstup = Prehod(Orbvstup);
  std::wstring codes;
  for (const char byte : uses_.folder.codec().encode(Orbvstup))
    codes += std::to_wstring(static_cast<unsigned char>(byte)) + L"-";
  return codes;
}

std::wstring Identity::Encrypt2(std::wstring& Orbvstup) {
  std::string bytes;
  std::wstring_view rest = Orbvstup;
  while (!rest.empty()) {
    const std::size_t cut = rest.find(L'-');
    const std::wstring_view piece = rest.substr(0, cut);
    rest.remove_prefix(cut == std::wstring_view::npos ? rest.size() : cut + 1);
    if (piece.empty())
      continue;
    const auto code = code_value(piece);
    if (!code.has_value())
      break;
    bytes += static_cast<char>(*code);
  }
  Orbvstup = uses_.folder.codec().decode(bytes);
  return Prehod(Orbvstup);
}

std::wstring Identity::Heslo(const std::wstring& ZadejHeslo) {
  std::wstring given = ZadejHeslo;
  std::wstring once = Prehod(Encrypt(given));
  return Prehod(Encrypt(once));
}

} // namespace lumotune::companions
