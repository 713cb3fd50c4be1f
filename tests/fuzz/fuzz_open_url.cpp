// SPDX-License-Identifier: LGPL-2.1-or-later
// Any address of a station and any text in a command line: what is started stays one program with one argument text,
// and what the shell is given to open is a web host.
#include "companions/command_lines.h"
#include "companions/open_url.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "tests/fuzz/fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace lumotune;
using fuzz::demand;

bool is_clean(const std::wstring& text) {
  return std::none_of(text.begin(), text.end(),
                      [](wchar_t each) { return each < L' ' || each == L'"' || each == 0x7F; });
}

void try_station_web(const std::wstring& address) {
  platform::memory::Shell shell;
  companions::WebPages web(shell);
  const bool opens = web.open_station_web(address);
  demand(shell.started.size() + shell.opened.size() <= (opens ? 1U : 0U));
  for (const auto& started : shell.started)
    demand(is_clean(started.command_line) && started.command_line.starts_with(L"explorer "));
  for (const std::wstring& quoted : shell.opened) {
    demand(quoted.size() > 2 && quoted.front() == L'"' && quoted.back() == L'"');
    const std::wstring target = quoted.substr(1, quoted.size() - 2);
    demand(is_clean(target) && target.find_first_of(L" \\<>|") == std::wstring::npos &&
           target.find(L"..") == std::wstring::npos && target.front() != L'/');
    // A colon is a port's or stands in the path, never behind a scheme or a drive.
    demand(target.find(L'.') < target.find(L':'));
    for (const wchar_t* ending : {L".exe", L".bat", L".cmd", L".lnk", L".vbs", L".scr", L".hta"})
      demand(!target.ends_with(ending));
  }
}

void try_command_lines(const std::wstring& text) {
  const companions::CompanionValues values = {L"C:\\Orb", text, text, text};
  for (const companions::Launch& launch :
       {companions::discussion(values, text, text), companions::browser_page(values, text, text),
        companions::recorder(values, text), companions::problem_report(values, text, text),
        companions::play_report(values, true, text), companions::station_list(values)})
    demand(is_clean(launch.command_line));
  for (const auto& [launch, file] :
       {std::pair(companions::play_report(values, true, text), L"/@/C:\\Orb\\orblt.tt"),
        std::pair(companions::station_list(values), L"/@/C:\\Orb/seznam.tt"),
        std::pair(companions::station_list_size(values), L"/@/C:\\Orb\\orb_test_size.tt")}) {
    demand(launch.command_line.ends_with(file));
    demand(launch.command_line.find(L"/@/") == launch.command_line.size() - std::wstring_view(file).size());
  }
  if (const auto player = companions::television(values, text))
    demand(is_clean(player->command_line) && player->command_line.find(L' ') == player->command_line.rfind(L' '));
  const companions::CompanionValues own = {L"C:\\Orb", L"s", L"i", L"h"};
  const std::wstring record = companions::problem_report(own, text, text).command_line;
  std::size_t delimiters = 0;
  for (std::size_t at = record.find(L"/@/"); at != std::wstring::npos; at = record.find(L"/@/", at + 3))
    ++delimiters;
  demand(delimiters == 5);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const platform::memory::Codec codec;
  const std::wstring text = codec.decode(std::string(reinterpret_cast<const char*>(data), size));
  try_station_web(text);
  try_station_web(L"http" + text);
  try_station_web(L"www." + text);
  try_command_lines(text);
  return 0;
}
