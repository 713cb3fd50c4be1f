// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/categories.h"

#include "base/code_page_fold.h"
#include "base/line_walk.h"
#include "base/text.h"
#include "stations/conversion.h"

namespace lumotune::stations {
namespace {

constexpr std::size_t top_level_length = 6;
constexpr const wchar_t* every_station = L"100000";

} // namespace

std::vector<CategoryNode> read_categories(std::string_view bytes, const platform::AnsiCodec& codec) {
  constexpr std::size_t prefix_length = 5; // "new//", "add//"
  constexpr std::string_view delimiter = "/@/";
  std::vector<CategoryNode> nodes;
  base::LineWalk walk(bytes);
  while (nodes.size() < max_categories && walk.next()) {
    std::string_view line = walk.line();
    const bool child = base::starts_with_marker(line, "add//");
    if (!child && !base::starts_with_marker(line, "new//"))
      continue;
    line.remove_prefix(prefix_length);
    const std::size_t cut = line.find(delimiter);
    if (cut > max_category_id) // also when there is no delimiter
      continue;
    const std::wstring id = codec.decode(line.substr(0, cut));
    nodes.push_back({L"a" + id, child ? L"a" + id.substr(0, top_level_length) : std::wstring(),
                     codec.decode(line.substr(cut + delimiter.size(), max_category_name))});
  }
  return nodes;
}

std::wstring category_of_node(const std::wstring& node_key) {
  const std::wstring_view id = base::mid(node_key, 2);
  if (id.substr(0, top_level_length) != every_station || id == every_station)
    return std::wstring(id);
  return L"x" + std::wstring(base::mid(node_key, 8));
}

} // namespace lumotune::stations
