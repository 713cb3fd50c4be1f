// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/menus.h"

#include <algorithm>

namespace lumotune::platform::memory {
namespace {

// Searches only visible and enabled items and their children.
const MenuItem* find_choosable(const std::vector<MenuItem>& items, const std::wstring& name) {
  for (const MenuItem& item : items) {
    if (!item.visible || !item.enabled)
      continue;
    if (item.name == name && item.children.empty() && !item.separator)
      return &item;
    if (const MenuItem* below = find_choosable(item.children, name))
      return below;
  }
  return nullptr;
}

} // namespace

const MenuItem* find_item(const std::vector<MenuItem>& items, const std::wstring& name) {
  for (const MenuItem& item : items) {
    if (item.name == name)
      return &item;
    if (const MenuItem* below = find_item(item.children, name))
      return below;
  }
  return nullptr;
}

std::wstring PopupMenus::pop_up(const std::vector<MenuItem>& items, const Control* anchor) {
  const bool any_seen = std::any_of(items.begin(), items.end(), [](const MenuItem& item) { return item.visible; });
  if (open_ || !any_seen || loop_.ending())
    return {};
  open_ = true;
  opened.push_back({items, anchor});
  // Copied: the caller's tree may change while the menu is open.
  const std::vector<MenuItem> shown = items; // NOLINT(performance-unnecessary-copy-initialization)
  modal.open(while_open);
  open_ = false;
  if (choices.empty() || loop_.ending())
    return {};
  const std::wstring choice = choices.front();
  choices.pop_front();
  if (after_choice)
    after_choice();
  return find_choosable(shown, choice) == nullptr ? std::wstring() : choice;
}

std::optional<std::wstring> InputBox::ask(const std::wstring& prompt, const std::wstring& title,
                                          const std::wstring& default_text) {
  if (open_ || loop_.ending())
    return std::nullopt;
  open_ = true;
  asked.push_back({prompt, title, default_text});
  modal.open(while_open);
  open_ = false;
  if (answers.empty() || loop_.ending())
    return std::nullopt;
  auto answer = answers.front();
  answers.pop_front();
  if (answer)
    answer->resize(std::min(answer->size(), max_length));
  return answer;
}

} // namespace lumotune::platform::memory
