// SPDX-License-Identifier: LGPL-2.1-or-later
// The names of the community site in its server's texts and replies. Its address comes from the server file.
#pragma once

namespace lumotune::base {

inline constexpr const wchar_t* site_name = L"Orb";
inline constexpr const wchar_t* site_host = L"orb.cz";

} // namespace lumotune::base
