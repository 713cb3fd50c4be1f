// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/conversion.h"

#include "core/code_page_fold.h"
#include "core/line_walk.h"
#include "core/text.h"
#include "directory/file_names.h"

namespace lumotune::directory {
namespace {

constexpr std::string_view line_end = "\r\n";
constexpr std::size_t marker_length = 6; // "orb:k:" and its like

enum class Kind { nothing, category, advertisement, information, station };

Kind kind_of(std::string_view line) {
  if (line.empty() || (line.size() == 5 && core::starts_with_marker(line, "<end>")))
    return Kind::nothing;
  if (core::starts_with_marker(line, "orb:k:"))
    return Kind::category;
  if (core::starts_with_marker(line, "orb:r:"))
    return Kind::advertisement;
  return core::starts_with_marker(line, "orb:i:") ? Kind::information : Kind::station;
}

} // namespace

// Station lines that follow each other and end as they shall are copied at one go.
Converted convert(std::string_view list, const platform::AnsiCodec& codec, ConversionPort& port) {
  Converted result;
  result.stations.reserve(list.size() + line_end.size());
  std::size_t copied = 0; // up to here the list is dealt with
  const auto copy_up_to = [&](std::size_t end) { result.stations.append(list, copied, end - copied); };
  core::LineWalk walk(list);
  while (walk.next()) {
    const Kind kind = kind_of(walk.line());
    if (kind == Kind::station && list.substr(0, walk.after()).ends_with(line_end))
      continue;
    copy_up_to(walk.start());
    copied = walk.after();
    const std::string_view text = walk.line().substr(std::min(marker_length, walk.line().size()));
    if (kind == Kind::category)
      result.categories.append(text).append(line_end);
    else if (kind == Kind::advertisement)
      port.ZobrazReklamu(codec.decode(text));
    else if (kind == Kind::information)
      port.ZobrazInfoPanel(codec.decode(text));
    else if (kind == Kind::station)
      result.stations.append(walk.line()).append(line_end);
  }
  copy_up_to(list.size());
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
