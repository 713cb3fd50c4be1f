// SPDX-License-Identifier: LGPL-2.1-or-later
// The advertising area of the directory window, WebBrowser1.
#pragma once

#include "directory/layout.h"
#include "directory/list_radios_form.h"

#include <string>

namespace lumotune::directory {

// What lasts as long as the program runs; written by ZobrazReklamu.
struct AdvertState {
  std::wstring address;
  bool present = false;
};

// User-interface thread.
class Advert {
public:
  struct Uses {
    ListRadiosForm& form;
    Layout& layout;
    AdvertState& state;
  };
  explicit Advert(const Uses& uses) : uses_(uses) {}

  // Fields of the command: height of the area, height of the window (twips both), "1" to show it, address of the page.
  // A field that is missing or no number ends the procedure there.
  void ZobrazReklamu(const std::wstring& CommandsG);
  // Asks for the page anew, once there is one.
  void ReklamaTest();

private:
  Uses uses_;
};

} // namespace lumotune::directory
