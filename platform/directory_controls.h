// SPDX-License-Identifier: LGPL-2.1-or-later
// The controls of a framed window that the main window has not: tree, list in columns, text box, progress, browser.
// Indices of nodes and rows count from 1; 0 is none. Positions and sizes are twips.
#pragma once

#include "platform/controls.h"

#include <cstddef>
#include <functional>
#include <string>

namespace lumotune::platform {

// Nodes with keys, in the order of adding. on_click: the left button on a node, after it was selected.
class TreeView : public Control {
public:
  virtual void clear() = 0;
  // A node below the one with the parent's key, or a root for an empty one. False, and nothing added, when the key is
  // taken or the parent unknown. Keys ignore letter case.
  [[nodiscard]] virtual bool add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) = 0;
  [[nodiscard]] virtual std::size_t count() const = 0;
  [[nodiscard]] virtual std::wstring key(std::size_t index) const = 0;       // empty outside 1..count
  [[nodiscard]] virtual std::wstring node_text(std::size_t index) const = 0; // the same
  [[nodiscard]] virtual std::size_t selected() const = 0;
  // Selects and scrolls into sight, opening what hides it; nothing changes outside 1..count. Fires nothing.
  virtual void select(std::size_t index) = 0;

  // Any key let go while the tree has the keyboard, after it moved the selection; Enter, too.
  std::function<void()> on_key_up;
};

// What a list in columns shows. Asked for whatever row comes into sight, at any time between two changes of the rows.
class RowModel {
public:
  RowModel() = default;
  RowModel(const RowModel&) = delete;
  RowModel& operator=(const RowModel&) = delete;
  virtual ~RowModel() = default;

  [[nodiscard]] virtual std::size_t count() const = 0;
  [[nodiscard]] virtual std::wstring text(std::size_t row, std::size_t column) const = 0; // row from 1, column from 0
  [[nodiscard]] virtual bool bold(std::size_t row) const = 0;
};

// Rows in columns (a report) over a model that it does not copy. on_click: left or right button on a row, after the row
// was selected; on_mouse_down comes before it and tells the button. on_double_click: on a row only.
class ListView : public Control {
public:
  virtual void set_rows(const RowModel* rows) = 0; // outlives the list, or nullptr
  virtual void add_column(const std::wstring& key, const std::wstring& caption, int width) = 0;
  virtual void rows_changed() = 0; // other rows or another number of them: nothing is selected afterwards
  [[nodiscard]] virtual std::size_t selected() const = 0;
  // Selects, alone, and scrolls into sight; outside 1..count nothing is selected afterwards. Fires nothing.
  virtual void select(std::size_t index) = 0;

  std::function<void()> on_key_up;           // any key let go, after it moved the selection
  std::function<void(wchar_t)> on_key_press; // a character typed, 13 for Enter
};

// Several lines of text to read and copy, not to change.
class TextBox : public Control {};

// How far something has come.
class ProgressBar : public Control {
public:
  virtual void set_percent(int percent) = 0; // clamped to 0..100
  [[nodiscard]] virtual int percent() const = 0;
};

// A box around other controls, with its text as heading when there is one.
class Frame : public Control {};

// A web page of the system's browser, quiet and locked: no scripts, no downloads, no windows, no boxes. Where the
// system has none the area stays empty.
class Browser : public Control {
public:
  // Asks for the page and returns at once. Only http and https addresses are asked for.
  virtual void navigate(const std::wstring& address) = 0;
};

} // namespace lumotune::platform
