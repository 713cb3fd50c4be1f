// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/settings_files.h"

#include "core/server_file.h"

namespace lumotune::core {
namespace {

std::wstring options_file(const platform::Machine& machine) {
  return machine.program_folder() + L"\\Orb_Data\\options.ini";
}

} // namespace

std::optional<TextLines> read_options_lines(const platform::Files& files, const platform::Machine& machine) {
  const auto bytes = files.read(options_file(machine));
  if (!bytes.has_value())
    return std::nullopt;
  return without_empty_lines(split_text_lines(*bytes));
}

void SettingsFiles::LoadOptions() {
  List4 = read_options_lines(uses_.files, uses_.machine).value_or(TextLines());
}

void SettingsFiles::LoadClientValues() {
  const auto lines = read_options_lines(uses_.files, uses_.machine);
  if (!lines.has_value() || lines->size() < options_line_count)
    return;
  Settings written;
  read_settings(*lines, uses_.codec, written);
  uses_.settings.client_link = written.client_link;
  uses_.settings.idh = written.idh;
  uses_.settings.h = written.h;
}

void SettingsFiles::read_values() {
  read_settings(List4, uses_.codec, uses_.settings);
}

bool SettingsFiles::logged_in() const {
  return !line_value(List4, 5, 12, uses_.codec).empty();
}

void SettingsFiles::SaveOptions() {
  auto& settings = uses_.settings;
  // A minimised or hidden window keeps the place read at start.
  const bool shown_normally = uses_.session.window_shown == L"1" || uses_.session.window_shown.empty();
  if (shown_normally) {
    const platform::TwipsRect place = uses_.window.rect();
    settings.LTpleft = std::to_wstring(place.left);
    settings.LTptop = std::to_wstring(place.top);
  }
  if (!write_settings(List4, uses_.codec, settings))
    return;
  // When the disk is full or the file is locked the old one stays whole: the settings of the last run are kept.
  (void)uses_.files.replace(options_file(uses_.machine), join_lines(List4));
}

void SettingsFiles::LoadOptionsServer() {
  read_server_file({uses_.files, uses_.codec, uses_.machine, uses_.error_log}, L"LoadOptionsServer", List4,
                   uses_.settings.server_address);
}

} // namespace lumotune::core
