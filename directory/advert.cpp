// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/advert.h"

#include "base/text.h"

#include <optional>
#include <utility>

namespace lumotune::directory {
namespace {

constexpr int shown_top = 5280;
constexpr int collapsed_top = 10280; // off-screen rather than hidden

// No window of the system is taller than 16,383 pixels.
std::optional<int> height_value(std::wstring_view text) {
  constexpr int tallest = 16383 * 15;
  const auto height = base::twips_value(text);
  return height.has_value() && *height >= 0 && *height <= tallest ? height : std::nullopt;
}

bool is_letter(wchar_t character) {
  return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

// A scheme is letters, digits and signs up to a colon. A drive letter is not one, nor is a host followed by a port.
bool has_scheme(std::wstring_view address) {
  const std::size_t colon = address.find(L':');
  if (colon == std::wstring_view::npos || colon < 2 || !is_letter(address.front()))
    return false;
  for (const wchar_t character : address.substr(0, colon)) {
    const bool digit = character >= L'0' && character <= L'9';
    if (!is_letter(character) && !digit && std::wstring_view(L"+-.").find(character) == std::wstring_view::npos)
      return false;
  }
  const std::wstring_view rest = address.substr(colon + 1);
  const std::wstring_view port = rest.substr(0, rest.find_first_not_of(L"0123456789"));
  const bool path =
      rest.size() == port.size() || std::wstring_view(L"/?#").find(rest[port.size()]) != std::wstring_view::npos;
  return port.empty() || !path;
}

} // namespace

std::wstring page_address(std::wstring_view address) {
  address = base::trimmed(address);
  if (address.empty())
    return {};
  return (has_scheme(address) ? L"" : L"http://") + std::wstring(address);
}

void Advert::ZobrazReklamu(const std::wstring& CommandsG) {
  take_order(CommandsG);
  request_page();
}

void Advert::take_order(const std::wstring& CommandsG) {
  const auto fields = base::split_record(CommandsG);
  if (fields.size() < 3)
    return;
  const Layout::Hold hold(uses_.layout);
  if (fields[2] == L"1") {
    uses_.form.WebBrowser1.set_visible(true);
    const auto height = height_value(fields[0]);
    if (!height)
      return;
    uses_.layout.set_advert(*height, shown_top);
    const auto window_height = height_value(fields[1]);
    if (!window_height)
      return;
    uses_.layout.set_window_height(*window_height);
  } else {
    uses_.layout.set_advert(0, collapsed_top);
  }
  if (fields.size() < 4)
    return;
  uses_.state.address = page_address(fields[3]);
  uses_.state.present = true;
  request_due_ = true;
}

void Advert::request_page() {
  if (std::exchange(request_due_, false))
    ReklamaTest();
}

void Advert::ReklamaTest() {
  if (uses_.state.present)
    uses_.form.WebBrowser1.navigate(uses_.state.address);
}

} // namespace lumotune::directory
