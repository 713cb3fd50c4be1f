// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/title_lines.h"

#include "base/text.h"

#include <algorithm>

namespace lumotune::player {
namespace {

constexpr std::wstring_view separator = L" | ";
constexpr std::wstring_view switch_name = L"zapisovat:";

bool breaks_line(wchar_t character) {
  return character < L' ' || (character >= 0x7f && character <= 0x9f) || character == 0x2028 || character == 0x2029;
}

// A bar of its own would look like the border between two parts.
std::wstring part(std::wstring text, std::size_t length) {
  text.resize(std::min(text.size(), length));
  std::replace_if(
      text.begin(), text.end(), [](wchar_t each) { return breaks_line(each) || each == L'|'; }, L' ');
  return std::wstring(base::trimmed(text));
}

std::wstring_view without_time(std::wstring_view line) {
  const std::size_t end = line.find(separator);
  return end == std::wstring_view::npos ? line : line.substr(end + separator.size());
}

} // namespace

TitleLines::TitleLines(std::string_view bytes, const platform::AnsiCodec& codec)
    : codec_(codec), switch_line_(titles_switch) {
  for (const std::string& line : base::without_empty_lines(base::split_text_lines(bytes))) {
    std::wstring text = codec.decode(line);
    const std::wstring_view plain = base::trimmed(text);
    if (!base::starts_with_ignoring_case(plain, switch_name)) {
      titles_.push_back(std::move(text));
      continue;
    }
    off_ = off_ || base::equal_ignoring_case(base::trimmed(plain.substr(switch_name.size())), L"ne");
    switch_line_ = text;
  }
}

void TitleLines::add(const HeardTitle& heard) {
  const std::wstring rest = part(heard.station, max_station) + std::wstring(separator) + part(heard.title, max_title);
  // As the file will hold it: a character that the code page lacks must not make the title look like another.
  const std::wstring kept = codec_.decode(codec_.encode(rest));
  if (!titles_.empty() && without_time(titles_.back()) == kept)
    return;
  titles_.push_back(part(heard.when, max_when) + std::wstring(separator) + kept);
  if (titles_.size() > max_titles)
    titles_.erase(titles_.begin(), titles_.end() - static_cast<std::ptrdiff_t>(max_titles));
}

std::vector<std::wstring> TitleLines::last(std::size_t count, std::size_t length) const {
  std::vector<std::wstring> shown;
  for (auto line = titles_.rbegin(); line != titles_.rend() && shown.size() < count; ++line) {
    std::wstring text(without_time(*line));
    if (text.size() > length)
      text = text.substr(0, length) + L"...";
    shown.push_back(std::move(text));
  }
  return shown;
}

std::string TitleLines::bytes() const {
  std::string all = codec_.encode(switch_line_) + "\r\n";
  for (const std::wstring& line : titles_)
    all.append(codec_.encode(line)).append("\r\n");
  return all;
}

} // namespace lumotune::player
