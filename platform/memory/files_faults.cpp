// SPDX-License-Identifier: LGPL-2.1-or-later
// Faults of the disk in memory: crashes, other programs, and what is left of a run.
#include "platform/memory/files.h"

#include <utility>

namespace lumotune::platform::memory {

void Files::mend(const std::wstring& path) {
  unreadable_.erase(key(path));
  readonly_.erase(key(path));
}

bool Files::power_on() {
  steps_to_crash_ = -1;
  return std::exchange(off_, false);
}

// Whether the next disk change takes effect; false from the crash on.
bool Files::powered() {
  if (!off_ && steps_to_crash_ >= 0 && steps_to_crash_-- == 0)
    off_ = true;
  return !off_;
}

void Files::written_by_another(const std::wstring& path, std::string_view bytes) {
  if (!off_)
    store(path, bytes);
}

std::map<std::wstring, std::string> Files::disk() const {
  std::map<std::wstring, std::string> contents;
  for (const auto& [path, entry] : files_)
    contents[path] = entry.bytes;
  return contents;
}

void Files::start_with_disk_of(const Files& other) {
  files_ = other.files_;
  writings_ = other.writings_;
  identities_ = other.identities_;
}

void Files::set_being_written(const std::wstring& path, bool on) {
  if (on)
    written_.insert(key(path));
  else
    written_.erase(key(path));
}

} // namespace lumotune::platform::memory
