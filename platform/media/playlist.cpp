// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/playlist.h"

#include <algorithm>
#include <cctype>

namespace lumotune::media {
namespace {

char to_lower(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), to_lower);
  return result;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string_view without_bom(std::string_view text) {
  return text.starts_with("\xef\xbb\xbf") ? text.substr(3) : text;
}

// True without control characters other than tabs and line ends.
bool looks_like_text(std::string_view bytes) {
  return !bytes.empty() && std::all_of(bytes.begin(), bytes.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 || c == '\t' || c == '\r' || c == '\n';
  });
}

void add(std::vector<std::string>& entries, std::string_view address) {
  address = trimmed(address);
  if (!address.empty() && entries.size() < max_playlist_entries)
    entries.emplace_back(address);
}

template <typename Use>
void each_line(std::string_view text, const Use& use) {
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    use(trimmed(text.substr(0, end)));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
}

std::string xml_text(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const auto take = [&](std::string_view name, char c) {
      if (!text.starts_with(name))
        return false;
      plain += c;
      text.remove_prefix(name.size());
      return true;
    };
    if (take("&amp;", '&') || take("&quot;", '"') || take("&apos;", '\'') || take("&lt;", '<') || take("&gt;", '>'))
      continue;
    plain += text.front();
    text.remove_prefix(1);
  }
  return plain;
}

// <ref href="...">: letter case and quotation marks vary between servers.
std::vector<std::string> asx_entries(std::string_view text) {
  std::vector<std::string> entries;
  const std::string folded = lower_case(text);
  for (std::size_t at = folded.find("<ref"); at != std::string::npos; at = folded.find("<ref", at + 4)) {
    const std::size_t close = std::min(folded.find('>', at), folded.size());
    const std::size_t href = folded.find("href", at);
    if (href >= close)
      continue;
    const std::size_t quote = folded.find_first_of("\"'", href);
    if (quote >= close)
      continue;
    const std::size_t end = folded.find(folded[quote], quote + 1);
    if (end != std::string::npos)
      add(entries, xml_text(text.substr(quote + 1, end - quote - 1)));
  }
  return entries;
}

std::vector<std::string> xspf_entries(std::string_view text) {
  std::vector<std::string> entries;
  constexpr std::string_view open = "<location>";
  for (std::size_t at = text.find(open); at != std::string_view::npos; at = text.find(open, at)) {
    at += open.size();
    const std::size_t end = text.find('<', at);
    if (end == std::string_view::npos)
      break;
    add(entries, xml_text(text.substr(at, end - at)));
  }
  return entries;
}

// "File1=http://..." of PLS and "Ref1=http://..." of reference files; other keys are ignored.
std::vector<std::string> keyed_entries(std::string_view text, std::string_view key) {
  std::vector<std::string> entries;
  each_line(text, [&](std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || !lower_case(line.substr(0, equals)).starts_with(key))
      return;
    std::string address(trimmed(line.substr(equals + 1)));
    // Reference files write http for servers that speak mms.
    if (key == "ref" && lower_case(address).starts_with("http://") && address.ends_with("?MSWMExt=.asf"))
      address.replace(0, 4, "mmsh");
    add(entries, address);
  });
  return entries;
}

std::vector<std::string> m3u_entries(std::string_view text) {
  std::vector<std::string> entries;
  each_line(text, [&](std::string_view line) {
    if (!line.empty() && line.front() != '#')
      add(entries, line);
  });
  return entries;
}

PlaylistKind kind_by_name(const std::string& type, const std::string& address) {
  const std::string path = address.substr(0, address.find_first_of("?#"));
  if (type.find("scpls") != std::string::npos || path.ends_with(".pls"))
    return PlaylistKind::pls;
  if (type.find("mpegurl") != std::string::npos || path.ends_with(".m3u") || path.ends_with(".m3u8"))
    return PlaylistKind::m3u;
  if (type.find("ms-asf") != std::string::npos || path.ends_with(".asx") || path.ends_with(".wax"))
    return PlaylistKind::asx;
  return path.ends_with(".xspf") || type.find("xspf") != std::string::npos ? PlaylistKind::xspf : PlaylistKind::none;
}

} // namespace

PlaylistKind playlist_kind(std::string_view first_bytes, std::string_view content_type, std::string_view address) {
  const std::string_view text = trimmed(without_bom(first_bytes));
  if (!looks_like_text(text))
    return PlaylistKind::none;
  const std::string start = lower_case(text);
  if (start.find("#ext-x-") != std::string::npos)
    return PlaylistKind::none;
  if (start.starts_with("[playlist]"))
    return PlaylistKind::pls;
  if (start.starts_with("[reference]"))
    return PlaylistKind::reference;
  if (start.starts_with("#extm3u"))
    return PlaylistKind::m3u;
  if (start.starts_with("<asx"))
    return PlaylistKind::asx;
  if (start.starts_with("<?xml") || start.starts_with("<playlist")) {
    if (start.find("<asx") != std::string::npos)
      return PlaylistKind::asx;
    return start.find("<playlist") != std::string::npos ? PlaylistKind::xspf : PlaylistKind::none;
  }
  if (start.starts_with("<"))
    return PlaylistKind::none; // an error page, whatever its type says
  const PlaylistKind named = kind_by_name(lower_case(content_type), lower_case(address));
  if (named != PlaylistKind::none)
    return named;
  return start.starts_with("http://") || start.starts_with("https://") ? PlaylistKind::m3u : PlaylistKind::none;
}

std::vector<std::string> playlist_entries(PlaylistKind kind, std::string_view text) {
  text = without_bom(text);
  switch (kind) {
  case PlaylistKind::pls:
    return keyed_entries(text, "file");
  case PlaylistKind::reference:
    return keyed_entries(text, "ref");
  case PlaylistKind::m3u:
    return m3u_entries(text);
  case PlaylistKind::asx:
    return asx_entries(text);
  case PlaylistKind::xspf:
    return xspf_entries(text);
  case PlaylistKind::none:
    break;
  }
  return {};
}

} // namespace lumotune::media
