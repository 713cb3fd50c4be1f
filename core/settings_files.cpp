// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/settings_files.h"

#include "core/server_file.h"

namespace lumotune::core {

std::wstring SettingsFiles::data_file(const wchar_t* name) const {
  return uses_.machine.program_folder() + L"\\Orb_Data\\" + name;
}

void SettingsFiles::LoadOptions() {
  List4.clear();
  if (const auto bytes = uses_.files.read(data_file(L"options.ini")))
    List4 = without_empty_lines(split_text_lines(*bytes));
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
  (void)uses_.files.replace(data_file(L"options.ini"), join_lines(List4));
}

void SettingsFiles::LoadOptionsServer() {
  read_server_file({uses_.files, uses_.codec, uses_.machine, uses_.error_log}, L"LoadOptionsServer", List4,
                   uses_.settings.server_address);
}

} // namespace lumotune::core
