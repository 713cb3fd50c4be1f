// SPDX-License-Identifier: LGPL-2.1-or-later
// Pop-up menus as data. A room defines its menus as a constexpr table, one row per item. A MenuTree holds the captions
// and check marks of one opening: it is built from the current state and then discarded.
#pragma once

#include "platform/popup_menus.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::base {

inline constexpr std::wstring_view menu_separator = L"-"; // the caption of a separator row

// `Choice`: the parameters of an item's procedure.
template <typename... Choice>
struct MenuRow {
  using Procedure = void (*)(Choice...);

  // A menu or a separator.
  constexpr MenuRow(std::size_t depth_given, std::wstring_view name_given, std::wstring_view caption_given)
      : depth(depth_given), name(name_given), caption(caption_given) {}
  // A selectable item.
  constexpr MenuRow(std::size_t depth_given, std::wstring_view name_given, std::wstring_view caption_given,
                    Procedure procedure)
      : depth(depth_given), name(name_given), caption(caption_given), act(procedure), acts(true) {}

  std::size_t depth; // 0: a top-level menu; the rows below it are one deeper
  std::wstring_view name;
  std::wstring_view caption;
  Procedure act = nullptr;
  bool acts = false; // `act != nullptr`, which is not a constant expression under the sanitizers
};

// Selectable items have a procedure and no other row has; depth increases by at most one from row to row; names are
// unique. A row at depth 0 may have no items.
template <typename Rows>
consteval bool well_formed(const Rows& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool menu = rows[i].depth == 0 || (i + 1 < rows.size() && rows[i + 1].depth > rows[i].depth);
    const bool chosen = !menu && rows[i].caption != menu_separator;
    if (rows[i].depth > (i == 0 ? 0 : rows[i - 1].depth + 1) || chosen != rows[i].acts)
      return false;
    for (std::size_t other = 0; other < i; ++other) {
      if (rows[other].name == rows[i].name)
        return false;
    }
  }
  return true;
}

struct MenuNode {
  std::size_t depth = 0;
  platform::MenuItem item;
  std::vector<platform::MenuItem> elements; // shown instead of the item when not empty
};

// Takes the leading items of that depth, with their children, off `nodes`.
[[nodiscard]] std::vector<platform::MenuItem> take_items(std::span<const MenuNode>& nodes, std::size_t depth);

// `Table::rows` is the design, an array of MenuRow.
template <typename Table>
class MenuTree {
  static constexpr const auto& rows = Table::rows;
  static_assert(well_formed(rows),
                "every item that can be chosen has one row with a procedure, at a depth of its menu");

public:
  using Row = typename std::remove_cvref_t<decltype(Table::rows)>::value_type;

  // The name of a row. A name that is not in the table does not compile.
  class Name {
  public:
    consteval Name(const wchar_t* name) { // NOLINT(google-explicit-constructor): literals stand where names are used
      while (rows.at(row_).name != name)
        ++row_;
    }
    [[nodiscard]] constexpr std::size_t row() const { return row_; }

  private:
    std::size_t row_ = 0;
  };

  MenuTree() { // initial state: everything visible and enabled, nothing checked
    for (std::size_t row = 0; row < rows.size(); ++row) {
      nodes_[row].depth = rows[row].depth;
      nodes_[row].item.name = rows[row].name;
      nodes_[row].item.caption = rows[row].caption;
      nodes_[row].item.separator = rows[row].caption == menu_separator;
    }
  }

  [[nodiscard]] platform::MenuItem& item(Name name) { return nodes_[name.row()].item; }

  // Replaces the row by these items, named NAME(0), NAME(1) and so on; each runs the row's procedure.
  void set_elements(Name name, std::vector<platform::MenuItem> elements) {
    MenuNode& node = nodes_[name.row()];
    for (std::size_t index = 0; index < elements.size(); ++index)
      elements[index].name = node.item.name + L"(" + std::to_wstring(index) + L")";
    node.elements = std::move(elements);
  }

  // The items of a menu.
  [[nodiscard]] std::vector<platform::MenuItem> below(Name menu) const {
    auto rest = std::span<const MenuNode>(nodes_).subspan(menu.row() + 1);
    return take_items(rest, rows[menu.row()].depth + 1);
  }
  [[nodiscard]] std::vector<platform::MenuItem> all() const {
    std::span<const MenuNode> rest = nodes_;
    return take_items(rest, 0);
  }

  struct Chosen {
    const Row& row;
    std::wstring caption; // as the user saw it
  };
  // The item with the name that a pop-up menu reported; none for a name that is no selectable item's.
  [[nodiscard]] std::optional<Chosen> chosen(const std::wstring& name) const {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (!rows[row].acts)
        continue;
      if (const platform::MenuItem* item = find(nodes_[row], name))
        return Chosen{rows[row], item->caption};
    }
    return std::nullopt;
  }

private:
  static const platform::MenuItem* find(const MenuNode& node, const std::wstring& name) {
    for (const platform::MenuItem& element : node.elements) {
      if (element.name == name)
        return &element;
    }
    return node.elements.empty() && node.item.name == name ? &node.item : nullptr;
  }

  std::array<MenuNode, rows.size()> nodes_;
};

} // namespace lumotune::base
