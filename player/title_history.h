// SPDX-License-Identifier: LGPL-2.1-or-later
// Keeps the last titles that were heard, with time and station, in a file of the program folder.
#pragma once

#include "base/program_folder.h"
#include "base/session.h"
#include "platform/event_loop.h"
#include "platform/machine.h"
#include "platform/media_player.h"
#include "player/title_lines.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace lumotune::player {

inline constexpr const wchar_t* titles_file = L"skladby.txt";

// User-interface thread. The file is read again before each writing: what the listener wrote meanwhile, its switch
// above all, holds. Written completely beside the old one, which it then replaces. A file that cannot be read is never
// written; one that cannot be replaced is tried again after some minutes, because each attempt may hold up the user
// interface for a fifth of a second.
class TitleHistory {
public:
  static constexpr std::uint64_t max_bytes = 256ULL * 1024; // a longer file counts as unreadable
  // A station that changes its title all the time does not wear out the disk.
  static constexpr std::uint32_t between_writes_ms = 10000;
  static constexpr std::uint32_t after_failure_ms = 300000;
  static constexpr std::size_t max_waiting = TitleLines::max_titles;
  static constexpr std::size_t shown_titles = 5;
  static constexpr std::size_t shown_characters = 120; // of each

  struct Uses {
    base::Session& session;
    const base::ProgramFolder& folder;
    const platform::Machine& machine;
    const platform::MediaPlayer& player;
    platform::EventLoop& loop;
  };
  explicit TitleHistory(const Uses& uses);

  void start(); // also reads what earlier runs heard
  void tick();  // once a second
  void flush(); // writes what waits, at the end of the program

private:
  void write(bool last);
  [[nodiscard]] bool due(std::optional<std::uint32_t> since, std::uint32_t after_ms) const;
  void show(const TitleLines& lines);
  [[nodiscard]] std::optional<TitleLines> read() const;

  Uses uses_;
  std::wstring last_; // station and title of the last look
  std::deque<HeardTitle> waiting_;
  std::optional<std::uint32_t> read_at_;
  std::optional<std::uint32_t> failed_at_; // while the last attempt to replace the file failed
  std::unique_ptr<platform::Timer> timer_;
};

} // namespace lumotune::player
