// SPDX-License-Identifier: LGPL-2.1-or-later
// How the probe and the library that it has loaded into the program talk.
#pragma once

#include <windows.h>

#include <cstddef>

inline constexpr const wchar_t* menu_reader_library = L"menu_reader.dll";
inline constexpr const char* menu_reader_hook = "answer_menu_question";     // for sent messages
inline constexpr const wchar_t* menu_question = L"Lumotune.Probe.Menus";    // a registered message to the main window
inline constexpr const wchar_t* menu_answer_name = L"Lumotune.Probe.Menus"; // shared memory: wide text that ends in 0
inline constexpr std::size_t menu_answer_bytes = 256 * 1024;
