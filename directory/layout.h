// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the controls of the directory window lie. Everything in twips.
#pragma once

#include "directory/list_radios_form.h"

namespace lumotune::directory {

// Tree, list and details share the width. The information line and the advertisement are anchored to the lower edge;
// only while the window cuts the advertisement off, or leaves empty space below it, does a change of height first go to
// the advertisement. User-interface thread.
class Layout {
public:
  explicit Layout(ListRadiosForm& form) : form_(form) {}

  // The first size of the window, its smallest one, and every control in its place.
  void set_up();
  // Lays everything out; also the handler of the window's resize event.
  void place();
  // The outer height that the server orders, for the normal window whatever its state; replaces any earlier order.
  // Clamped to the monitor and to the smallest window without an advertisement.
  void set_window_height(int height);
  // The place of the advertisement in the normal window of the ordered height.
  void set_advert(int height, int top);

  // Bracket the steps of an order. The end updates the smallest size to what is shown and lays everything out again.
  class Hold {
  public:
    explicit Hold(Layout& layout) : layout_(layout) { ++layout_.held_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold();

  private:
    Layout& layout_;
  };

private:
  void note_inside();
  [[nodiscard]] int smallest_height() const;
  [[nodiscard]] int advert_room() const; // below its top, that the smallest window has
  [[nodiscard]] int advert_top(int inside) const;
  void place_details(int left, int width, int bottom);
  void place_list(int left, int width, int bottom);
  void place_status(int width, int top);
  [[nodiscard]] bool advert_shown() const;

  ListRadiosForm& form_;
  int held_ = 0;
  int ordered_inside_ = 0; // client height of the normal window as the last order left it
  int ordered_top_ = 0;    // the advertisement's top in it
};

} // namespace lumotune::directory
