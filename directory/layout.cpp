// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/layout.h"

#include <algorithm>

namespace lumotune::directory {
namespace {

constexpr int gap = 120;
constexpr int row = 270;
constexpr int info_row = 300;
constexpr int entry_height = 315;
constexpr int count_width = 1350;
constexpr int button_width = 1800;
constexpr int button_height = 375;
constexpr int progress_width = 1500;
constexpr int tree_share = 40; // percent of the width that tree and list have
constexpr int details_width = 3300;
constexpr int first_width = 10200;
constexpr int first_height = 5745;
constexpr int smallest_width = 8700;
constexpr int smallest_bare_height = 4800; // without information line and advertisement

template <typename Control>
void put(Control& control, int left, int top, int width, int height) {
  control.move(left, top);
  control.resize(std::max(width, 0), std::max(height, 0));
}

} // namespace

Layout::Hold::~Hold() {
  if (--layout_.held_ > 0)
    return;
  auto& window = layout_.form_.window;
  window.set_minimum(smallest_width, std::min(layout_.smallest_height(), window.rect().height));
  layout_.place();
}

// The advertisement and the information line get their own room: the lists never shrink for them.
int Layout::smallest_height() const {
  return smallest_bare_height + (form_.InfoPanel.visible() ? info_row : 0) + advert_room();
}

void Layout::set_up() {
  form_.window.set_minimum(smallest_width, smallest_bare_height);
  form_.window.resize(first_width, first_height);
  place();
}

void Layout::set_window_height(int height) {
  form_.window.set_minimum(smallest_width, smallest_bare_height);
  form_.window.resize(form_.window.rect().width, std::max(height, smallest_bare_height));
  note_inside();
}

// Orders are for the normal window, whose client area differs from a maximised or minimised one.
void Layout::note_inside() {
  ordered_inside_ = form_.window.rect().height - form_.window.frame_height();
}

void Layout::set_advert(int height, int top) {
  auto& browser = form_.WebBrowser1;
  browser.resize(browser.rect().width, height);
  browser.move(browser.rect().left, top);
  ordered_top_ = top;
  note_inside();
}

bool Layout::advert_shown() const {
  return form_.WebBrowser1.visible() && form_.WebBrowser1.rect().height > 0;
}

// At most what it fills, and at most what the order left it.
int Layout::advert_room() const {
  if (!advert_shown())
    return 0;
  return std::clamp(ordered_inside_ - ordered_top_, 0, form_.WebBrowser1.rect().height + gap);
}

int Layout::advert_top(int inside) const {
  const int below = ordered_inside_ - ordered_top_;
  const int whole = form_.WebBrowser1.rect().height + gap;
  const int grown = std::max(inside - ordered_inside_, 0);
  const int top = inside - std::max(below, std::min(whole, below + grown));
  const int lists_end = smallest_bare_height - form_.window.frame_height() + (form_.InfoPanel.visible() ? info_row : 0);
  return top >= lists_end ? top : std::min(lists_end, inside - std::min(below, whole));
}

void Layout::place() {
  if (held_ > 0 || form_.window.minimized())
    return;
  const int width = form_.window.client_width();
  int bottom = form_.window.client_height();
  if (advert_shown()) {
    auto& browser = form_.WebBrowser1;
    const int top = advert_top(bottom);
    put(browser, gap, top, width - 2 * gap, browser.rect().height);
    bottom = std::min(bottom, top);
  } else {
    form_.WebBrowser1.resize(std::max(width - 2 * gap, 0), form_.WebBrowser1.rect().height);
  }
  if (form_.InfoPanel.visible()) {
    put(form_.ImageInPan, gap, bottom - info_row + 15, 240, 240);
    put(form_.InfoPanel, gap + 330, bottom - info_row + 15, width - 2 * gap - 330, row);
    bottom -= info_row;
  }
  const int status_top = bottom - button_height - gap;
  place_status(width, status_top);
  const int lists_bottom = status_top - gap;
  const int lists_width = width - details_width - 4 * gap;
  const int tree_width = lists_width * tree_share / 100;
  put(form_.TreeView1, gap, gap, tree_width, lists_bottom - gap);
  place_list(tree_width + 2 * gap, lists_width - tree_width, lists_bottom);
  place_details(width - details_width - gap, details_width, lists_bottom);
}

// The entry of the filter takes its room from the list.
void Layout::place_list(int left, int width, int bottom) {
  int top = gap;
  if (form_.Filter.visible()) {
    put(form_.Filter, left, top, width - count_width - gap, entry_height);
    put(form_.FilterCount, left + width - count_width, top + 45, count_width, row);
    top += entry_height + gap / 2;
  }
  put(form_.ListView1, left, top, width, bottom - top);
}

void Layout::place_status(int width, int top) {
  put(form_.Command1, width - button_width - gap, top, button_width, button_height);
  const int progress_left = width - button_width - progress_width - 2 * gap;
  put(form_.Progress, progress_left, top + 75, progress_width, 225);
  put(form_.Label1, gap, top + 60, progress_left - 2 * gap, row);
}

// Name, country and address above, the text in the middle, the actions below.
void Layout::place_details(int left, int width, int bottom) {
  put(form_.Frame1, left, 0, width, bottom);
  put(form_.Image1, left + 60, 120, width - 120, bottom - 180);
  const int inner = left + gap;
  const int inner_width = width - 2 * gap;
  put(form_.Image3, left + width - gap - 480, 210, 480, 480);
  put(form_.Label2, inner, 210, inner_width - 540, 630);
  put(form_.Label3, inner, 870, inner_width, row);
  put(form_.Label4, inner, 1140, inner_width, row);
  int top = bottom - gap - 6 * row;
  put(form_.Text1, inner, 1470, inner_width, top - 1470 - gap);
  for (platform::Label* label :
       {&form_.Label8, &form_.Label7, &form_.Label5, &form_.Label9, &form_.Label10, &form_.Label6}) {
    put(*label, inner, top, inner_width, row);
    top += row;
  }
}

} // namespace lumotune::directory
