// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/retry_after.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <vector>

namespace lumotune::media {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_letters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t first = text.find_first_not_of(blanks);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<int> number(std::string_view digits, std::size_t most_digits) {
  int value = 0;
  if (digits.empty() || digits.size() > most_digits || digits.front() == '-')
    return std::nullopt;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size())
    return std::nullopt;
  return value;
}

std::vector<std::string_view> words_of(std::string_view text) {
  std::vector<std::string_view> words;
  while (words.size() < 8) {
    const std::size_t first = text.find_first_not_of(" ,-:");
    if (first == std::string_view::npos)
      break;
    text.remove_prefix(first);
    const std::size_t length = std::min(text.find_first_of(" ,-:"), text.size());
    words.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return words;
}

std::optional<unsigned> month_of(std::string_view name) {
  constexpr std::array<std::string_view, 12> names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const auto* const found =
      std::find_if(names.begin(), names.end(), [&](std::string_view each) { return same_letters(each, name); });
  if (found == names.end())
    return std::nullopt;
  return static_cast<unsigned>(found - names.begin()) + 1;
}

struct DateWords {
  std::string_view day, month, year, hour, minute, second;
};

std::optional<sys_seconds> date_of(const DateWords& words) {
  const auto day = number(words.day, 2);
  const auto month = month_of(words.month);
  const auto year = number(words.year, 4);
  const auto hour = number(words.hour, 2);
  const auto minute = number(words.minute, 2);
  const auto second = number(words.second, 2);
  if (!day || !month || !year || !hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 60)
    return std::nullopt;
  constexpr int first_short_year = 1970; // of two digits, whose century is the nearest sensible one
  const int full = *year >= 100 ? *year : (*year < first_short_year - 1900 ? *year + 2000 : *year + 1900);
  const std::chrono::year_month_day date{std::chrono::year(full), std::chrono::month(*month),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok())
    return std::nullopt;
  return sys_seconds(std::chrono::sys_days(date)) + std::chrono::hours(*hour) + std::chrono::minutes(*minute) +
         seconds(*second);
}

} // namespace

std::string_view header_field(std::string_view head, std::string_view name) {
  for (std::size_t line = head.find('\n'); line != std::string_view::npos; line = head.find('\n')) {
    head.remove_prefix(line + 1);
    const std::string_view field = head.substr(0, head.find('\n'));
    const std::size_t colon = field.find(':');
    if (colon != std::string_view::npos && same_letters(field.substr(0, colon), name))
      return trimmed(field.substr(colon + 1));
  }
  return {};
}

// "Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT", "Sun Nov  6 08:49:37 1994".
std::optional<sys_seconds> http_date(std::string_view text) {
  constexpr std::size_t with_zone = 8;
  constexpr std::size_t without_zone = 7;
  const auto words = words_of(text);
  if (words.size() == with_zone && same_letters(words[7], "GMT"))
    return date_of({words[1], words[2], words[3], words[4], words[5], words[6]});
  if (words.size() == without_zone)
    return date_of({words[2], words[1], words[6], words[3], words[4], words[5]});
  return std::nullopt;
}

std::optional<seconds> retry_after(std::string_view head, sys_seconds now) {
  constexpr seconds most = std::chrono::hours(24);
  constexpr std::size_t most_digits = 9;
  const std::string_view value = header_field(head, "Retry-After");
  if (!value.empty() && value.find_first_not_of("0123456789") == std::string_view::npos)
    return std::min(seconds(number(value, most_digits).value_or(static_cast<int>(most.count()))), most);
  const auto until = http_date(value);
  if (!until)
    return std::nullopt;
  const auto sent = http_date(header_field(head, "Date"));
  return std::clamp(*until - sent.value_or(now), seconds(0), most);
}

} // namespace lumotune::media
