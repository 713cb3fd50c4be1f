// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/machine.h"

#include "platform/win32/win.h"

#include <array>
#include <utility>

namespace lumotune::platform::win32 {

Machine::Machine() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  folder_ = path.substr(0, path.find_last_of(L'\\'));
}

void Machine::begin_end() {
  running_.begin_end();
  if (const auto copy = std::exchange(on_begin_end, {}))
    copy();
}

// Skips the program's name, which is quoted where it contains a blank.
std::wstring Machine::command_line() const {
  std::wstring text = GetCommandLineW();
  const std::size_t end = !text.empty() && text[0] == L'"' ? text.find(L'"', 1) : text.find_first_of(L" \t");
  if (end == std::wstring::npos)
    return {};
  text.erase(0, end + 1);
  const std::size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos)
    return {};
  return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

std::wstring Machine::date_and_time() const {
  std::array<wchar_t, 80> date{};
  std::array<wchar_t, 80> time{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date.data(),
                  static_cast<int>(date.size()), nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, time.data(), static_cast<int>(time.size()));
  return std::wstring(date.data()) + L" " + time.data();
}

} // namespace lumotune::platform::win32
