// SPDX-License-Identifier: LGPL-2.1-or-later
// How the companion programs are started and which pages are opened: one place for every window. Pure, but for
// `launch`.
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

// A program start. `application` is the program's full path where the command line names a folder, so that a blank in
// the folder cannot start another program; empty for a program that is looked for in the current folder.
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
// empty for any other name. Nothing else may be started because a text from outside says so.
[[nodiscard]] std::wstring companion_program(const base::ProgramFolder& folder, std::wstring_view name);

// Every text is inserted unquoted and unescaped. A quotation mark in it becomes an apostrophe and a control character a
// blank: neither means anything in a name, an address or a number, and the first could join or part arguments. All but
// the parameters that `browser_page` is given also lose the record delimiter, behind which the downloader finds the
// file to write, and are cut to `max_field`, identifiers to `max_id`, characters.
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
// Nothing for what is_stream_address refuses.
[[nodiscard]] std::optional<Launch> television(const CompanionValues& values, const std::wstring& stream_address);
[[nodiscard]] Launch messenger_client(const CompanionValues& values);

// The downloader: each stores the reply in a file of the program folder.
[[nodiscard]] Launch play_report(const CompanionValues& values, bool client_link_on,
                                 const std::wstring& station_id);      // orblt.tt
[[nodiscard]] Launch station_list(const CompanionValues& values);      // seznam.tt
[[nodiscard]] Launch station_list_size(const CompanionValues& values); // orb_test_size.tt

// Addresses of the community site. `token` is Heslo of h; `page` the page to go on to, as one segment, empty for none.
[[nodiscard]] std::wstring login_address(const CompanionValues& values, const std::wstring& token,
                                         const std::wstring& page);
[[nodiscard]] std::wstring help_address(const CompanionValues& values);

// Starts it. One that is missing is not started, and nobody is told.
void launch(platform::Shell& shell, const Launch& what);

} // namespace lumotune::companions
