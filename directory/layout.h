// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the controls of the directory window lie. Everything in twips.
#pragma once

#include "directory/list_radios_form.h"

namespace lumotune::directory {

// Tree, list and details share the width; the information line and the advertisement keep their distance from the lower
// edge. User-interface thread.
class Layout {
public:
  explicit Layout(ListRadiosForm& form) : form_(form) {}

  // The first size of the window, its smallest one, and every control in its place.
  void set_up();
  // Places everything anew; also the window's answer to a change of its size.
  void place();
  // The outer height as the server commands it: up to the tallest screen, never below the smallest one.
  void set_window_height(int height);

  // While one lives, changes of size do not move the advertisement; afterwards its place is what resizing starts from.
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
  void set_minimum();
  void place_details(int left, int width, int bottom);
  void place_status(int width, int top);
  [[nodiscard]] bool advert_shown() const;

  ListRadiosForm& form_;
  int held_ = 0;
  int advert_distance_ = 0; // from the advertisement's top to the lower edge of the client area
};

} // namespace lumotune::directory
