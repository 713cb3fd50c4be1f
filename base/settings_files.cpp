// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/settings_files.h"

#include "base/server_file.h"

namespace lumotune::base {
namespace {

// Lines of the client that the play report reads.
constexpr std::size_t check_line = 6;
constexpr std::size_t link_line = 18;

std::wstring options_file(const ProgramFolder& folder) {
  return folder.data(L"options.ini");
}

} // namespace

std::optional<TextLines> read_options_lines(const ProgramFolder& folder) {
  std::string bytes;
  if (!folder.files().read_at_most(options_file(folder), bytes, SettingsFiles::max_bytes))
    return std::nullopt;
  return without_empty_lines(split_text_lines(bytes));
}

// The client deletes its file and writes it line by line: for a moment the file is missing or short, and between two
// lines it looks complete. A line count lower than last time is therefore accepted only when it persists.
bool SettingsFiles::read_whole() {
  const std::uint32_t start = uses_.loop.tick_count_ms();
  for (;;) {
    const auto lines = read_options_lines(uses_.folder);
    const std::size_t count = lines.has_value() ? lines->size() : 0;
    locked_ = !lines.has_value() && uses_.folder.files().exists(options_file(uses_.folder));
    const std::uint32_t patience_ms = locked_ && !values_read_ ? max_locked_wait_ms : max_wait_ms;
    const bool full = count >= options_line_count && !uses_.folder.files().being_written(options_file(uses_.folder));
    if ((full && count >= known_lines_) || uses_.loop.tick_count_ms() - start >= patience_ms ||
        !uses_.loop.wait_a_little()) {
      List4 = lines.value_or(TextLines());
      known_lines_ = full ? count : known_lines_;
      return full;
    }
  }
}

void SettingsFiles::LoadOptions() {
  (void)read_whole(); // a short file is used as it is: it lacks a login and is never written back
}

void SettingsFiles::LoadClientValues() {
  const auto lines = read_options_lines(uses_.folder);
  // The last line of a growing file may be incomplete.
  if (!lines.has_value() ||
      (lines->size() < options_line_count && uses_.folder.files().being_written(options_file(uses_.folder))))
    return;
  Settings written;
  read_settings(*lines, uses_.folder.codec(), written);
  if (lines->size() > link_line)
    uses_.settings.client_link = written.client_link;
  if (written.idh.empty())
    return; // no user is logged in
  uses_.settings.idh = written.idh;
  if (lines->size() > check_line)
    uses_.settings.h = written.h;
}

void SettingsFiles::read_values() {
  values_read_ = true;
  read_settings(List4, uses_.folder.codec(), uses_.settings);
}

bool SettingsFiles::logged_in() const {
  return !line_value(List4, 5, 12, uses_.folder.codec()).empty();
}

void SettingsFiles::SaveOptions() {
  auto& settings = uses_.settings;
  if (!values_read_)
    return; // values not read yet: all would be saved empty
  // A minimised or hidden window keeps the position read at start.
  const bool shown_normally = uses_.session.window_shown == L"1" || uses_.session.window_shown.empty();
  if (shown_normally) {
    const platform::TwipsRect place = uses_.window.rect();
    settings.LTpleft = std::to_wstring(place.left);
    settings.LTptop = std::to_wstring(place.top);
  }
  if (List4.size() < options_line_count) {
    if (locked_) // it was waited for in vain; a file that is merely short is left to the client
      uses_.error_log.add(L"SaveOptions", L"options.ini");
    return;
  }
  // The client may have written meanwhile. When the disk is full or the file is locked, the old file stays intact and
  // keeps the settings of the last run.
  if (!read_whole() || !write_settings(List4, uses_.folder.codec(), settings) ||
      !uses_.folder.files().replace(options_file(uses_.folder), join_lines(List4)))
    uses_.error_log.add(L"SaveOptions", L"options.ini");
}

void SettingsFiles::LoadOptionsServer() {
  read_server_file(uses_.folder, uses_.error_log, L"LoadOptionsServer", List4, uses_.settings.server_address);
}

} // namespace lumotune::base
