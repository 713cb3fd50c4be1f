// SPDX-License-Identifier: LGPL-2.1-or-later
// Reads the windows of the running program from outside, for the desktop tests.
//   probe controls [WINDOW]  a line for each control: name, class, visible, enabled, focus, left, top, width, height,
//                         text, topmost
//   probe items           the items of the favourites list, a line each;   probe item N  the place of one, from 0
//   probe rows            the rows of the directory's list: left, top, text, further columns
//   probe nodes           the nodes of the directory's tree: left, top, depth, selected, text
//   probe selected        number of the selected row of the list, from 1
//   probe boxes           every message box: caption and texts;   probe press CAPTION  presses a button of a box
//   probe menus           the places of the menus that are open: left, top, width, height
//   probe menuitems       the items of the open menus: depth of the menu, letters (s a separator, g greyed, c checked,
//                         h highlighted, m a submenu), left, top, caption as the user reads it
//   probe tips            the texts of the tool tips that are shown
//   probe cancel          closes the open menus
//   probe command N       sends the main window the command of a keyboard's or remote control's special key
//   probe state WINDOW X   by its system menu: x maximizes, n minimizes, r restores it
//   probe close [WINDOW]   asks the main window to close, as the system does
//   probe endsession      tells the main window that the session ends
//   probe crash           starts a thread in the program whose code is nowhere
//   probe end NAME        asks the main window to close and, right behind that, clicks its control of that name
//   probe early TEXT      sends TEXT to a window captioned "Lumotune" the moment that there is one; waits half a minute
//   probe flood FILE      floods the main window with commands until FILE exists, for a minute; tells how many a second
// Everything is UTF-8 and separated by tabs; tabs and line ends inside texts become blanks.
#include "aware.h"
#include "probe_commands.h"
#include "probe_windows.h"

#include <cwchar>
#include <string_view>

namespace {

int run(std::wstring_view what) {
  if (what == L"controls")
    return probe::print_controls();
  if (what == L"rows")
    return probe::print_rows();
  if (what == L"nodes")
    return probe::print_nodes();
  if (what == L"selected")
    return probe::print_selected();
  if (what == L"menus")
    return probe::print_menus();
  if (what == L"menuitems")
    return probe::print_menu_items();
  if (what == L"tips")
    return probe::print_tips();
  if (what == L"items")
    return probe::print_items();
  if (what == L"boxes")
    return probe::print_boxes();
  if (what == L"cancel")
    return probe::cancel_menus();
  if (what == L"close")
    return probe::close();
  if (what == L"endsession")
    return probe::end_session();
  if (what == L"crash")
    return probe::crash_program();
  return 2;
}

int act_on(std::wstring_view what, const wchar_t* which) {
  if (what == L"command")
    return probe::send_app_command(_wtoi(which));
  if (what == L"item")
    return probe::print_item_place(_wtoi(which));
  if (what == L"press")
    return probe::press(which);
  if (what == L"end")
    return probe::end_and_click(which);
  if (what == L"early")
    return probe::send_early(which);
  if (what == L"flood")
    return probe::flood(which);
  if (what != L"controls" && what != L"close")
    return 2;
  probe::window_name = which;
  return run(what);
}

} // namespace

int wmain(int count, wchar_t** words) {
  probe::become_aware_of_resolutions();
  const std::wstring_view what = count > 1 ? words[1] : L"";
  if (what == L"state" && count > 3)
    return probe::change_state(words[2], words[3][0]);
  return count > 2 ? act_on(what, words[2]) : run(what);
}
