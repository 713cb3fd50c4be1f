// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/advert.h"

#include "core/text.h"

namespace lumotune::directory {
namespace {

constexpr int shown_top = 5280;
constexpr int collapsed_top = 10280; // out of sight, though it counts as visible

} // namespace

void Advert::ZobrazReklamu(const std::wstring& CommandsG) {
  const auto fields = core::split_record(CommandsG);
  if (fields.size() < 3)
    return;
  auto& browser = uses_.form.WebBrowser1;
  const auto place = [&](int height, int top) {
    const platform::TwipsRect now = browser.rect();
    browser.resize(now.width, height);
    browser.move(now.left, top);
  };
  const Layout::Hold hold(uses_.layout);
  if (fields[2] == L"1") {
    browser.set_visible(true);
    const auto height = core::twips_value(fields[0]);
    if (!height)
      return;
    place(*height, shown_top);
    const auto window_height = core::twips_value(fields[1]);
    if (!window_height)
      return;
    uses_.layout.set_window_height(*window_height);
  } else {
    place(0, collapsed_top);
  }
  if (fields.size() < 4)
    return;
  uses_.state.address = fields[3];
  uses_.state.present = true;
  ReklamaTest();
}

void Advert::ReklamaTest() {
  if (uses_.state.present)
    uses_.form.WebBrowser1.navigate(uses_.state.address);
}

} // namespace lumotune::directory
