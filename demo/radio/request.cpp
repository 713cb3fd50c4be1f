// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/radio/request.h"

#include <algorithm>

namespace demo_radio {
namespace {

std::string_view cut_line(std::string_view& text) {
  const std::size_t end = text.find("\r\n");
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
  return line;
}

bool equal_ignoring_case(std::string_view text, std::string_view lower) {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char one, char other) {
    return (one >= 'A' && one <= 'Z' ? static_cast<char>(one - 'A' + 'a') : one) == other;
  });
}

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  return begin == std::string_view::npos ? std::string_view()
                                         : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

} // namespace

std::optional<Request> parse_request(std::string_view head) {
  if (head.size() > longest_head || !head.ends_with("\r\n\r\n"))
    return std::nullopt;
  const std::string_view line = cut_line(head);
  const std::size_t first = line.find(' ');
  const std::size_t second = line.rfind(' ');
  if (first == std::string_view::npos || second <= first || !line.substr(second + 1).starts_with("HTTP/1."))
    return std::nullopt;
  const std::string_view method = line.substr(0, first);
  const std::string_view target = line.substr(first + 1, second - first - 1);
  if ((method != "GET" && method != "HEAD") || target.empty() || (target[0] != '/' && target[0] != '\\'))
    return std::nullopt;
  Request request{std::string(target), method == "HEAD", false};
  while (!head.empty()) {
    const std::string_view field = cut_line(head);
    const std::size_t colon = field.find(':');
    if (colon != std::string_view::npos && equal_ignoring_case(field.substr(0, colon), "icy-metadata"))
      request.wants_titles = trimmed(field.substr(colon + 1)) == "1";
  }
  return request;
}

} // namespace demo_radio
