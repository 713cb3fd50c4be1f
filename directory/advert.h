// SPDX-License-Identifier: LGPL-2.1-or-later
// The advertising area of the directory window, WebBrowser1.
#pragma once

#include "directory/layout.h"
#include "directory/list_radios_form.h"

#include <string>
#include <string_view>

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
  // A field that is missing, no number or out of range ends the procedure there.
  void ZobrazReklamu(const std::wstring& CommandsG);
  // The same in two steps, so that several orders ask for one page: `take_order` each, then `request_page`, which asks
  // when one of them got as far as its address.
  void take_order(const std::wstring& CommandsG);
  void request_page();
  // Asks for the page anew, once there is one.
  void ReklamaTest();

private:
  Uses uses_;
  bool request_due_ = false;
};

// The address as a browser takes it: one without a scheme gets "http://". Blanks around it do not count. Pure.
[[nodiscard]] std::wstring page_address(std::wstring_view address);

} // namespace lumotune::directory
