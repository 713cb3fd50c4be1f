// SPDX-License-Identifier: LGPL-2.1-or-later
// The controls that every window may have: pictures, labels, buttons and the list box.
#pragma once

#include "platform/win32/child_window.h"
#include "platform/win32/picture.h"

#include <optional>
#include <string>
#include <vector>

namespace lumotune::platform::win32 {

class PictureBox final : public ControlOf<platform::PictureBox> {
public:
  PictureBox(Surface& surface, const std::wstring& designer_name, PictureKind kind);
  [[nodiscard]] bool load_picture(const std::wstring& path) override;
  void clear_picture() override;
  [[nodiscard]] std::wstring picture() const override { return path_; }
  void set_closes(bool closes) override { closes_ = closes; }
  [[nodiscard]] bool closes() const override { return closes_; }
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == PictureKind::button; }
  [[nodiscard]] PictureKind kind() const { return kind_; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  void set_hovered(bool hovered);
  void draw_button(HDC target, const RECT& area);
  [[nodiscard]] bool drawn_at_once() const override { return true; }
  [[nodiscard]] bool has_hand() const override { return pressable(); }

  PictureKind kind_;
  Picture picture_;
  std::wstring path_;
  bool closes_ = false;
  bool hovered_ = false;
};

class Label final : public ControlOf<platform::Label> {
public:
  Label(Surface& surface, const std::wstring& designer_name, LabelKind kind, LabelFont font);
  void set_text_colour(Colour colour) override;
  [[nodiscard]] Colour text_colour() const override { return colour_.value_or(Colour{}); }
  void set_underline(bool on) override;
  [[nodiscard]] bool underline() const override { return underline_; }
  void set_bold(bool on) override;
  [[nodiscard]] bool bold() const override { return bold_; }
  void announce() override;
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == LabelKind::link; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] bool drawn_at_once() const override { return true; }
  [[nodiscard]] bool has_hand() const override { return pressable(); }

  LabelKind kind_;
  LabelFont font_;
  std::optional<Colour> colour_; // the window's own while there is none
  bool underline_ = false;
  bool bold_ = false;
};

enum class TabStop { no, yes };

class Button final : public ControlOf<platform::Button> {
public:
  Button(Surface& surface, const std::wstring& designer_name, TabStop tab_stop);
  void press() override;
  void notified(WORD code) override;
  void pressed_by_key() override { press(); }
  [[nodiscard]] bool pressable() const override { return true; }

private:
  [[nodiscard]] std::wstring window_text(const std::wstring& text) const override;
};

class ListBox final : public ControlOf<platform::ListBox> {
public:
  ListBox(Surface& surface, const std::wstring& designer_name);
  void clear() override;
  void add(const std::wstring& item) override;
  void set_items(const std::vector<std::wstring>& items) override;
  [[nodiscard]] std::size_t count() const override;
  [[nodiscard]] std::wstring item(std::size_t index) const override;
  [[nodiscard]] std::size_t selected() const override;
  void select(std::size_t index) override;
  [[nodiscard]] std::size_t item_at(int x, int y) const override;
  void set_shown_columns(std::size_t columns) override;
  void set_colours(Colour background, Colour text) override;
  [[nodiscard]] Colour background_colour() const override { return background_; }
  [[nodiscard]] Colour text_colour() const override { return text_colour_; }
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_double_click); }
  [[nodiscard]] bool pressable() const override { return true; }
  void dpi_changed() override;
  void colours_changed() override { set_colours(background_, text_colour_); }
  void draw_row(const DRAWITEMSTRUCT& item);
  [[nodiscard]] HBRUSH brush() const { return static_cast<HBRUSH>(brush_.get()); }

private:
  [[nodiscard]] bool has_hand() const override { return true; }
  void set_row_height();

  std::size_t shown_columns_ = none;
  Colour background_{0xffffff};
  Colour text_colour_{};
  GdiObject brush_;
};

} // namespace lumotune::platform::win32
