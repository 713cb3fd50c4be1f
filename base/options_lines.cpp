// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/options_lines.h"

#include "base/text.h"

#include <array>
#include <utility>

namespace lumotune::base {
namespace {

// A line break in a value would shift every line that follows.
std::wstring one_line(std::wstring value) {
  for (wchar_t& character : value) {
    if (character == L'\r' || character == L'\n' || character == L'\0')
      character = L' ';
  }
  return value;
}

} // namespace

TextLines split_text_lines(std::string_view bytes) {
  TextLines lines;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find_first_of("\r\n");
    lines.emplace_back(bytes.substr(0, end));
    if (end == std::string_view::npos)
      break;
    const bool pair = bytes[end] == '\r' && end + 1 < bytes.size() && bytes[end + 1] == '\n';
    bytes.remove_prefix(end + (pair ? 2 : 1));
  }
  return lines;
}

TextLines without_empty_lines(TextLines lines) {
  std::erase_if(lines, [](const std::string& line) { return line.empty(); });
  return lines;
}

std::wstring line_value(const TextLines& lines, std::size_t number, std::size_t position,
                        const platform::AnsiCodec& codec) {
  if (number >= lines.size())
    return {};
  return std::wstring(mid(codec.decode(lines[number]), position));
}

void read_settings(const TextLines& lines, const platform::AnsiCodec& codec, Settings& settings) {
  const auto value = [&](std::size_t number, std::size_t position) {
    return line_value(lines, number, position, codec);
  };
  settings.nickname = value(7, 14);
  settings.LTTop = value(11, 12);
  // The identifier has a fixed width: a shorter one is read with the slash and what follows it.
  settings.IDlastRadio = value(12, 13).substr(0, 6);
  settings.KvalitaLT = value(12, 20);
  settings.LTautoStart = value(13, 18);
  settings.client_link = value(18, 10);
  settings.LTvolume = value(20, 15);
  settings.LTskin = value(21, 13);
  settings.saved_skin = settings.LTskin;
  settings.LTpleft = value(22, 14);
  settings.LTptop = value(23, 13);
  settings.idh = value(5, 12);
  settings.h = value(6, 14);
}

bool write_settings(TextLines& lines, const platform::AnsiCodec& codec, const Settings& settings) {
  if (lines.size() < options_line_count)
    return false;
  const std::array<std::pair<std::size_t, std::wstring>, 7> own = {
      {{11, L"#011:LTTop:" + settings.LTTop},
       {12, L"#012:LTLast:" + settings.IDlastRadio + L"/" + settings.KvalitaLT},
       {13, L"#013:LTautoStart:" + settings.LTautoStart},
       {20, L"#020:LTvolume:" + settings.LTvolume},
       {21, L"#021:LTskin:" + settings.saved_skin},
       {22, L"#022:LTpleft:" + settings.LTpleft},
       {23, L"#023:LTptop:" + settings.LTptop}}};
  for (const auto& [number, text] : own)
    lines[number] = codec.encode(one_line(text));
  return true;
}

std::string join_lines(const TextLines& lines) {
  std::string bytes;
  for (const std::string& line : lines)
    bytes.append(line).append("\r\n");
  return bytes.append("\r\n");
}

} // namespace lumotune::base
