// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's tree. Its nodes are numbered in the order in which they were added.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/child_window.h"
#include "platform/win32/keys_down.h"

#include <commctrl.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace lumotune::platform::win32 {

class TreeView final : public ControlOf<platform::TreeView> {
public:
  TreeView(Surface& surface, const std::wstring& designer_name);
  void clear() override;
  [[nodiscard]] bool add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) override;
  [[nodiscard]] std::size_t count() const override { return nodes_.size(); }
  [[nodiscard]] std::wstring key(std::size_t index) const override;
  [[nodiscard]] std::wstring node_text(std::size_t index) const override;
  [[nodiscard]] std::size_t selected() const override;
  [[nodiscard]] bool expanded(std::size_t index) const override;
  void expand(std::size_t index) override;
  void select(std::size_t index) override;
  void dpi_changed() override;
  [[nodiscard]] bool takes_enter() const override { return true; }
  [[nodiscard]] bool asked(NMHDR& header, LRESULT& result) override;

private:
  struct Node {
    std::wstring key;
    std::wstring text;
    HTREEITEM item = nullptr;
  };
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] LRESULT press(WPARAM keys, LPARAM point);
  [[nodiscard]] std::size_t node_at(LPARAM point) const;
  [[nodiscard]] std::size_t index_of(HTREEITEM item) const;
  void set_measures();
  [[nodiscard]] LRESULT customise(NMTVCUSTOMDRAW& item) const;
  void begin_changes();
  void end_changes();

  std::vector<Node> nodes_;
  std::unordered_map<std::wstring, std::size_t> by_key_; // capitals -> index
  KeysDown keys_{true};
  bool changing_ = false;
  int height_ = 0; // pixels
};

} // namespace lumotune::platform::win32
