// SPDX-License-Identifier: LGPL-2.1-or-later
// The line above the station list in which the listener types what to look for among the stations shown.
#pragma once

#include "directory/layout.h"
#include "directory/list_radios_form.h"
#include "directory/station_list.h"

namespace lumotune::directory {

// User-interface thread.
class FilterLine {
public:
  struct Uses {
    ListRadiosForm& form;
    Layout& layout;
    StationList& list;
  };
  explicit FilterLine(const Uses& uses);

  void open(); // or back to it, with its text selected
  // Shows all stations again and gives the list the keyboard. False when it was not open.
  bool close();
  [[nodiscard]] bool opened() const { return uses_.form.Filter.visible(); }

private:
  void show(bool visible);

  Uses uses_;
};

} // namespace lumotune::directory
