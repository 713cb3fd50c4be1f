// SPDX-License-Identifier: LGPL-2.1-or-later
// Replaces files so that a crash at no moment loses one. A backend provides the steps; their order, the retries when
// another program holds a file and the recovery after a crash are decided here.
#pragma once

#include <string>
#include <string_view>

namespace lumotune::platform {

// `held`: another program stands in the way and may let go soon. `refused`: waiting does not help.
enum class FileStep { done, held, refused };

// Each step is done or leaves everything as it was; a crash during `write_beside` or `keep_copy` leaves a torn `to`.
class FileSteps {
public:
  FileSteps() = default;
  FileSteps(const FileSteps&) = delete;
  FileSteps& operator=(const FileSteps&) = delete;
  virtual ~FileSteps() = default;

  [[nodiscard]] virtual bool there(const std::wstring& path) const = 0;
  // Whether `path` was written later than `other`.
  [[nodiscard]] virtual bool newer(const std::wstring& path, const std::wstring& other) const = 0;
  // A complete, flushed file that looks like `like` to the system (attributes, access rights) where that one is there.
  [[nodiscard]] virtual FileStep write_beside(const std::wstring& to, std::string_view bytes,
                                              const std::wstring& like) = 0;
  [[nodiscard]] virtual FileStep keep_copy(const std::wstring& from, const std::wstring& to) = 0; // flushed too
  // In one step of the file system: whoever opens `to` gets the old file or the new one.
  [[nodiscard]] virtual FileStep take_place(const std::wstring& from, const std::wstring& to) = 0;
  [[nodiscard]] virtual FileStep erase(const std::wstring& path) = 0; // done when there was none
  virtual void wait(int milliseconds) = 0;
};

// A file that another program holds is tried so often, so far apart. A call waits four times that at most, and one for
// two files as long again when it has to put the first file back. Settling what a crash left, which a
// replacement of two files does first, takes as long again at most.
inline constexpr int file_tries = 5;
inline constexpr int file_wait_ms = 50;

[[nodiscard]] bool replace_one(FileSteps& steps, const std::wstring& path, std::string_view bytes);
[[nodiscard]] bool replace_two(FileSteps& steps, const std::wstring& first, std::string_view first_bytes,
                               const std::wstring& second, std::string_view second_bytes);

// Completes or removes what a crash left of the replacement of one file, or of two that change together.
void settle_one(FileSteps& steps, const std::wstring& path);
void settle_two(FileSteps& steps, const std::wstring& first, const std::wstring& second);

} // namespace lumotune::platform
