// SPDX-License-Identifier: LGPL-2.1-or-later
// The base room on the backend in memory, with the files of a client that has logged in.
#pragma once

#include "base/error_log.h"
#include "base/lumotune_form.h"
#include "base/session.h"
#include "base/settings_files.h"
#include "tests/support/memory_platform.h"

#include <string>
#include <vector>

namespace lumotune::test {

// A client that has logged in: 24 lines, some with Czech letters.
inline std::vector<std::string> option_lines() {
  std::vector<std::string> lines;
  for (int i = 0; i < 24; ++i)
    lines.push_back("#0" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ":klient " + std::to_string(i));
  lines[5] = "#005:AAAAA:idhhodnota";
  lines[6] = "#006:BBBBBBB:tajne";
  lines[7] = "#007:CCCCCCC:P\xf8"
             "ezd\xed"
             "vka";
  lines[11] = "#011:LTTop:0";
  lines[12] = "#012:LTLast:RADIO1/2";
  lines[13] = "#013:LTautoStart:0";
  lines[18] = "#018:DDD:on";
  lines[20] = "#020:LTvolume:40";
  lines[21] = "#021:LTskin:Lumo";
  lines[22] = "#022:LTpleft:3000";
  lines[23] = "#023:LTptop:4500";
  return lines;
}

inline std::string joined(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines)
    bytes += line + "\r\n";
  return bytes + "\r\n";
}

struct BaseWorld : MemoryPlatform {
  platform::memory::Window window{files};
  base::LumotuneForm form{window};
  base::Settings settings;
  base::Session session;

  base::ErrorLog error_log{{folder, machine}};
  base::SettingsFiles options{{folder, loop, window, error_log, settings, session}};

  BaseWorld() {
    put(L"Orb_Data\\options.ini", joined(option_lines()));
    put(L"Orb_Data\\orb_server.tt", "navnada\r\n\r\nb\r\nc\r\nd\r\ne\r\n123456789012345http://server.example\r\n");
  }

  [[nodiscard]] std::wstring path(const std::wstring& name) const { return machine.folder + L"\\" + name; }
  void put(const std::wstring& name, const std::string& bytes) { (void)files.replace(path(name), bytes); }
  [[nodiscard]] std::string get(const std::wstring& name) const { return files.read(path(name)).value_or("(none)"); }
  void set_option(std::size_t number, const std::string& text) {
    auto lines = option_lines();
    lines[number] = text;
    put(L"Orb_Data\\options.ini", joined(lines));
  }
};

} // namespace lumotune::test
