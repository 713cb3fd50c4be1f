// SPDX-License-Identifier: LGPL-2.1-or-later
// The settings file shared with the client, and the client's server-address file.
#pragma once

#include "base/error_log.h"
#include "base/lumotune_form.h"
#include "base/options_lines.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/event_loop.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace lumotune::base {

// The lines of options.ini that are not empty; nothing when it cannot be read.
[[nodiscard]] std::optional<TextLines> read_options_lines(const ProgramFolder& folder);

// User-interface thread. Nothing throws or shows a message.
class SettingsFiles {
public:
  struct Uses {
    const ProgramFolder& folder;
    platform::EventLoop& loop;
    platform::Window& window;
    ErrorLog& error_log;
    Settings& settings;
    const Session& session;
  };
  explicit SettingsFiles(const Uses& uses) : uses_(uses) {}

  // A file that is missing, short, or being written by another program is waited for this long, in which events run.
  static constexpr std::uint32_t max_wait_ms = 1000;

  // Fills List4 with the non-empty lines of options.ini; a file that cannot be read leaves it empty. Waits.
  void LoadOptions();

  // Reads every value out of List4, as LoadOptions left it.
  void read_values();
  [[nodiscard]] bool logged_in() const; // whether the client has written its login line

  // Reads only what the client writes: client_link, idh and h. The player's own values of this run are newer than those
  // of the file. A line that is missing changes nothing, nor does an empty login line change idh and h; a file that is
  // missing, or short and being written, changes nothing at all. List4 stays as it is.
  void LoadClientValues();

  // Reads options.ini once more, so that no line is lost that the client wrote meanwhile, replaces the player's lines
  // and writes it. Callers run LoadOptions first. Before `read_values` nothing is saved. A file of fewer than 24
  // non-empty lines, or one that could not be read, is never written: then nothing happens. Waits; what could not be
  // saved gets a line in the error log.
  void SaveOptions();

  // Reads the server address. On any error the client's backup takes the file's place, the error log gets a line and
  // the address keeps its value.
  void LoadOptionsServer();

private:
  [[nodiscard]] bool read_whole();

  Uses uses_;
  bool values_read_ = false;
  std::size_t known_lines_ = 0; // of the last whole file
  // The line buffer that both files use in turn: after LoadOptionsServer it holds the server file's lines.
  TextLines List4;
};

} // namespace lumotune::base
