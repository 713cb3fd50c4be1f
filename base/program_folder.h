// SPDX-License-Identifier: LGPL-2.1-or-later
// The program's folder, which holds its files and the client's: paths by name, and access to read and write them.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/files.h"
#include "platform/machine.h"

#include <optional>
#include <string>
#include <string_view>

namespace lumotune::base {

// User-interface thread. Nothing throws.
class ProgramFolder {
public:
  // Each must outlive the folder.
  ProgramFolder(platform::Files& files, const platform::AnsiCodec& codec, const platform::Machine& machine)
      : files_(files), codec_(codec), machine_(machine) {}

  // Full paths: the folder itself, without a trailing backslash; a file in it; a file in its data folder, which is
  // shared with the client.
  [[nodiscard]] std::wstring path() const { return machine_.program_folder(); }
  [[nodiscard]] std::wstring path(std::wstring_view name) const;
  [[nodiscard]] std::wstring data(std::wstring_view name) const;
  // A file in the skins folder, or in a skin's own folder below it.
  [[nodiscard]] std::wstring skins(std::wstring_view name) const;

  [[nodiscard]] platform::Files& files() const { return files_; }
  // Text files are in the system's code page.
  [[nodiscard]] const platform::AnsiCodec& codec() const { return codec_; }
  // The text of a file; nothing when it is missing or cannot be read.
  [[nodiscard]] std::optional<std::wstring> read_text(const std::wstring& whole_path) const;

private:
  platform::Files& files_;
  const platform::AnsiCodec& codec_;
  const platform::Machine& machine_;
};

} // namespace lumotune::base
