// SPDX-License-Identifier: LGPL-2.1-or-later
// The category file and the nodes of the tree that it makes. Pure.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// A node to be added to the tree, which refuses one whose key is taken or whose parent is unknown.
struct CategoryNode {
  std::wstring key;        // "a" and the category's identifier
  std::wstring parent_key; // "a" and the first six characters of the identifier; empty for a root
  std::wstring name;
};

inline constexpr std::size_t max_category_id = 100; // characters, as of the next one
inline constexpr std::size_t max_category_name = 1000;

// The nodes in file order, the first `max_categories` of them. Lines that are no category, are torn before their name
// or have an identifier longer than `max_category_id` are left out; a longer name than `max_category_name` is cut.
[[nodiscard]] std::vector<CategoryNode> read_categories(std::string_view bytes, const platform::AnsiCodec& codec);

// What choosing a node shows, as ZobrazKategoriiRadii takes it.
[[nodiscard]] std::wstring category_of_node(const std::wstring& node_key);

} // namespace lumotune::stations
