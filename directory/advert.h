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
  // Stops at the first field that is missing, not a number or out of range.
  void ZobrazReklamu(const std::wstring& CommandsG);
  // The same in two steps, so that several orders request a single page: `take_order` for each, then `request_page`,
  // which requests it if any order got as far as its address.
  void take_order(const std::wstring& CommandsG);
  void request_page();
  // Reloads the page, if there is one.
  void ReklamaTest();

private:
  Uses uses_;
  bool request_due_ = false;
};

// The address as a browser takes it: trimmed, with "http://" added when it has no scheme. Pure.
[[nodiscard]] std::wstring page_address(std::wstring_view address);

} // namespace lumotune::directory
