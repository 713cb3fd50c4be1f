// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/station_rows.h"

#include "base/text.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace lumotune::directory {
namespace {

using stations::StationField;

constexpr std::size_t top_level_length = 6; // characters of a category code before the subcategory part
constexpr std::size_t appended_from = 4;    // the marker's fifth character
constexpr std::size_t most_words = 20;      // of a filter

std::string_view rest_of(std::string_view text, std::size_t from) {
  return text.substr(std::min(from, text.size()));
}

std::wstring letters_of(const platform::AnsiCodec& codec) {
  std::string bytes(256, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  return codec.decode(bytes);
}

} // namespace

StationRows::StationRows(const platform::AnsiCodec& codec)
    : codec_(codec),
      fold_(codec),
      letters_(letters_of(codec)),
      plain_letters_(codec),
      keys_(fold_, [this](std::size_t row) { return record(lines_->line(rows_[row - 1]))[StationField::id]; }) {}

stations::StationRecord StationRows::record(std::string_view line) const {
  return {line, codec_};
}

std::string_view StationRows::line(std::size_t row) const {
  if (row == 0 || row > count())
    return {};
  return lines_->line(rows_[filtered() ? shown_[row - 1] : row - 1]);
}

std::wstring StationRows::text(std::size_t row, std::size_t column) const {
  const stations::StationRecord station = record(line(row));
  if (column == 1)
    return station.text(StationField::country);
  if (column != 0)
    return {};
  std::string name(station[StationField::name]);
  return codec_.decode(name.append(rest_of(station[StationField::marker], appended_from)));
}

std::size_t StationRows::beginning(std::size_t row, wchar_t* out, std::size_t room) const {
  const stations::StationRecord station = record(line(row));
  wchar_t* at = out;
  const auto add = [&](std::string_view bytes) {
    for (const char byte : bytes.substr(0, room - static_cast<std::size_t>(at - out)))
      *at++ = letters_[static_cast<std::uint8_t>(byte)];
  };
  add(station[StationField::name]);
  if (static_cast<std::size_t>(at - out) < room)
    add(rest_of(station[StationField::marker], appended_from));
  return static_cast<std::size_t>(at - out);
}

bool StationRows::bold(std::size_t row) const {
  return base::starts_with_marker(record(line(row))[StationField::marker], "tip");
}

std::wstring StationRows::key(std::size_t row) const {
  if (row == 0 || row > count())
    return {};
  return L"orb" + record(line(row)).text(StationField::id);
}

std::size_t StationRows::find_unfiltered(const std::wstring& IDradia) const {
  const auto id = base::exact_bytes(codec_, IDradia);
  return id.has_value() && !id->empty() ? keys_.find(*id) : 0;
}

std::size_t StationRows::find(const std::wstring& IDradia) const {
  const std::size_t row = find_unfiltered(IDradia);
  if (row == 0 || !filtered())
    return row;
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), row - 1);
  return found == shown_.end() || *found != row - 1 ? 0 : static_cast<std::size_t>(found - shown_.begin()) + 1;
}

bool StationRows::filtered_away(const std::wstring& IDradia) const {
  return filtered() && find_unfiltered(IDradia) != 0 && find(IDradia) == 0;
}

void StationRows::set_filter(const std::wstring& typed) {
  filter_.reset();
  Filter wanted;
  for (const std::wstring& word : base::split_text(typed, L" ", most_words)) {
    if (word.empty())
      continue;
    const auto plain = plain_letters_.of(word);
    wanted.possible = wanted.possible && plain.has_value();
    wanted.words.push_back(plain.value_or(std::string()));
  }
  if (!wanted.words.empty())
    filter_ = std::move(wanted);
  apply_filter();
}

// The buffer is kept from station to station.
bool StationRows::passes(std::string_view line, std::string& plain) const {
  const stations::StationRecord station = record(line);
  plain.clear();
  plain_letters_.append(plain, station[StationField::name]);
  plain_letters_.append(plain, rest_of(station[StationField::marker], appended_from));
  plain += '\n'; // no word reaches from the name into the country
  plain_letters_.append(plain, station[StationField::country]);
  return std::all_of(filter_->words.begin(), filter_->words.end(),
                     [&](const std::string& word) { return plain.find(word) != std::string::npos; });
}

void StationRows::apply_filter() {
  shown_.clear();
  if (!filtered() || !filter_->possible)
    return;
  std::string plain;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (passes(lines_->line(rows_[i]), plain))
      shown_.push_back(static_cast<std::uint32_t>(i));
  }
}

void StationRows::clear() {
  rows_.clear();
  shown_.clear();
  keys_.clear();
  lines_.reset();
}

void StationRows::PridejDoSeznamu(std::size_t line_number) {
  if (keys_.add(rows_.size() + 1, record(lines_->line(line_number))[StationField::id]))
    rows_.push_back(static_cast<std::uint32_t>(line_number));
}

template <typename Wanted>
void StationRows::fill(const std::shared_ptr<const stations::StationLines>& List1, const Wanted& wanted) {
  clear();
  lines_ = List1;
  for (std::size_t i = 0; lines_ && i < lines_->count(); ++i) {
    const std::string_view text = lines_->line(i);
    if (!text.empty() && wanted(record(text)))
      PridejDoSeznamu(i);
  }
  apply_filter();
}

void StationRows::begin_all(const std::shared_ptr<const stations::StationLines>& List1) {
  clear();
  lines_ = List1;
  next_line_ = 0;
}

bool StationRows::add_more(std::size_t most_lines) {
  const std::size_t count = lines_ ? lines_->count() : 0;
  const std::size_t end = next_line_ + std::min(most_lines, count - next_line_);
  for (; next_line_ < end; ++next_line_) {
    if (!lines_->line(next_line_).empty())
      PridejDoSeznamu(next_line_);
  }
  const bool complete = next_line_ == count;
  if (complete)
    apply_filter();
  return complete;
}

void StationRows::show_all(const std::shared_ptr<const stations::StationLines>& List1) {
  begin_all(List1);
  (void)add_more(List1 ? List1->count() : 0); // all of them
}

void StationRows::ZobrazKategoriiRadii(const std::shared_ptr<const stations::StationLines>& List1,
                                       std::wstring& Kategorie) {
  // Seven characters on purpose: only the whole identifier stands for every station.
  if (base::equal_ignoring_case(base::mid(Kategorie, 1, 7), L"100000"))
    Kategorie.clear();
  if (Kategorie.empty())
    return show_all(List1);
  const auto wanted = base::exact_bytes(codec_, Kategorie);
  if (!wanted.has_value())
    return clear(); // category codes never contain characters outside the code page
  const std::string_view category = *wanted;
  if (base::starts_with_marker(category, "x"))
    return fill(List1, [&](const stations::StationRecord& station) {
      return fold_.equal(rest_of(station[StationField::category], top_level_length), category.substr(1));
    });
  fill(List1, [&](const stations::StationRecord& station) {
    return fold_.starts_with(station[StationField::category], category);
  });
}

} // namespace lumotune::directory
