// SPDX-License-Identifier: LGPL-2.1-or-later
// In-memory files with fault injection, for tests.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/common/code_page_1250.h"
#include "platform/common/file_replacing.h"
#include "platform/files.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

class Files final : public platform::Files {
public:
  [[nodiscard]] bool exists(const std::wstring& path) const override;
  [[nodiscard]] std::optional<std::uint64_t> size(const std::wstring& path) const override;
  [[nodiscard]] std::optional<FileStamp> stamp(const std::wstring& path) const override;
  [[nodiscard]] std::optional<std::string> read(const std::wstring& path) const override;
  [[nodiscard]] bool read_into(const std::wstring& path, std::string& bytes) const override;
  [[nodiscard]] bool read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const override;
  [[nodiscard]] bool replace(const std::wstring& path, std::string_view bytes) override;
  [[nodiscard]] bool replace_both(const std::wstring& first, std::string_view first_bytes, const std::wstring& second,
                                  std::string_view second_bytes) override;
  void settle(const std::wstring& path) override;
  void settle(const std::wstring& first, const std::wstring& second) override;
  [[nodiscard]] bool make_folder(const std::wstring& path) override;
  [[nodiscard]] bool can_replace(const std::wstring& path) override;
  [[nodiscard]] bool move(const std::wstring& from, const std::wstring& to) override;
  [[nodiscard]] bool being_written(const std::wstring& path) const override;
  [[nodiscard]] bool append(const std::wstring& path, std::string_view bytes) override;
  [[nodiscard]] bool remove(const std::wstring& path) override;
  [[nodiscard]] bool copy(const std::wstring& from, const std::wstring& to) override;
  [[nodiscard]] std::optional<std::uint64_t> free_bytes(const std::wstring& /*folder*/) const override { return room; }
  [[nodiscard]] std::vector<std::wstring> list(const std::wstring& folder, const std::wstring& pattern) const override;

  // Fault injection: the file can no longer be read; it can no longer be written, removed or replaced.
  void make_unreadable(const std::wstring& path) { unreadable_.insert(key(path)); }
  void make_readonly(const std::wstring& path) { readonly_.insert(key(path)); }
  // The same for everything in a folder, at any depth, including files that do not exist yet.
  void make_folder_readonly(const std::wstring& folder) { readonly_folders_.insert(key(folder) + L"\\"); }
  // Another program locks the file against being replaced, removed or moved, until `release`.
  void hold(const std::wstring& path) { held_.insert(key(path)); }
  void release(const std::wstring& path) { held_.erase(key(path)); }
  // Called while a call waits for a locked file; and the total wait so far.
  std::function<void()> while_waiting;
  int waited_ms = 0;
  // The machine crashes during the n-th disk-changing step from now (0: the next one): that step is left incomplete,
  // and nothing is done any more until `power_on`, which returns whether it crashed. `left`: what is on disk of a write
  // that was cut short.
  enum class Left { half, empty_file, nothing };
  void crash_at(int step, Left left = Left::half) {
    steps_to_crash_ = step;
    left_ = left;
  }
  bool power_on();
  // Another program writes the file: neither a step of this one nor recorded among its changes.
  void written_by_another(const std::wstring& path, std::string_view bytes);
  // The contents on disk by path (lower case, backslashes); and a start with the disk of another run.
  [[nodiscard]] std::map<std::wstring, std::string> disk() const;
  void start_with_disk_of(const Files& other);
  // Called after every change of this program, once the call that made it is complete.
  std::function<void()> after_change;
  // Sets whether another program has the file open for writing.
  void set_being_written(const std::wstring& path, bool on);
  void mend(const std::wstring& path);
  // What is left of the disk, in bytes: no longer text is written, and writing uses nothing up.
  std::uint64_t room = 1ULL << 40;
  // All writes happen within one clock tick: the time of the last write does not change.
  bool clock_stands = false;
  // Called before a file's bytes are read: simulates a file that changes at that moment.
  std::function<void(const std::wstring& path)> before_read;
  // Records: every read, and every change as "replace C:\...", "append ...", "remove ...", "copy to ...", "make folder
  // ...".
  [[nodiscard]] const std::vector<std::wstring>& changes() const { return changes_; }
  void forget_changes() { changes_.clear(); } // for long-running use of the same files
  [[nodiscard]] std::size_t reads(const std::wstring& path) const;
  // The number of calls of `being_written`.
  [[nodiscard]] std::size_t writers_asked_for() const { return writers_asked_for_; }

private:
  class Steps;
  struct Entry {
    std::wstring path; // as spelled when first written
    std::string bytes;
    unsigned written = 0;  // increases with every write
    unsigned identity = 0; // identity of the file, kept when it is renamed
  };
  [[nodiscard]] static std::wstring key(const std::wstring& path);
  [[nodiscard]] const Entry* readable(const std::wstring& path) const;
  [[nodiscard]] bool is_readonly(const std::wstring& wanted) const;
  [[nodiscard]] bool powered();
  [[nodiscard]] FileStep changeable(const std::wstring& path) const;
  void store(const std::wstring& path, std::string_view bytes);
  bool noted(bool done, const std::wstring& what);
  [[nodiscard]] bool write(const std::wstring& path, std::string_view old, std::string_view added);

  std::map<std::wstring, Entry> files_;
  std::set<std::wstring> folders_; // made by `make_folder`; others exist as soon as a file lies in them
  std::set<std::wstring> unreadable_;
  std::set<std::wstring> readonly_;
  std::set<std::wstring> readonly_folders_;
  std::set<std::wstring> held_;
  std::set<std::wstring> written_;
  int steps_to_crash_ = -1;
  Left left_ = Left::half;
  bool off_ = false;
  unsigned writings_ = 0;
  unsigned identities_ = 0;
  std::vector<std::wstring> changes_;
  mutable std::map<std::wstring, std::size_t> reads_;
  mutable std::size_t writers_asked_for_ = 0;
};

// The Czech code page.
class Codec final : public AnsiCodec {
public:
  [[nodiscard]] std::wstring decode(std::string_view bytes) const override { return decode_1250(bytes); }
  [[nodiscard]] std::string encode(std::wstring_view text) const override { return encode_1250(text); }
};

} // namespace lumotune::platform::memory
