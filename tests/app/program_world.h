// SPDX-License-Identifier: LGPL-2.1-or-later
// The whole program, wired, on the backend in memory, with a small skin and one station.
#pragma once

#include "app/program.h"
#include "platform/memory/clipboard.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/menus.h"
#include "tests/support/memory_platform.h"
#include "tests/support/player_world.h"
#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {

struct ProgramWorld : testing::Test, MemoryPlatform {
  platform::memory::Window window{files};
  base::LumotuneForm form{window};
  platform::memory::PopupMenus popups{loop};
  platform::memory::InputBox input_box{loop};
  platform::memory::Pointer pointer;
  platform::memory::MediaKeys media_keys;
  platform::memory::Clipboard clipboard;
  platform::memory::Connection connection;
  platform::memory::FramedWindowMaker framed_windows{files};
  app::Program program{{loop, codec, files, shell, machine, window, messages, dialogs, tray, player, popups, input_box,
                        pointer, media_keys, clipboard, connection, framed_windows, worker},
                       form};

  ProgramWorld() {
    popups.modal.lets_run(loop);
    input_box.modal.lets_run(loop);
    put(L"Orb_Data\\options.ini", joined(option_lines()));
    put(L"Orb_Data\\skins\\Lumo.skin",
        "Author|nikdo\r\nLTform|6000|3000\r\nLineMenu_OnTop|show|1|2\r\nLineMenu_Min|show|1|2\r\n"
        "LineMenu_End|show|1|2\r\nControl_Play|show|1|2\r\nControl_Volume|show|1|2\r\nControl_Menu|show|1|2\r\n"
        "Control_List|show|1|2|hideplay|3|4|5|6\r\nLTDisplay|show|1|2|showstop|showifnulllist\r\n"
        "Orbwww|show|1|2|showstop\r\nInfoName|1|2|3|4|5\r\nInfoTime|1|2|3|4|5\r\nInfoNaladit|1|2|3|4|5\r\n"
        "InfoStatus|1|10|20|30|40|50|60|7\r\n");
    for (const wchar_t* name : {L"form", L"ot", L"otn", L"min", L"end", L"play", L"stop", L"menu", L"display", L"orb",
                                L"vol0", L"vol1", L"vol2", L"vol3", L"vol4", L"vol5"})
      put(std::wstring(L"Orb_Data\\skins\\Lumo\\") + name + L".gif", gif(20, 10));
    put(L"radios.tt", PlayerWorld::record("RADIO1", "Prvn\xed", "u1a", "u2a"));
    messages.add_window(L"Orb - Lumotune", platform::WindowRef{77});
  }
  void put(const std::wstring& name, const std::string& bytes) {
    (void)files.replace(machine.folder + L"\\" + name, bytes);
  }
  [[nodiscard]] std::string get(const std::wstring& name) const {
    return files.read(machine.folder + L"\\" + name).value_or("");
  }
  void tray_event(int message) {
    window.picture(L"TrayIcon")->system_mouse_move({platform::MouseButton::none, message * 15, 0});
  }
  [[nodiscard]] std::wstring picture(const wchar_t* control) const {
    return SkinWorld::file_name(window.picture(control)->picture());
  }
};

} // namespace lumotune::test
