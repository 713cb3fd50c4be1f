// SPDX-License-Identifier: LGPL-2.1-or-later
// The category file and the tree nodes made from it. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// A node for the tree, which rejects a duplicate key or an unknown parent.
struct CategoryNode {
  std::wstring key;        // "a" and the category identifier
  std::wstring parent_key; // "a" and the first six characters of the identifier; empty for a root
  std::wstring name;
};

inline constexpr std::size_t max_category_id = 100; // characters, like the next one
inline constexpr std::size_t max_category_name = 1000;

// The nodes in file order, at most `max_categories`. Lines that are not categories, lack the name or have an identifier
// longer than `max_category_id` are skipped; names are cut to `max_category_name`.
[[nodiscard]] std::vector<CategoryNode> read_categories(std::string_view bytes, const platform::AnsiCodec& codec);

// The category shown when a node is chosen, as ZobrazKategoriiRadii takes it.
[[nodiscard]] std::wstring category_of_node(const std::wstring& node_key);

} // namespace lumotune::stations
