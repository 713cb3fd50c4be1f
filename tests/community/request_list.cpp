// SPDX-License-Identifier: LGPL-2.1-or-later
// Prints every request that the program makes of the community's server, or has made by the client's programs, for one
// listener: request_list SERVER-ADDRESS. A line each, UTF-8: name, tab, what is started or opened.
#include "companions/command_lines.h"
#include "companions/identity.h"
#include "directory/info_panel.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"

#include <iostream>
#include <string>

namespace {

using namespace lumotune;

void print(const char* name, const std::wstring& text) {
  std::cout << name << '\t';
  for (const wchar_t character : text) {
    const auto code = static_cast<unsigned>(character);
    if (code < 0x80)
      std::cout << static_cast<char>(code);
    else
      std::cout << static_cast<char>(0xC0 | code >> 6) << static_cast<char>(0x80 | (code & 0x3F));
  }
  std::cout << '\n';
}

void print(const char* name, const companions::Launch& launch) {
  print(name, launch.command_line);
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 2)
    return 2;
  const std::string server = argv[1];
  const companions::CompanionValues jana = {L"C:\\Orb", std::wstring(server.begin(), server.end()), L"jana", L"7c1f"};
  platform::memory::EventLoop loop;
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  base::Settings settings;
  companions::Identity identity{{folder, loop, settings}};
  const std::wstring token = identity.Heslo(jana.h);
  std::wstring page = L"novinky.php?od=lumotune&co=1";

  print("list size", companions::station_list_size(jana));
  print("list", companions::station_list(jana));
  print("play report, client on", companions::play_report(jana, true, L"LUMO01"));
  print("play report, client off", companions::play_report(jana, false, L"LUMO01"));
  print("discussion", companions::discussion(jana, L"LUMO01", L"Rádio Úsvit"));
  print("new station", companions::add_station(jana));
  print("free music", companions::OrbMelodeon(jana));
  print("login", companions::login_address(jana, token, L""));
  print("login and on", companions::login_address(jana, token, directory::MakePageRe(page)));
  print("help", companions::help_address(jana));
}
