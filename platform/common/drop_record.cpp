// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/drop_record.h"

#include <algorithm>
#include <cstdint>

namespace lumotune::platform {
namespace {

constexpr std::size_t header_bytes = 20; // offset of the list, a point, two flags
constexpr std::size_t wide_at = 16;

std::uint32_t number_at(std::string_view bytes, std::size_t at, std::size_t length) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < length; ++i)
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return number;
}

// One UTF-16 text from the start of the bytes to its zero, which is taken off as well. Nothing without a zero within
// `most` characters.
std::optional<std::wstring> take_text(std::string_view& bytes, std::size_t most) {
  std::wstring text;
  while (bytes.size() >= 2) {
    const std::uint32_t unit = number_at(bytes, 0, 2);
    bytes.remove_prefix(2);
    if (unit == 0)
      return text;
    if (text.size() == most)
      return std::nullopt;
    text += static_cast<wchar_t>(unit);
  }
  return std::nullopt;
}

} // namespace

std::optional<std::vector<std::wstring>> paths_of_drop_record(std::string_view bytes) {
  if (bytes.size() < header_bytes)
    return std::nullopt;
  const std::uint32_t list = number_at(bytes, 0, 4);
  if (number_at(bytes, wide_at, 4) == 0 || list < header_bytes || list > bytes.size())
    return std::nullopt;
  bytes.remove_prefix(list);
  std::vector<std::wstring> paths;
  for (;;) {
    auto path = take_text(bytes, Drop::max_path);
    if (!path.has_value())
      return std::nullopt;
    if (path->empty())
      return paths.empty() ? std::nullopt : std::optional(std::move(paths));
    if (paths.size() == Drop::max_paths)
      return std::nullopt;
    paths.push_back(std::move(*path));
  }
}

std::optional<std::wstring> text_of_drop_record(std::string_view bytes) {
  std::string ended(bytes.substr(0, 2 * Drop::max_text + 2));
  ended.append(2 + ended.size() % 2, '\0');
  std::string_view rest = ended;
  auto text = take_text(rest, Drop::max_text);
  return text.has_value() && !text->empty() ? text : std::nullopt;
}

bool can_be_dropped(const Drop& drop) {
  if (drop.paths.empty())
    return !drop.text.empty() && drop.text.size() <= Drop::max_text;
  return drop.text.empty() && drop.paths.size() <= Drop::max_paths &&
         std::all_of(drop.paths.begin(), drop.paths.end(),
                     [](const std::wstring& path) { return !path.empty() && path.size() <= Drop::max_path; });
}

} // namespace lumotune::platform
