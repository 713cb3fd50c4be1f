// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/dropped_address.h"

#include "base/text.h"
#include "companions/web_address.h"

#include <algorithm>
#include <array>

namespace lumotune::player {
namespace {

constexpr auto npos = std::wstring_view::npos;

bool is_letter(wchar_t character) {
  return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

// Takes the first line off, without its end and the blanks around it.
std::wstring_view take_line(std::wstring_view& text) {
  const std::size_t end = text.find_first_of(L"\r\n");
  const std::wstring_view line = base::trimmed(text.substr(0, end));
  text.remove_prefix(end == npos ? text.size() : end + 1);
  return line;
}

std::wstring_view name_of(std::wstring_view path) {
  const std::size_t cut = path.find_last_of(L"\\/");
  return path.substr(cut == npos ? 0 : cut + 1);
}

// "con", "Com1.url", "nul .m3u": Windows opens the device, whatever the folder, and a read of it may never end.
bool is_device_name(std::wstring_view name) {
  name = base::trimmed(name.substr(0, name.find(L'.')));
  constexpr std::array<std::wstring_view, 7> devices = {L"con",    L"prn",     L"aux",   L"nul",
                                                        L"conin$", L"conout$", L"clock$"};
  const auto is = [&](std::wstring_view device) { return base::equal_ignoring_case(name, device); };
  if (std::any_of(devices.begin(), devices.end(), is))
    return true;
  const bool port = base::starts_with_ignoring_case(name, L"com") || base::starts_with_ignoring_case(name, L"lpt");
  return port && name.size() == 4 && std::wstring_view(L"0123456789\u00b9\u00b2\u00b3").find(name[3]) != npos;
}

} // namespace

bool is_path_of_drive(std::wstring_view path) {
  if (path.size() < 4 || !is_letter(path[0]) || path[1] != L':' || (path[2] != L'\\' && path[2] != L'/'))
    return false;
  path.remove_prefix(3);
  if (path.find_first_of(L"\"*:<>?|") != npos) // a further colon leads to a stream of the file
    return false;
  while (!path.empty()) {
    const std::size_t end = path.find_first_of(L"\\/");
    if (is_device_name(path.substr(0, end)))
      return false;
    path.remove_prefix(end == npos ? path.size() : end + 1);
  }
  return true;
}

bool has_ending(std::wstring_view path, std::wstring_view ending) {
  const std::wstring_view name = name_of(path);
  const std::size_t dot = name.rfind(L'.');
  return dot != npos && base::equal_ignoring_case(name.substr(dot + 1), ending);
}

std::wstring stem_of(std::wstring_view path) {
  const std::wstring_view name = name_of(path);
  const std::size_t dot = name.rfind(L'.');
  return std::wstring(dot == npos || dot == 0 ? name : name.substr(0, dot));
}

std::wstring address_of_text(std::wstring_view text) {
  std::wstring_view line;
  while (line.empty() && !text.empty())
    line = take_line(text);
  return companions::is_stream_address(line) ? std::wstring(line) : std::wstring();
}

std::wstring address_of_shortcut(std::wstring_view content) {
  constexpr std::wstring_view key = L"URL=";
  bool in_section = false;
  while (!content.empty()) {
    const std::wstring_view line = take_line(content);
    if (line.starts_with(L'['))
      in_section = base::equal_ignoring_case(line, L"[InternetShortcut]");
    else if (in_section && base::starts_with_ignoring_case(line, key))
      return address_of_text(line.substr(key.size()));
  }
  return {};
}

std::wstring host_of_address(std::wstring_view address) {
  const std::size_t slashes = address.find(L"://");
  if (slashes == npos)
    return {};
  std::wstring_view host = address.substr(slashes + 3);
  host = host.substr(0, host.find_first_of(L"/?#"));
  if (const std::size_t sign = host.rfind(L'@'); sign != npos)
    host.remove_prefix(sign + 1);
  return std::wstring(host.substr(0, host.starts_with(L'[') ? npos : host.find(L':')));
}

} // namespace lumotune::player
