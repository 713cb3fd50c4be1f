// SPDX-License-Identifier: LGPL-2.1-or-later
// Files as bytes. Paths are full paths, with backslashes or slashes, case-insensitive.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::platform {

// Identifies a state of a file; only equality is meaningful. `written` has the resolution of the file system's clock,
// some 16 ms on NTFS and 2 s on FAT: a second write of the same length within one tick goes unnoticed, unless the file
// was replaced, which changes `identity`.
struct FileStamp {
  std::uint64_t size = 0;     // bytes
  std::uint64_t written = 0;  // time of the last write
  std::uint64_t identity = 0; // the file's identity on its volume
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// Nothing throws; a failing call leaves the old content intact. Any thread.
class Files {
public:
  // A larger file counts as unreadable.
  static constexpr std::uint64_t max_bytes = 512ULL * 1024 * 1024;

  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  [[nodiscard]] virtual bool exists(const std::wstring& path) const = 0;                       // a file, not a folder
  [[nodiscard]] virtual std::optional<std::uint64_t> size(const std::wstring& path) const = 0; // current size in bytes
  // Nothing for a file that is missing or unreadable. A stamp taken before a read is never newer than what is read.
  [[nodiscard]] virtual std::optional<FileStamp> stamp(const std::wstring& path) const = 0;

  // The whole content, even while other programs have the file open; nothing when missing or unreadable.
  [[nodiscard]] virtual std::optional<std::string> read(const std::wstring& path) const = 0;
  // The same into `bytes`, whose capacity is reused; false leaves `bytes` empty.
  [[nodiscard]] virtual bool read_into(const std::wstring& path, std::string& bytes) const = 0;
  // The same for a file of at most `limit` bytes; a longer one counts as unreadable. Bytes appended during the read are
  // not included.
  [[nodiscard]] virtual bool read_at_most(const std::wstring& path, std::string& bytes, std::uint64_t limit) const = 0;

  // The new content is first written beside the file ("name.new") and flushed to disk, then replaces it: a crash leaves
  // either the old file or the new one. Attributes and access rights are kept. A file that another program holds is
  // retried: five attempts within 200 ms, in which nothing else runs. False on failure, for instance for a read-only
  // file; the old file is then intact.
  [[nodiscard]] virtual bool replace(const std::wstring& path, std::string_view bytes) = 0;

  [[nodiscard]] virtual bool append(const std::wstring& path,
                                    std::string_view bytes) = 0;   // creates a missing file
  [[nodiscard]] virtual bool remove(const std::wstring& path) = 0; // true when the file no longer exists
  // Renames the file within its folder, replacing a file of the new name. False when nothing was changed.
  [[nodiscard]] virtual bool move(const std::wstring& from, const std::wstring& to) = 0;
  // Replaces two files together: both new contents are complete on disk before the first file is replaced, and if the
  // second cannot be, the first one's old file ("name.old") is restored. False unless both were replaced. A crash
  // between the two is repaired by `settle`. Waits up to 400 ms for other programs.
  [[nodiscard]] virtual bool replace_both(const std::wstring& first, std::string_view first_bytes,
                                          const std::wstring& second, std::string_view second_bytes) = 0;
  // Removes or completes what a crash during `replace`, or during `replace_both` of these two files, left beside them.
  // To be called by the first copy of the program, before anything is written.
  virtual void settle(const std::wstring& path) = 0;
  virtual void settle(const std::wstring& first, const std::wstring& second) = 0;
  // Creates a folder in an existing one; true when it exists afterwards.
  [[nodiscard]] virtual bool make_folder(const std::wstring& path) = 0;
  // Whether a file can be replaced or created, as far as can be known in advance: neither it nor its folder is
  // read-only.
  [[nodiscard]] virtual bool can_replace(const std::wstring& path) = 0;
  // Whether any program has the file open for writing; false for a missing file.
  [[nodiscard]] virtual bool being_written(const std::wstring& path) const = 0;
  // Copies over an existing file, as safely as `replace`.
  [[nodiscard]] virtual bool copy(const std::wstring& from, const std::wstring& to) = 0;

  // The bytes that this user may still write to the disk of that folder; nothing when the system does not say.
  [[nodiscard]] virtual std::optional<std::uint64_t> free_bytes(const std::wstring& folder) const = 0;

  // The names (without folder) of the files matching `pattern` ("*.skin"), in file-system order.
  [[nodiscard]] virtual std::vector<std::wstring> list(const std::wstring& folder,
                                                       const std::wstring& pattern) const = 0;
};

} // namespace lumotune::platform
