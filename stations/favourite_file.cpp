// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/favourite_file.h"

#include "base/code_page_fold.h"
#include "base/line_walk.h"
#include "base/options_lines.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "stations/file_names.h"

#include <algorithm>
#include <set>

namespace lumotune::stations {
namespace {

constexpr const char* line_end = "\r\n";

std::string lines_with_ends(const base::TextLines& lines) {
  std::string bytes;
  for (const std::string& line : lines)
    bytes.append(line).append(line_end);
  return bytes;
}

bool is_no_line(const std::wstring& text) {
  return text.find_first_of(std::wstring_view(L"\r\n\0", 3)) != std::wstring::npos;
}

std::wstring folded(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(), base::fold);
  return text;
}

} // namespace

std::vector<Favourite> read_favourites(std::string_view bytes) {
  constexpr std::string_view prefix = "lt:";
  constexpr std::size_t quality_at = base::station_id_length + 1; // after the slash, which is not checked
  std::vector<Favourite> List5;
  for (base::LineWalk walk(bytes); walk.next();) {
    std::string_view line = walk.line();
    if (line.size() <= prefix.size() + quality_at || !base::starts_with_marker(line, prefix))
      continue;
    line.remove_prefix(prefix.size());
    const char quality = line[quality_at];
    if (quality >= '1' && quality <= '5')
      List5.push_back({line.substr(0, base::station_id_length), static_cast<std::size_t>(quality - '0')});
  }
  return List5;
}

std::wstring favourite_line(const std::wstring& id, const std::wstring& quality) {
  return L"lt:" + id + L"/" + quality;
}

std::wstring FavouriteFile::path() const {
  return folder_.path(favourites_file);
}

std::optional<std::string> FavouriteFile::read_bytes() const {
  std::string bytes;
  return folder_.files().read_at_most(path(), bytes, max_favourite_bytes) ? std::optional(std::move(bytes))
                                                                          : std::nullopt;
}

std::string FavouriteFile::read() const {
  return read_bytes().value_or(std::string());
}

FavouriteAdded FavouriteFile::add(const std::wstring& line) {
  if (is_no_line(line))
    return FavouriteAdded::failed;
  // An existing file that cannot be read is never written: its contents would be lost.
  const bool exists = folder_.files().exists(path());
  const auto bytes = exists ? read_bytes() : std::string();
  if (!bytes.has_value())
    return FavouriteAdded::failed;
  base::TextLines List3 = base::without_empty_lines(base::split_text_lines(*bytes));
  bool there = false;
  for (const std::string& kept : List3)
    there = there || base::equal_ignoring_case(folder_.codec().decode(kept), line);
  if (!there && !line.empty())
    List3.push_back(folder_.codec().encode(line));
  const std::string fresh = lines_with_ends(List3);
  if (fresh.empty()) {
    if (exists)
      (void)folder_.files().remove(path()); // a leftover file without favourites does no harm
    return FavouriteAdded::added;
  }
  if (fresh != *bytes && !folder_.files().replace(path(), fresh) && !there)
    return FavouriteAdded::failed;
  return there ? FavouriteAdded::already_there : FavouriteAdded::added;
}

std::optional<std::size_t> FavouriteFile::add_all(const std::vector<std::wstring>& lines) {
  const bool exists = folder_.files().exists(path());
  const auto bytes = exists ? read_bytes() : std::string();
  const bool single = std::none_of(lines.begin(), lines.end(), is_no_line);
  if (!bytes.has_value() || !single)
    return std::nullopt;
  base::TextLines List3 = base::without_empty_lines(base::split_text_lines(*bytes));
  std::set<std::wstring> there;
  for (const std::string& kept : List3)
    there.insert(folded(folder_.codec().decode(kept)));
  std::size_t added = 0;
  for (const std::wstring& line : lines) {
    if (line.empty() || !there.insert(folded(line)).second)
      continue;
    List3.push_back(folder_.codec().encode(line));
    ++added;
  }
  if (added > 0 && !folder_.files().replace(path(), lines_with_ends(List3)))
    return std::nullopt;
  return added;
}

FavouriteRemoved FavouriteFile::remove(const std::wstring& line) {
  const auto bytes = read_bytes();
  if (!bytes.has_value() && folder_.files().exists(path()))
    return FavouriteRemoved::failed;
  base::TextLines List5 = base::without_empty_lines(base::split_text_lines(bytes.value_or(std::string())));
  const std::size_t removed = std::erase_if(
      List5, [&](const std::string& kept) { return base::equal_ignoring_case(folder_.codec().decode(kept), line); });
  if (!folder_.files().replace(path(), line_end + lines_with_ends(List5)))
    return FavouriteRemoved::failed;
  return removed == 0 ? FavouriteRemoved::not_there : FavouriteRemoved::removed;
}

} // namespace lumotune::stations
