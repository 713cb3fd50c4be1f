// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the controls of the directory window lie. Everything in twips.
#pragma once

#include "directory/list_radios_form.h"

namespace lumotune::directory {

// Tree, list and details share the width; the information line and the advertisement keep their distance from the lower
// edge, but for an advertisement that the window cuts off or that has empty space below it: then the window's growing
// and shrinking is its own first. User-interface thread.
class Layout {
public:
  explicit Layout(ListRadiosForm& form) : form_(form) {}

  // The first size of the window, its smallest one, and every control in its place.
  void set_up();
  // Places everything anew; also the window's answer to a change of its size.
  void place();
  // The outer height as the server commands it, of the normal window whatever its state: what an earlier order needed
  // does not count. The monitor bounds it, and a window without an advertisement's room from below.
  void set_window_height(int height);
  // The advertisement lies so in the normal window of the commanded height.
  void set_advert(int height, int top);

  // Around the steps of an order. At its end the smallest size follows what is shown, and everything is placed anew.
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
  void place_status(int width, int top);
  [[nodiscard]] bool advert_shown() const;

  ListRadiosForm& form_;
  int held_ = 0;
  int ordered_inside_ = 0; // client height of the normal window as the last order left it
  int ordered_top_ = 0;    // the advertisement's top in it
};

} // namespace lumotune::directory
