// SPDX-License-Identifier: LGPL-2.1-or-later
// Turns the downloaded list into the station file and the category file.
#pragma once

#include "platform/ansi_codec.h"
#include "platform/files.h"

#include <string>
#include <string_view>

namespace lumotune::directory {

// Who shows what the list says beside its stations. Called while the list is read.
struct ConversionPort {
  virtual ~ConversionPort() = default;
  virtual void ZobrazReklamu(const std::wstring& text) = 0;
  virtual void ZobrazInfoPanel(const std::wstring& text) = 0;
};

// The new content of both files, closed by one more CR LF each.
struct Converted {
  std::string stations;
  std::string categories;
};

// Any bytes: a line of no known kind is a station and stays as it came.
[[nodiscard]] Converted convert(std::string_view list, const platform::AnsiCodec& codec, ConversionPort& port);

enum class Conversion {
  done,
  unreadable, // the list could not be read; nothing was changed or shown
  not_written // the new files could not take the places of the old ones, which are still there
};
// The same for the files of a folder; the list is read completely first.
[[nodiscard]] Conversion convert_files(platform::Files& files, const std::wstring& program_folder,
                                       const platform::AnsiCodec& codec, ConversionPort& port);

} // namespace lumotune::directory
