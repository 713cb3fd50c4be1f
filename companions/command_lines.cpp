// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/command_lines.h"

#include "base/site.h"
#include "base/text.h"
#include "companions/web_address.h"

#include <algorithm>
#include <array>

namespace lumotune::companions {
namespace {

using platform::ShowWindow;

constexpr std::wstring_view delimiter = base::record_delimiter;

// Makes untrusted text harmless in a command line.
std::wstring one_argument(std::wstring text) {
  for (wchar_t& character : text) {
    if (character == L'"')
      character = L'\'';
    else if (character < L' ' || character == 0x7F)
      character = L' ';
  }
  return text;
}

// Makes it harmless as a record field too. The delimiter is searched for at the end of the text kept so far, because
// removing one may form another. A trailing "/@" would form a delimiter with the one that follows and shift the fields.
std::wstring one_field(const std::wstring& text, std::size_t longest = max_field) {
  std::wstring field;
  for (const wchar_t character : one_argument(text)) {
    field.push_back(character);
    if (field.ends_with(delimiter))
      field.resize(field.size() - delimiter.size());
  }
  field.resize(std::min(field.size(), longest));
  constexpr std::wstring_view begun = L"/@";
  while (field.ends_with(begun))
    field.resize(field.size() - begun.size());
  return field;
}

Launch in_folder(const CompanionValues& values, const wchar_t* program, const std::wstring& arguments,
                 ShowWindow show) {
  const std::wstring path = values.program_folder + L"\\" + program;
  return {path + L" " + arguments, path, show};
}

// Found through the current folder, which is the program folder.
Launch by_name(const wchar_t* program, const std::wstring& arguments, ShowWindow show) {
  return {std::wstring(program) + L" " + arguments, L"", show};
}

std::wstring account(const CompanionValues& values) {
  return L"idh=" + one_field(values.idh) + L"&h=" + one_field(values.h);
}

Launch browser(const CompanionValues& values, const std::wstring& path_and_parameters) {
  return in_folder(values, L"OrbBrowser.exe", one_field(values.server) + path_and_parameters,
                   ShowWindow::minimized_focus);
}

// The browser's window titles end with the site's name.
std::wstring of_the_site(const std::wstring& title) {
  return title + L" (" + base::site_name + L")";
}

Launch download(const CompanionValues& values, const std::wstring& path_and_query, const wchar_t* file) {
  return by_name(L"load.exe",
                 one_field(values.server) + path_and_query + std::wstring(delimiter) + values.program_folder + file,
                 ShowWindow::normal_no_focus);
}

} // namespace

CompanionValues companion_values(const base::ProgramFolder& folder, const base::Settings& settings) {
  return {folder.path(), std::wstring(base::trimmed(settings.server_address)), settings.idh, settings.h};
}

std::wstring companion_program(const base::ProgramFolder& folder, std::wstring_view name) {
  static constexpr std::array<std::wstring_view, 6> programs = {L"orb.exe",    L"OrbBrowser.exe", L"OrbRecorder.exe",
                                                                L"Telvix.exe", L"remind.exe",     L"load.exe"};
  name = base::trimmed(name, L" ");
  for (const std::wstring_view program : programs) {
    if (base::equal_ignoring_case(name, program))
      return folder.path(program);
  }
  return {};
}

// Deliberately backslashes: the server knows this page and the free-music page by these exact paths.
Launch discussion(const CompanionValues& values, const std::wstring& station_id, const std::wstring& station_name) {
  return browser(values, L"\\orb\\diskuze.php?" + account(values) + L"&t=100000&tid=" + one_field(station_id, max_id) +
                             L"/@/9000/@/9000/@/" +
                             of_the_site(L"Diskuze k rádiové stanici: " + one_field(station_name)) +
                             L"/@/normal/@/endtestnull/@/");
}

Launch add_station(const CompanionValues& values) {
  return browser(values, L"/lumotune.brelt/user_lt_add.php?" + account(values) + L"/@/9000/@/9000/@/" +
                             of_the_site(L"Přidat nové rádio") + L"/@/normal/@/endtestnull/@/");
}

Launch OrbMelodeon(const CompanionValues& values) {
  return browser(values, L"\\orb\\melodeon.php?" + account(values) + L"/@/14000/@/8000/@/" +
                             of_the_site(L"Orb Melodeon") + L"/@/max/@/endtestnull/@/");
}

Launch browser_page(const CompanionValues& values, const std::wstring& page, const std::wstring& parameters) {
  return browser(values, L"/" + one_argument(page) + std::wstring(delimiter) + one_argument(parameters));
}

Launch recorder(const CompanionValues& values, const std::wstring& station_name) {
  return in_folder(values, L"OrbRecorder.exe", one_field(station_name), ShowWindow::normal_focus);
}

Launch recordings_library(const CompanionValues& values) {
  return in_folder(values, L"OrbRecorder.exe", L"l", ShowWindow::normal_focus);
}

Launch problem_report(const CompanionValues& values, const std::wstring& station_id, const std::wstring& station_name) {
  return by_name(L"remind.exe",
                 L"RadioOFF/@/" + one_field(station_id, max_id) + L"/@/" + one_field(station_name) + L"/@/" +
                     one_field(values.idh) + L"/@/" + one_field(values.h) + L"/@/" + one_field(values.server),
                 ShowWindow::normal_focus);
}

std::optional<Launch> television(const CompanionValues& values, const std::wstring& stream_address) {
  if (!is_stream_address(stream_address))
    return std::nullopt;
  return in_folder(values, L"Telvix.exe", stream_address, ShowWindow::normal_focus);
}

Launch messenger_client(const CompanionValues& values) {
  return in_folder(values, L"orb.exe", L"m", ShowWindow::normal_no_focus);
}

Launch client_for_login() {
  return {client_program, L"", ShowWindow::normal_focus};
}

Launch play_report(const CompanionValues& values, bool client_link_on, const std::wstring& station_id) {
  return download(values,
                  L"/orb/lt_all.php?" + account(values) + L"&orbw=" + (client_link_on ? L"on" : L"off") +
                      L"&lt=on&stanice=" + one_field(station_id, max_id),
                  L"\\orblt.tt");
}

// Deliberately a forward slash: the client's own tools know the list by this exact path.
Launch station_list(const CompanionValues& values) {
  return download(values, L"/lumotune.brelt/lt_list.php?idh=" + one_field(values.idh), L"/seznam.tt");
}

Launch station_list_size(const CompanionValues& values) {
  return download(values, L"/lumotune.brelt/lt_list.php?size=1&idh=" + one_field(values.idh), L"\\orb_test_size.tt");
}

std::wstring login_address(const CompanionValues& values, const std::wstring& token, const std::wstring& page) {
  return values.server + L"/login/" + values.idh + L"/" + token + L"/" + with_harmless_commas(page) + L"/1";
}

std::wstring help_address(const CompanionValues& values) {
  return values.server + L"/faq";
}

void launch(platform::Shell& shell, const Launch& what) {
  // Not reported: a missing companion is an installation fault that the listener cannot mend.
  (void)shell.start(what.command_line, what.application, what.show);
}

} // namespace lumotune::companions
