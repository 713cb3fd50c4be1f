// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/disk_room.h"

namespace lumotune::base {

std::wstring full_disk(const ProgramFolder& folder, std::uint64_t bytes) {
  const std::wstring path = folder.path();
  if (folder.files().free_bytes(path).value_or(bytes) >= bytes)
    return {};
  return path.size() > 1 && path[1] == L':' ? path.substr(0, 2) : path;
}

} // namespace lumotune::base
