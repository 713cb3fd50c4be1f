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
  void set_neutral(bool neutral) override;
  [[nodiscard]] bool neutral() const override { return neutral_; }
  void set_closes(bool closes) override { closes_ = closes; }
  [[nodiscard]] bool closes() const override { return closes_; }
  void set_needle(const std::optional<Needle>& needle) override;
  [[nodiscard]] std::optional<Needle> needle() const override { return needle_; }
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == PictureKind::button; }
  [[nodiscard]] PictureKind kind() const { return kind_; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  void set_hovered(bool hovered);
  void draw_button(HDC target, const RECT& area);
  void draw_needle(HDC target) const;
  [[nodiscard]] bool drawn_at_once() const override { return true; }
  [[nodiscard]] bool has_hand() const override { return pressable(); }

  PictureKind kind_;
  Picture picture_;
  std::wstring path_;
  bool neutral_ = false;
  bool closes_ = false;
  bool hovered_ = false;
  std::optional<Needle> needle_;
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
  void set_alignment(Alignment alignment) override;
  [[nodiscard]] Alignment alignment() const override { return alignment_; }
  void point_to(const Control* control) override { pointed_to_ = control; }
  [[nodiscard]] const Control* pointed_to() const override { return pointed_to_; }
  void announce() override;
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == LabelKind::link; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
  [[nodiscard]] bool drawn_at_once() const override { return true; }
  [[nodiscard]] bool has_hand() const override { return pressable(); }
  void draw_text(HDC target, const RECT& area);
  [[nodiscard]] bool glides(int overflow);
  void draw_arrow(HDC target, const RECT& area, int text_height) const;

  LabelKind kind_;
  LabelFont font_;
  std::optional<Colour> colour_; // the window's own while there is none
  bool underline_ = false;
  bool bold_ = false;
  Alignment alignment_ = Alignment::left;
  const Control* pointed_to_ = nullptr;
  std::wstring glided_;   // the text that passes, or has passed
  DWORD glide_start_ = 0; // tick count
  int glide_offset_ = 0;
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
  void set_accent(std::optional<Colour> accent) override;
  [[nodiscard]] std::optional<Colour> accent() const override { return accent_; }
  void set_mark(const std::wstring& data) override;
  [[nodiscard]] std::wstring mark() const override { return mark_; }
  [[nodiscard]] Colour background_colour() const override { return background_; }
  [[nodiscard]] Colour text_colour() const override { return text_colour_; }
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_double_click); }
  [[nodiscard]] bool pressable() const override { return true; }
  void dpi_changed() override;
  void colours_changed() override { set_colours(background_, text_colour_); }
  void draw_row(const DRAWITEMSTRUCT& item);
  [[nodiscard]] bool scrolls() const; // has more rows than it shows
  [[nodiscard]] HBRUSH brush() const { return static_cast<HBRUSH>(brush_.get()); }

private:
  [[nodiscard]] bool has_hand() const override { return true; }
  void set_row_height();
  void draw_row_text(HDC target, const RECT& row, const std::wstring& item, bool chosen);
  void draw_mark(HDC target, POINT left_middle) const;
  [[nodiscard]] bool marked(const std::wstring& item) const;

  std::size_t shown_columns_ = none;
  Colour background_{0xffffff};
  Colour text_colour_{};
  std::optional<Colour> accent_;
  std::wstring mark_;
  GdiObject brush_;
};

} // namespace lumotune::platform::win32
