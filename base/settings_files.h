// SPDX-License-Identifier: LGPL-2.1-or-later
// The settings file shared with the client, and the client's file with the server address.
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

// The non-empty lines of options.ini; nothing when it cannot be read.
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

  // How long to wait, running events, for a file that is missing, short or being written by another program.
  static constexpr std::uint32_t max_wait_ms = 1000;
  // At the start, for one that is there but cannot be read.
  static constexpr std::uint32_t max_locked_wait_ms = 2000;
  // A longer file counts as one that cannot be read.
  static constexpr std::uint64_t max_bytes = 1024ULL * 1024;

  // Fills List4 with the non-empty lines of options.ini; a file that cannot be read leaves it empty. May wait up to
  // `max_wait_ms`, or `max_locked_wait_ms`.
  void LoadOptions();
  // Whether the file was there at the last LoadOptions but could not be read: nothing is known of a login then.
  [[nodiscard]] bool locked() const { return locked_; }

  // Reads every value from List4, as LoadOptions left it.
  void read_values();
  [[nodiscard]] bool logged_in() const; // whether the client has written its login line

  // Reads only what the client writes: client_link, idh and h; the player's own values in memory are newer than the
  // file's. A missing line leaves its value unchanged, an empty login line leaves idh and h unchanged, and a file that
  // is missing, or short and being written, changes nothing at all. List4 is not touched.
  void LoadClientValues();

  // Reads options.ini again, so that lines the client has written meanwhile are kept, replaces the player's lines and
  // writes the file. Callers run LoadOptions first. Nothing is saved before `read_values`, and a file that cannot be
  // read or has fewer than 24 non-empty lines is never written. May wait up to `max_wait_ms`; a failure to save is
  // logged.
  void SaveOptions();

  // Reads the server address. On any error the file is restored from the client's backup, the error is logged and the
  // address keeps its value.
  void LoadOptionsServer();

private:
  [[nodiscard]] bool read_whole();

  Uses uses_;
  bool values_read_ = false;
  bool locked_ = false;
  std::size_t known_lines_ = 0; // in the last complete file
  // The line buffer shared by both files: after LoadOptionsServer it holds the lines of the server file.
  TextLines List4;
};

} // namespace lumotune::base
