// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/menu_tree.h"

namespace lumotune::base {

std::vector<platform::MenuItem> take_items(std::span<const MenuNode>& nodes, std::size_t depth) {
  std::vector<platform::MenuItem> items;
  while (!nodes.empty() && nodes.front().depth == depth) {
    const MenuNode& node = nodes.front();
    nodes = nodes.subspan(1);
    if (!node.elements.empty()) {
      items.insert(items.end(), node.elements.begin(), node.elements.end());
      continue;
    }
    items.push_back(node.item);
    items.back().children = take_items(nodes, depth + 1);
  }
  return items;
}

} // namespace lumotune::base
