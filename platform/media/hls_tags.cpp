// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/hls_tags.h"

#include "platform/media/address.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace lumotune::media {
namespace {

constexpr std::size_t max_resolved = 3900; // FFmpeg's buffers hold 4,096 bytes, of a line with its tag as well
constexpr std::size_t max_name = 63;       // as FFmpeg's

bool is_quote(char c) {
  return c == '"' || c == '\\';
}

std::string_view without_blanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

// The value of an attribute, without its quotation marks; empty when it is missing.
std::string_view attribute(std::string_view attributes, std::string_view name) {
  while (!attributes.empty()) {
    const std::size_t equals = attributes.find('=');
    if (equals == std::string_view::npos)
      break;
    const std::string_view key = without_blanks(attributes.substr(0, equals));
    attributes.remove_prefix(equals + 1);
    const bool quoted = attributes.starts_with('"');
    if (quoted)
      attributes.remove_prefix(1);
    const std::size_t end = std::min(attributes.find(quoted ? '"' : ','), attributes.size());
    if (key == name)
      return attributes.substr(0, end);
    const std::size_t comma = attributes.find(',', end);
    attributes.remove_prefix(comma == std::string_view::npos ? attributes.size() : comma + 1);
  }
  return {};
}

// A name within quotation marks, as far as FFmpeg takes it.
std::string quoted_name(std::string_view text) {
  std::string name = "\"";
  for (const char c : text.substr(0, max_name)) {
    if (!is_quote(c) && !has_control({&c, 1}))
      name += c;
  }
  return name + '"';
}

bool is_quotable_address(std::string_view text, std::size_t base) {
  return !text.empty() && is_hls_address(text, base) && std::none_of(text.begin(), text.end(), is_quote);
}

// Empty or up to 16 bytes in hexadecimal.
bool is_vector(std::string_view text) {
  constexpr std::size_t most_digits = 32;
  if (text.empty())
    return true;
  if (!text.starts_with("0x") && !text.starts_with("0X"))
    return false;
  text.remove_prefix(2);
  return text.size() <= most_digits && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

} // namespace

bool is_hls_address(std::string_view text, std::size_t base) {
  return base + text.size() <= max_resolved && !has_control(text);
}

std::int64_t hls_number(std::string_view text, std::int64_t least, std::int64_t most) {
  text = without_blanks(text);
  std::int64_t value = least;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool beyond = error == std::errc::result_out_of_range && !text.starts_with('-');
  return beyond ? most : std::clamp(value, least, most);
}

std::string hls_seconds(std::string_view text) {
  constexpr double longest_s = 3600;
  constexpr double ms_per_s = 1000;
  text = without_blanks(text);
  double seconds = 0;
  (void)std::from_chars(text.data(), text.data() + text.size(), seconds);
  const double kept = seconds > 0 ? std::min(seconds, longest_s) : 0; // not for what is no number either
  const auto ms = std::max<std::int64_t>(1, std::llround(kept * ms_per_s));
  const std::string thousandths = std::to_string(1000 + ms % 1000).substr(1);
  return std::to_string(ms / 1000) + '.' + thousandths;
}

std::optional<std::string> hls_range(std::string_view text) {
  constexpr std::int64_t most = 1'000'000'000'000;
  const std::size_t at = text.find('@');
  const std::int64_t length = hls_number(text.substr(0, at), 0, most);
  if (length == 0 || length == most)
    return std::nullopt;
  std::string range = std::to_string(length);
  if (at == std::string_view::npos)
    return range;
  const std::int64_t offset = hls_number(text.substr(at + 1), 0, most);
  return offset == most ? std::nullopt : std::optional(range + '@' + std::to_string(offset));
}

std::string hls_variant(std::string_view attributes) {
  const std::int64_t bandwidth =
      hls_number(attribute(attributes, "BANDWIDTH"), 0, std::numeric_limits<std::int32_t>::max());
  std::string text = "#EXT-X-STREAM-INF:BANDWIDTH=" + std::to_string(bandwidth);
  if (const std::string_view group = attribute(attributes, "AUDIO"); !group.empty())
    text += ",AUDIO=" + quoted_name(group);
  return text + '\n';
}

HlsRendition hls_rendition(std::string_view attributes, std::size_t base) {
  const std::string_view address = attribute(attributes, "URI");
  if (attribute(attributes, "TYPE") != "AUDIO" || (!address.empty() && !is_quotable_address(address, base)))
    return {};
  std::string text = "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=" + quoted_name(attribute(attributes, "GROUP-ID")) +
                     ",NAME=" + quoted_name(attribute(attributes, "NAME")) +
                     ",LANGUAGE=" + quoted_name(attribute(attributes, "LANGUAGE"));
  if (attribute(attributes, "DEFAULT") == "YES")
    text += ",DEFAULT=YES";
  if (!address.empty())
    text.append(",URI=\"").append(address) += '"';
  return {std::string(address), text + '\n'};
}

std::optional<std::string> hls_map(std::string_view attributes, std::size_t base) {
  const std::string_view address = attribute(attributes, "URI");
  if (!is_quotable_address(address, base))
    return std::nullopt;
  std::string text = "#EXT-X-MAP:URI=\"";
  text.append(address) += '"';
  if (const std::string_view given = attribute(attributes, "BYTERANGE"); !given.empty()) {
    const auto range = hls_range(given);
    if (!range)
      return std::nullopt;
    text += ",BYTERANGE=\"" + *range + '"';
  }
  return text + '\n';
}

std::optional<std::string> hls_key(std::string_view attributes, std::size_t base) {
  const std::string_view method = attribute(attributes, "METHOD");
  const std::string_view address = attribute(attributes, "URI");
  const std::string_view vector = attribute(attributes, "IV");
  if (method == "NONE")
    return "#EXT-X-KEY:METHOD=NONE\n";
  if (method != "AES-128" || !is_quotable_address(address, base) || !is_vector(vector))
    return std::nullopt;
  std::string text = "#EXT-X-KEY:METHOD=AES-128,URI=\"";
  text.append(address) += '"';
  if (!vector.empty())
    text.append(",IV=").append(vector);
  return text + '\n';
}

} // namespace lumotune::media
