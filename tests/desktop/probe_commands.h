// SPDX-License-Identifier: LGPL-2.1-or-later
// What the probe can be told to do; the command line of each stands in probe.cpp. Each answers the exit code: 0, or 1
// where what it looks for is not there.
#pragma once

#include <string>

namespace probe {

int print_controls();
int print_boxes();
int print_menus();
int print_tips();
int print_menu_items();

int print_items();
int print_item_place(int index);
int print_rows();
int print_nodes();
int print_selected();

int change_state(const wchar_t* window, wchar_t state);
int cancel_menus();
int press(const wchar_t* button);
int flood(const wchar_t* until);
int end_and_click(const wchar_t* name);
int send_early(const std::wstring& text);
int close();
int end_session();
int send_app_command(int number);
int crash_program();

} // namespace probe
