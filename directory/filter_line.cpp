// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/filter_line.h"

namespace lumotune::directory {

FilterLine::FilterLine(const Uses& uses) : uses_(uses) {
  auto& entry = uses_.form.Filter;
  entry.set_visible(false);
  uses_.form.FilterCount.set_visible(false);
  entry.set_cue(L"Hledat název nebo zemi");
  entry.set_tooltip(L"Esc zobrazí zase všechna rádia");
  // Other programs can set longer texts than a user can type.
  entry.on_change = [this] { uses_.list.filter(uses_.form.Filter.text().substr(0, platform::TextEntry::max_typed)); };
  entry.on_enter = [this] { uses_.form.ListView1.take_keyboard(); };
}

void FilterLine::open() {
  if (!opened())
    show(true);
  uses_.form.Filter.take_keyboard();
}

bool FilterLine::close() {
  if (!opened())
    return false;
  uses_.form.Filter.set_text(L"");
  uses_.list.filter(L"");
  uses_.form.ListView1.take_keyboard();
  show(false);
  return true;
}

void FilterLine::show(bool visible) {
  uses_.form.Filter.set_visible(visible);
  uses_.form.FilterCount.set_visible(visible);
  uses_.layout.place();
}

} // namespace lumotune::directory
