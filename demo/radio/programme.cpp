// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/radio/programme.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <stdexcept>

namespace demo_radio {
namespace {

constexpr std::size_t longest_table = 1024UL * 1024;
constexpr std::size_t most_lines = 5000;
constexpr std::size_t longest_rest = 64UL * 1024 * 1024;

[[noreturn]] void refuse(const std::string& what) {
  throw std::runtime_error(what);
}

std::string read(const std::filesystem::path& path, std::size_t longest) {
  std::ifstream source(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = source ? static_cast<std::streamoff>(source.tellg()) : -1;
  if (size < 0 || static_cast<std::uint64_t>(size) > longest)
    refuse("missing or too long: " + path.filename().string());
  std::string text(static_cast<std::size_t>(size), '\0');
  source.seekg(0);
  if (!source.read(text.data(), static_cast<std::streamsize>(size)))
    refuse("cannot be read: " + path.filename().string());
  return text;
}

std::vector<std::string_view> parts(std::string_view text, char separator) {
  std::vector<std::string_view> found;
  while (true) {
    const std::size_t end = text.find(separator);
    found.push_back(text.substr(0, end));
    if (end == std::string_view::npos)
      return found;
    text.remove_prefix(end + 1);
  }
}

std::uint32_t number(std::string_view text) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size())
    refuse("no number: " + std::string(text));
  return value;
}

// A name in the folder of sounds: it leads nowhere else.
bool is_file_name(std::string_view text) {
  return !text.empty() && text.front() != '.' && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.';
  });
}

std::string with_address(std::string_view text, const std::string& address) {
  constexpr std::string_view mark = "{RADIO}";
  std::string whole;
  for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark)) {
    whole.append(text.substr(0, at)).append(address);
    text.remove_prefix(at + mark.size());
  }
  return whole.append(text);
}

struct Target {
  std::string path;
  std::string_view query;
};

Target split(std::string_view text) {
  const std::size_t mark = text.find('?');
  Target target{std::string(text.substr(0, mark)),
                mark == std::string_view::npos ? std::string_view() : text.substr(mark + 1)};
  std::replace(target.path.begin(), target.path.end(), '\\', '/');
  return target;
}

std::string_view value_of(std::string_view query, std::string_view name) {
  for (const std::string_view pair : parts(query, '&')) {
    if (pair.size() > name.size() && pair.starts_with(name) && pair[name.size()] == '=')
      return pair.substr(name.size() + 1);
  }
  return {};
}

std::string lower(std::string_view text) {
  std::string lowered(text);
  for (char& each : lowered) {
    if (each >= 'A' && each <= 'Z')
      each = static_cast<char>(each - 'A' + 'a');
  }
  return lowered;
}

} // namespace

Programme::Programme(const std::filesystem::path& folder, const std::string& address) : left_(longest_rest) {
  const std::string table = read(folder / "odpovedi.tsv", longest_table);
  const std::string bodies = read(folder / "odpovedi.bin", left_);
  left_ -= bodies.size();
  const auto lines = parts(table, '\n');
  if (lines.size() > most_lines)
    refuse("too many lines");
  for (const std::string_view line : lines) {
    if (!line.empty())
      take(parts(line, '\t'), folder, bodies, address);
  }
}

void Programme::take(const std::vector<std::string_view>& cells, const std::filesystem::path& folder,
                     std::string_view bodies, const std::string& address) {
  const std::string_view kind = cells[0];
  if (kind == "stream" && cells.size() == 8) {
    if (!is_file_name(cells[3]) || number(cells[4]) == 0)
      refuse("no sound: " + std::string(cells[3]));
    Stream stream{std::string(cells[2]), std::string(cells[6]), number(cells[5]), number(cells[4]), {}, {}, false};
    for (const std::string_view title : parts(cells[7], '|'))
      stream.titles.emplace_back(title);
    stream.sound = read(folder / "zvuk" / std::string(cells[3]), left_);
    if (stream.sound.empty())
      refuse("no sound: " + std::string(cells[3]));
    left_ -= stream.sound.size();
    stream.has_inner_titles = cells[3].ends_with(".ogg");
    streams_.emplace(cells[1], std::move(stream));
    return;
  }
  if ((kind != "reply" && kind != "list" && kind != "prefix") || cells.size() != 6)
    refuse("no line of the table: " + std::string(kind));
  const std::size_t offset = number(cells[3]);
  const std::size_t length = number(cells[4]);
  if (offset > bodies.size() || length > bodies.size() - offset)
    refuse("no reply there: " + std::string(cells[1]));
  auto& place = kind == "reply" ? replies_ : kind == "list" ? lists_ : prefixes_;
  place.emplace(cells[1],
                Reply{std::string(cells[2]), with_address(bodies.substr(offset, length), address), number(cells[5])});
}

const Stream* Programme::stream(std::string_view target) const {
  const auto found = streams_.find(split(target).path);
  return found == streams_.end() ? nullptr : &found->second;
}

Reply Programme::reply(std::string_view target) const {
  const auto [path, query] = split(target);
  if (const auto found = lists_.find(path); found != lists_.end()) {
    if (value_of(query, "size") != "1")
      return found->second;
    return {"text/plain; charset=utf-8", "size:" + std::to_string(found->second.body.size()) + "\r\n", 0};
  }
  if (const std::string_view station = value_of(query, "tid"); !station.empty()) {
    if (const auto found = replies_.find(path + "?tid=" + lower(station)); found != replies_.end())
      return found->second;
  }
  if (const auto found = replies_.find(path); found != replies_.end())
    return found->second;
  for (const auto& [prefix, reply] : prefixes_) {
    if (path.starts_with(prefix))
      return reply;
  }
  return {};
}

} // namespace demo_radio
