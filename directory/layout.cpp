// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/layout.h"

#include <algorithm>

namespace lumotune::directory {
namespace {

constexpr int gap = 120;
constexpr int row = 270;
constexpr int info_row = 300;
constexpr int button_width = 1800;
constexpr int button_height = 375;
constexpr int progress_width = 1500;
constexpr int tree_share = 40; // percent of the width that tree and list have
constexpr int details_width = 3300;
constexpr int first_width = 10200;
constexpr int first_height = 5745;
constexpr int smallest_width = 8700;
constexpr int smallest_height = 4800;
constexpr int tallest = 60000;

template <typename Control>
void put(Control& control, int left, int top, int width, int height) {
  control.move(left, top);
  control.resize(std::max(width, 0), std::max(height, 0));
}

} // namespace

Layout::Hold::~Hold() {
  if (--layout_.held_ > 0)
    return;
  layout_.advert_distance_ = layout_.form_.window.client_height() - layout_.form_.WebBrowser1.rect().top;
  layout_.set_minimum();
  layout_.place();
}

// The advertisement and the information line take their room from nobody.
void Layout::set_minimum() {
  int height = smallest_height + (form_.InfoPanel.visible() ? info_row : 0);
  height += advert_shown() ? std::clamp(advert_distance_, 0, tallest / 2) : 0;
  form_.window.set_minimum(smallest_width, height);
}

void Layout::set_up() {
  set_minimum();
  form_.window.resize(first_width, first_height);
  place();
}

void Layout::set_window_height(int height) {
  form_.window.resize(form_.window.rect().width, std::clamp(height, smallest_height, tallest));
}

bool Layout::advert_shown() const {
  return form_.WebBrowser1.visible() && form_.WebBrowser1.rect().height > 0;
}

void Layout::place() {
  const int width = form_.window.client_width();
  int bottom = form_.window.client_height();
  if (advert_shown()) {
    auto& browser = form_.WebBrowser1;
    const int top = held_ > 0 ? browser.rect().top : bottom - advert_distance_;
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
  put(form_.ListView1, tree_width + 2 * gap, gap, lists_width - tree_width, lists_bottom - gap);
  place_details(width - details_width - gap, details_width, lists_bottom);
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
