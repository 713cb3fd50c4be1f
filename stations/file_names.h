// SPDX-License-Identifier: LGPL-2.1-or-later
// The station files in the program folder. All are text in the system's code page.
#pragma once

namespace lumotune::stations {

inline constexpr const wchar_t* stations_file = L"radios.tt";               // one station record per line
inline constexpr const wchar_t* categories_file = L"kategories.tt";         // one category per line
inline constexpr const wchar_t* favourites_file = L"list.tt";               // one favourite per line
inline constexpr const wchar_t* download_file = L"seznam.tt";               // the list as the server sends it
inline constexpr const wchar_t* probe_file = L"orb_test_size.tt";           // the server's reply: the list's size
inline constexpr const wchar_t* new_categories_file = L"kategories_new.tt"; // another program's signal; never read

} // namespace lumotune::stations
