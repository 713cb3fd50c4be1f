// SPDX-License-Identifier: LGPL-2.1-or-later
// Files as bytes. Paths are whole paths of the machine, backslashes or slashes, letter case ignored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::platform {

// What tells one state of a file from another; only equality means something. `written` is as fine as the file system's
// clock, some 16 ms on NTFS and 2 s on FAT: a second write of the same length within one tick shows only when another
// file took the place, which changes `identity`.
struct FileStamp {
  std::uint64_t size = 0;     // bytes
  std::uint64_t written = 0;  // when its content was written last
  std::uint64_t identity = 0; // which file of the volume it is
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// Nothing throws; a call that fails leaves the old content as it was. User-interface thread.
class Files {
public:
  // The largest file that is read: past it a file counts as unreadable.
  static constexpr std::uint64_t max_bytes = 512ULL * 1024 * 1024;

  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  [[nodiscard]] virtual bool exists(const std::wstring& path) const = 0;                       // a file, not a folder
  [[nodiscard]] virtual std::optional<std::uint64_t> size(const std::wstring& path) const = 0; // bytes of now
  // Nothing for a file that is missing or cannot be read now. Taken before a read, it is older than what is read.
  [[nodiscard]] virtual std::optional<FileStamp> stamp(const std::wstring& path) const = 0;

  // The whole content, read while other programs may have the file open; nothing when missing or unreadable.
  [[nodiscard]] virtual std::optional<std::string> read(const std::wstring& path) const = 0;
  // The same into `bytes`, whose capacity is used again; false leaves `bytes` empty.
  [[nodiscard]] virtual bool read_into(const std::wstring& path, std::string& bytes) const = 0;
  // The same of a file of at most `limit` bytes; a longer one counts as unreadable. What the file grows by while it is
  // read is not taken in.
  [[nodiscard]] virtual bool read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const = 0;

  // The new content is complete and flushed on disk beside the file first ("name.new"), then takes its place: a crash
  // leaves either the old file or the new one. The old one's attributes and access rights are kept. A file that another
  // program holds is tried five times in 200 ms, in which nothing else runs. False when it could not be done, as for a
  // file that is marked read-only; the old file is then still there.
  [[nodiscard]] virtual bool replace(const std::wstring& path, std::string_view bytes) = 0;

  [[nodiscard]] virtual bool append(const std::wstring& path,
                                    std::string_view bytes) = 0;   // makes the file when missing
  [[nodiscard]] virtual bool remove(const std::wstring& path) = 0; // true when it is gone
  // Gives the file another name in the same folder; a file of that name goes. False when nothing was done.
  [[nodiscard]] virtual bool move(const std::wstring& from, const std::wstring& to) = 0;
  // Two files at once: both new contents are complete on disk before the first one takes its place, and when the second
  // cannot take its own, the first old file comes back ("name.old" keeps it). False when not both could be done. A
  // crash between the two is put right by `settle`. Waits up to 400 ms for other programs.
  [[nodiscard]] virtual bool replace_both(const std::wstring& first, std::string_view first_bytes,
                                          const std::wstring& second, std::string_view second_bytes) = 0;
  // Removes or completes what a crash during `replace`, or during `replace_both` of two files, has left beside them.
  // For the first copy of the program, before anything is written.
  virtual void settle(const std::wstring& path) = 0;
  virtual void settle(const std::wstring& first, const std::wstring& second) = 0;
  // Whether a file can be replaced or made, as far as can be known beforehand: neither it nor its folder is read-only.
  [[nodiscard]] virtual bool can_replace(const std::wstring& path) = 0;
  // Whether some program has the file open for writing; false for a missing file.
  [[nodiscard]] virtual bool being_written(const std::wstring& path) const = 0;
  // Copies over an existing file, as safely as `replace`.
  [[nodiscard]] virtual bool copy(const std::wstring& from, const std::wstring& to) = 0;

  // The names (without folder) of the files that match `pattern` ("*.skin"), in the order the file system gives them.
  [[nodiscard]] virtual std::vector<std::wstring> list(const std::wstring& folder,
                                                       const std::wstring& pattern) const = 0;
};

} // namespace lumotune::platform
