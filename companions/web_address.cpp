// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/web_address.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace lumotune::companions {
namespace {

constexpr auto npos = std::wstring_view::npos;

bool is_control(wchar_t character) {
  return character < L' ' || character == 0x7F;
}

bool is_digit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

// Valid in a host name; includes national letters.
bool is_host_character(wchar_t character) {
  return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z') || is_digit(character) ||
         character == L'-' || character == L'_' || character >= 0xC0;
}

// Extensions of files that the system runs, or that lead to programs, each between blanks.
constexpr std::wstring_view program_endings = L" "
                                              L"exe com bat cmd pif scr msi msp mst "
                                              L"msix appx lnk url scf vbs vbe vb js "
                                              L"jse ws wsf wsc wsh sct hta ps1 psm1 "
                                              L"psd1 cpl msc reg inf jar jnlp chm hlp "
                                              L"dll gadget application library-ms settingcontent-ms appref-ms ";

bool is_program_ending(std::wstring_view ending) {
  if (ending.empty() || ending.find(L' ') != npos)
    return false;
  std::wstring small = L" ";
  std::transform(ending.begin(), ending.end(), std::back_inserter(small), base::fold);
  return program_endings.find(small + L" ") != npos;
}

// The file system drops dots and blanks at the end of a name.
std::wstring_view ending_of(std::wstring_view name) {
  while (!name.empty() && (name.back() == L'.' || name.back() == L' '))
    name.remove_suffix(1);
  const std::size_t dot = name.rfind(L'.');
  return dot == npos ? std::wstring_view() : name.substr(dot + 1);
}

bool is_host_name(std::wstring_view host) {
  bool dot_inside = false;
  for (std::size_t at = 0; at < host.size(); ++at) {
    if (is_host_character(host[at]))
      continue;
    const bool dot = host[at] == L'.' && at > 0 && at + 1 < host.size() && host[at + 1] != L'.';
    if (!dot)
      return false;
    dot_inside = true;
  }
  return dot_inside;
}

// "com" and "ws" are top-level domains as well: without "www." or a path such a name is taken for a file.
bool names_program(std::wstring_view host, std::wstring_view rest) {
  const std::wstring_view ending = ending_of(host);
  if (!is_program_ending(ending))
    return false;
  if (!base::equal_ignoring_case(ending, L"com") && !base::equal_ignoring_case(ending, L"ws"))
    return true;
  const bool www = base::starts_with_ignoring_case(host, L"www.") && host.find(L'.', 4) != npos;
  const bool path = rest.starts_with(L'/') && rest.find_first_not_of(L'/') != npos;
  return !www && !path;
}

bool is_port(std::wstring_view digits) {
  return !digits.empty() && digits.size() <= 5 && std::all_of(digits.begin(), digits.end(), is_digit);
}

bool is_harmless_path(std::wstring_view path) {
  for (const wchar_t character : path) {
    if (is_control(character) || std::wstring_view(L" \"\\<>|").find(character) != npos)
      return false;
  }
  return path.find(L"..") == npos && !is_program_ending(ending_of(path)) &&
         !is_program_ending(ending_of(path.substr(0, path.find_first_of(L"?#"))));
}

// One of the explorer's arguments after the first.
bool is_harmless_argument(std::wstring_view argument) {
  while (!argument.empty() && argument.front() == L' ')
    argument.remove_prefix(1);
  return !argument.starts_with(L'/') && argument.find_first_of(L"\\:") == npos &&
         !is_program_ending(ending_of(argument));
}

bool has_harmless_commas(std::wstring_view address) {
  for (std::size_t comma = address.find(L','); comma != npos;) {
    const std::size_t next = address.find(L',', comma + 1);
    if (!is_harmless_argument(address.substr(comma + 1, next == npos ? npos : next - comma - 1)))
      return false;
    comma = next;
  }
  return true;
}

} // namespace

bool is_for_explorer(std::wstring_view address) {
  return base::starts_with_ignoring_case(address, L"htt");
}

bool has_what_no_address_has(std::wstring_view address) {
  return std::any_of(address.begin(), address.end(), [](wchar_t each) { return each == L'"' || is_control(each); });
}

bool stays_one_argument(std::wstring_view address) {
  return !has_what_no_address_has(address) && (!is_for_explorer(address) || has_harmless_commas(address));
}

std::wstring with_harmless_commas(const std::wstring& part) {
  if (has_harmless_commas(part))
    return part;
  std::wstring coded;
  for (const wchar_t each : part)
    coded += each == L',' ? L"%2C" : std::wstring(1, each);
  return coded;
}

bool looks_like_web_host(std::wstring_view address) {
  const std::wstring_view host = address.substr(0, address.find_first_of(L":/?#"));
  std::wstring_view rest = address.substr(host.size());
  if (address.size() > max_web_address || !is_host_name(host) || names_program(host, rest))
    return false;
  if (rest.starts_with(L':')) {
    const std::wstring_view port = rest.substr(1, std::min(rest.find_first_of(L"/?#"), rest.size()) - 1);
    if (!is_port(port))
      return false;
    rest.remove_prefix(1 + port.size());
  }
  return is_harmless_path(rest);
}

bool is_stream_address(std::wstring_view address) {
  static constexpr std::array<std::wstring_view, 6> schemes = {L"http://", L"https://", L"mms://",
                                                               L"mmsh://", L"mmst://",  L"rtsp://"};
  if (address.size() > max_web_address || std::any_of(address.begin(), address.end(), [](wchar_t each) {
        return is_control(each) || std::wstring_view(L" \"\\<>|\u00A0").find(each) != npos;
      }))
    return false;
  return std::any_of(schemes.begin(), schemes.end(), [&](std::wstring_view scheme) {
    if (!base::starts_with_ignoring_case(address, scheme) || address.size() == scheme.size())
      return false;
    const wchar_t first = address[scheme.size()];
    return first == L'[' || (is_host_character(first) && first != L'-');
  });
}

bool is_foreign_target(std::wstring_view address) {
  constexpr std::wstring_view slashes = L"\\/";
  address = base::trimmed(address);
  if (address.size() >= 2 && slashes.find(address[0]) != npos && slashes.find(address[1]) != npos)
    return true;
  const std::wstring_view head = address.substr(0, address.find_first_of(L":\\/?#."));
  const bool colon = head.size() > 1 && head.size() < address.size() && address[head.size()] == L':';
  return colon && !(head.size() + 1 < address.size() && is_digit(address[head.size() + 1])); // a port
}

bool is_station_web(std::wstring_view address) {
  if (address.size() > max_web_address || !stays_one_argument(address))
    return false;
  for (const std::wstring_view scheme : {std::wstring_view(L"http://"), std::wstring_view(L"https://")}) {
    if (base::starts_with_ignoring_case(address, scheme))
      return address.size() > scheme.size() && is_host_character(address[scheme.size()]);
  }
  return looks_like_web_host(address);
}

} // namespace lumotune::companions
