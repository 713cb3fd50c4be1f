// SPDX-License-Identifier: LGPL-2.1-or-later
// Command lines of the companion programs and addresses of the pages to open, for every window. Pure, except `launch`.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "platform/shell.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::companions {

// The client's communication window and program.
inline constexpr const wchar_t* client_caption = L"Orb - Lumotune";
inline constexpr const wchar_t* client_program = L"orb.exe";

// A program start. `application` is the program's full path when the command line names a folder, so that a blank in
// the folder cannot start another program; empty for a program that is searched for in the current folder.
struct Launch {
  std::wstring command_line;
  std::wstring application;
  platform::ShowWindow show = platform::ShowWindow::normal_focus;
  friend bool operator==(const Launch&, const Launch&) = default;
};

// What the command lines are built from.
struct CompanionValues {
  std::wstring program_folder; // without a trailing backslash
  std::wstring server;         // address of the community server
  std::wstring idh;            // account identity
  std::wstring h;              // account check value
};
[[nodiscard]] CompanionValues companion_values(const base::ProgramFolder& folder, const base::Settings& settings);

// The full path of the client's or a companion's program by its plain name, blanks around it and letter case ignored;
// empty for any other name. Text from outside can start nothing else.
[[nodiscard]] std::wstring companion_program(const base::ProgramFolder& folder, std::wstring_view name);

// Texts are inserted unquoted and unescaped. Quotation marks become apostrophes and control characters blanks: neither
// has a use in a name, an address or a number, and a quotation mark could join or split arguments. Except for the
// parameters of `browser_page`, texts also lose the record delimiter, after which the downloader expects the output
// file, and are cut to `max_field` characters, identifiers to `max_id`.
inline constexpr std::size_t max_field = 1000;
inline constexpr std::size_t max_id = 100;

// Pages in the client's browser.
[[nodiscard]] Launch discussion(const CompanionValues& values, const std::wstring& station_id,
                                const std::wstring& station_name);
[[nodiscard]] Launch add_station(const CompanionValues& values);
[[nodiscard]] Launch OrbMelodeon(const CompanionValues& values); // the free-music page
// A page of the server, without the leading slash, with the browser's parameters as given.
[[nodiscard]] Launch browser_page(const CompanionValues& values, const std::wstring& page,
                                  const std::wstring& parameters);

// The recorder, the reminder, the television player, the client.
[[nodiscard]] Launch recorder(const CompanionValues& values, const std::wstring& station_name);
[[nodiscard]] Launch recordings_library(const CompanionValues& values);
[[nodiscard]] Launch problem_report(const CompanionValues& values, const std::wstring& station_id,
                                    const std::wstring& station_name);
// Nothing for an address that is_stream_address rejects.
[[nodiscard]] std::optional<Launch> television(const CompanionValues& values, const std::wstring& stream_address);
[[nodiscard]] Launch messenger_client(const CompanionValues& values);
[[nodiscard]] Launch client_for_login(); // its own window, where the user logs in

// The downloader: each call stores the reply in a file in the program folder.
[[nodiscard]] Launch play_report(const CompanionValues& values, bool client_link_on,
                                 const std::wstring& station_id);      // orblt.tt
[[nodiscard]] Launch station_list(const CompanionValues& values);      // seznam.tt
[[nodiscard]] Launch station_list_size(const CompanionValues& values); // orb_test_size.tt

// Addresses of the community site. `token` is Heslo of h; `page` is the page to continue to, as one segment, or empty.
[[nodiscard]] std::wstring login_address(const CompanionValues& values, const std::wstring& token,
                                         const std::wstring& page);
[[nodiscard]] std::wstring help_address(const CompanionValues& values);

// Starts the program; a missing program is ignored silently.
void launch(platform::Shell& shell, const Launch& what);

} // namespace lumotune::companions
