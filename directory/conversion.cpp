// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/conversion.h"

#include "core/text.h"
#include "directory/code_page_fold.h"
#include "directory/file_names.h"
#include "directory/line_walk.h"

namespace lumotune::directory {
namespace {

constexpr std::string_view line_end = "\r\n";
constexpr std::size_t marker_length = 6; // "orb:k:" and its like

} // namespace

Converted convert(std::string_view list, const platform::AnsiCodec& codec, ConversionPort& port) {
  Converted result;
  result.stations.reserve(list.size() + line_end.size());
  LineWalk walk(list);
  while (walk.next()) {
    const std::string_view line = walk.line();
    const std::string_view text = line.substr(std::min(marker_length, line.size()));
    if (line.empty() || (text.empty() && starts_with_marker(line, "<end>") && line.size() < marker_length))
      continue;
    if (starts_with_marker(line, "orb:k:"))
      result.categories.append(text).append(line_end);
    else if (starts_with_marker(line, "orb:r:"))
      port.ZobrazReklamu(codec.decode(text));
    else if (starts_with_marker(line, "orb:i:"))
      port.ZobrazInfoPanel(codec.decode(text));
    else
      result.stations.append(line).append(line_end);
  }
  result.stations.append(line_end);
  result.categories.append(line_end);
  return result;
}

// Forward slash on purpose: the downloader is told this very path, and its growth is watched under it.
Conversion convert_files(platform::Files& files, const std::wstring& program_folder, const platform::AnsiCodec& codec,
                         ConversionPort& port) {
  const auto list = files.read(program_folder + L"/" + download_file);
  if (!list.has_value())
    return Conversion::unreadable;
  const Converted converted = convert(*list, codec, port);
  const bool written = files.replace_both(program_folder + L"\\" + stations_file, converted.stations,
                                          program_folder + L"\\" + categories_file, converted.categories);
  return written ? Conversion::done : Conversion::not_written;
}

} // namespace lumotune::directory
