// SPDX-License-Identifier: LGPL-2.1-or-later
// Controls that only framed windows have: tree, list in columns, text box, progress bar, browser. Indices of nodes and
// rows count from 1; 0 is none. Positions and sizes are twips.
#pragma once

#include "platform/controls.h"

#include <cstddef>
#include <functional>
#include <string>

namespace lumotune::platform {

// Nodes with keys, in order of insertion. on_click: the left button on a node, after the node was selected.
class TreeView : public Control {
public:
  virtual void clear() = 0;
  // Adds a node below the one with the parent's key, or a root when that key is empty. False, and nothing added, when
  // the key exists already or the parent is unknown. Keys are case-insensitive.
  [[nodiscard]] virtual bool add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) = 0;
  [[nodiscard]] virtual std::size_t count() const = 0;
  [[nodiscard]] virtual std::wstring key(std::size_t index) const = 0;       // empty outside 1..count
  [[nodiscard]] virtual std::wstring node_text(std::size_t index) const = 0; // likewise
  [[nodiscard]] virtual std::size_t selected() const = 0;
  // Whether the nodes below it are shown; never for a node without any.
  [[nodiscard]] virtual bool expanded(std::size_t index) const = 0;
  virtual void expand(std::size_t index) = 0; // does nothing outside 1..count. Fires nothing.
  // Selects the node and scrolls it into view, expanding its parents; does nothing outside 1..count. Fires nothing.
  virtual void select(std::size_t index) = 0;

  // Any key released while the tree is focused, Enter included; fires after the key has moved the selection.
  std::function<void()> on_key_up;
};

// The content of a list in columns. Queried for any row that becomes visible, at any time between two changes of the
// rows.
class RowModel {
public:
  RowModel() = default;
  RowModel(const RowModel&) = delete;
  RowModel& operator=(const RowModel&) = delete;
  virtual ~RowModel() = default;

  [[nodiscard]] virtual std::size_t count() const = 0;
  [[nodiscard]] virtual std::wstring text(std::size_t row, std::size_t column) const = 0; // row from 1, column from 0
  // Writes the first `room` characters of the row's first column, or all of a shorter one, and returns their number.
  // The search for typed letters asks every row: a model that can answer without making the text does.
  [[nodiscard]] virtual std::size_t beginning(std::size_t row, wchar_t* out, std::size_t room) const {
    return text(row, 0).copy(out, room);
  }
  [[nodiscard]] virtual bool bold(std::size_t row) const = 0;
};

// Rows in columns (report view) over a model that is not copied. A double click on the divider right of a column's
// caption makes the column as wide as its caption and the rows in sight need. on_click: left or right button on a row,
// after the row was selected; on_mouse_down fires before it with the button. on_double_click: on a row only.
class ListView : public Control {
public:
  virtual void set_rows(const RowModel* rows) = 0; // must outlive the list; may be nullptr
  virtual void add_column(const std::wstring& key, const std::wstring& caption, int width) = 0;
  virtual void rows_changed() = 0; // the rows or their number changed: clears the selection
  [[nodiscard]] virtual std::size_t selected() const = 0;
  // Selects only this row and scrolls it into view; outside 1..count clears the selection. Fires nothing.
  virtual void select(std::size_t index) = 0;

  virtual void take_keyboard() = 0; // the focus, if it can be reached and its window is active
  // Shown in grey where the rows would be while there are none.
  virtual void set_empty_text(const std::wstring& text) = 0;
  [[nodiscard]] virtual std::wstring empty_text() const = 0;

  std::function<void()> on_key_up;           // any key released, after it has moved the selection
  std::function<void(wchar_t)> on_key_press; // a typed character, 13 for Enter
};

// One line of text that the user edits.
class TextEntry : public Control {
public:
  static constexpr std::size_t max_typed = 200; // characters; the user can type and paste no more

  virtual void set_cue(const std::wstring& cue) = 0; // shown in grey while there is no text
  [[nodiscard]] virtual std::wstring cue() const = 0;
  virtual void take_keyboard() = 0; // the focus, as for a list, and its text is selected

  std::function<void()> on_change; // the user changed the text
  std::function<void()> on_enter;  // Enter, or the down arrow
};

// Read-only multi-line text that can be selected and copied.
class TextBox : public Control {};

// The progress of an operation.
class ProgressBar : public Control {
public:
  virtual void set_percent(int percent) = 0; // clamped to 0..100
  [[nodiscard]] virtual int percent() const = 0;
};

// A box around other controls, with its text, if any, as heading.
class Frame : public Control {};

// A web page in the system's browser, silent and locked down: no scripts, downloads, windows or message boxes. If the
// system has no browser, the area stays empty.
class Browser : public Control {
public:
  // Requests the page and returns at once. Only http and https addresses are requested.
  virtual void navigate(const std::wstring& address) = 0;
};

} // namespace lumotune::platform
