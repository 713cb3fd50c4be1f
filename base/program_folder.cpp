// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/program_folder.h"

namespace lumotune::base {

std::wstring ProgramFolder::path(std::wstring_view name) const {
  return path().append(L"\\").append(name);
}

std::wstring ProgramFolder::data(std::wstring_view name) const {
  return path(L"Orb_Data\\").append(name);
}

// The skin menu spells this folder with a capital letter; file names are case-insensitive.
std::wstring ProgramFolder::skins(std::wstring_view name) const {
  return data(L"skins\\").append(name);
}

std::optional<std::wstring> ProgramFolder::read_text(const std::wstring& whole_path) const {
  const auto bytes = files_.read(whole_path);
  return bytes ? std::optional(codec_.decode(*bytes)) : std::nullopt;
}

} // namespace lumotune::base
