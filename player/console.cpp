// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/console.h"

#include "base/boxes.h"
#include "base/busy.h"
#include "base/text.h"

namespace lumotune::player {
namespace {

// A digit, optionally preceded by blanks, a sign and a decimal point.
bool begins_with_number(std::wstring_view text) {
  const auto skip = [&text](std::wstring_view characters) {
    if (!text.empty() && characters.find(text.front()) != std::wstring_view::npos)
      text.remove_prefix(1);
  };
  text = base::trimmed(text);
  skip(L"+-");
  skip(L".");
  return !text.empty() && text.front() >= L'0' && text.front() <= L'9';
}

} // namespace

void Console::LTconsole() {
  const base::Busy turn(busy_);
  if (!turn)
    return;
  bool again = true;
  while (again && !uses_.loop.quitting()) {
    std::wstring command = uses_.input.ask(L"Lumotune console", base::box_title, L"").value_or(L"");
    again = !command.empty() && command.back() == L'.';
    if (again)
      command.pop_back();
    if (!uses_.loop.quitting())
      execute(command);
  }
}

void Console::execute(const std::wstring& command) {
  const std::wstring value(base::mid(command, 5));
  if (base::equal_ignoring_case(command, L"help"))
    show_help();
  if (base::starts_with_ignoring_case(command, L"vol=") && begins_with_number(value))
    uses_.playback.VolumeSet(base::volume_value(value));
  if (base::starts_with_ignoring_case(command, L"url=")) {
    uses_.playback.PlayAll(value, platform::AddressOrigin::listener);
    uses_.session.station_name = L"Orb - Lumotune"; // set last: playing looks up the name of the tuned station
  }
}

void Console::show_help() {
  (void)uses_.dialogs.message(L"LTCC - HELP:\r\nvol=(hodnota 0 - 100)\r\nurl=(adresa na internetu nebo v počítači)",
                              base::box_title, platform::BoxIcon::none, platform::BoxButtons::ok);
}

} // namespace lumotune::player
