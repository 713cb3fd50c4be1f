// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's list in columns, which holds no rows itself: it asks the model for those in sight.
#pragma once

#include "platform/directory_controls.h"
#include "platform/win32/child_window.h"
#include "platform/win32/keys_down.h"
#include "platform/win32/tip_window.h"

#include <commctrl.h>

#include <string>
#include <string_view>

namespace lumotune::platform::win32 {

class ListView final : public ControlOf<platform::ListView> {
public:
  ListView(Surface& surface, const std::wstring& designer_name);
  void set_rows(const RowModel* rows) override;
  void add_column(const std::wstring& key, const std::wstring& caption, int width) override;
  void rows_changed() override;
  [[nodiscard]] std::size_t selected() const override;
  void select(std::size_t index) override;
  void take_keyboard() override { take_focus(); }
  void set_empty_text(const std::wstring& text) override;
  [[nodiscard]] std::wstring empty_text() const override { return empty_text_; }
  void dpi_changed() override;
  [[nodiscard]] bool takes_enter() const override { return true; }
  [[nodiscard]] bool asked(NMHDR& header, LRESULT& result) override;

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] bool handle_mouse(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  [[nodiscard]] bool handle_key(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  void press(MouseButton button, WPARAM keys, LPARAM point);
  [[nodiscard]] std::size_t row_at(LPARAM point) const;
  [[nodiscard]] std::size_t row_count() const;
  void answer_text(NMLVDISPINFOW& request) const;
  [[nodiscard]] LRESULT find_row(const NMLVFINDITEMW& request) const;
  [[nodiscard]] static bool begins_with(const std::wstring& text, std::wstring_view wanted);
  [[nodiscard]] LRESULT customise(NMLVCUSTOMDRAW& item);
  [[nodiscard]] LRESULT selected_item() const;
  void unselect();
  void set_row_height();
  void draw_empty_text() const;
  void fit_column(int column);
  [[nodiscard]] int needed_width(int column) const;
  [[nodiscard]] int text_width(const std::wstring& text, bool bold) const;
  void point_at(LPARAM point);
  void point_nowhere();

  const RowModel* rows_ = nullptr;
  int height_ = 0; // pixels
  int columns_ = 0;
  std::wstring empty_text_;
  unsigned columns_dpi_; // of the columns' widths
  CellTip tip_;
  std::size_t pointed_row_ = 0; // with its column: the cell that the pointer came to last
  int pointed_column_ = 0;
  KeysDown keys_;
  std::size_t right_pressed_ = 0;  // row under the right button, until it is let go
  bool typed_ = false;             // while the list handles a character
  std::size_t double_pressed_ = 0; // row pressed twice, until the button is let go
};

} // namespace lumotune::platform::win32
