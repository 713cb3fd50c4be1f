// SPDX-License-Identifier: LGPL-2.1-or-later
// The skin room on the backend in memory.
#pragma once

#include "skin/chrome.h"
#include "skin/skin.h"
#include "skin/tray_icon.h"
#include "tests/support/player_world.h"

#include <string>
#include <vector>

namespace lumotune::test {

// A picture of that size: one black pixel, the others clear.
inline std::string gif(int width, int height) {
  const auto low = [](int n) { return static_cast<char>(n % 256); };
  const auto high = [](int n) { return static_cast<char>(n / 256); };
  return std::string("GIF89a") + low(width) + high(width) + low(height) + high(height) +
         std::string("\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;", 25);
}

struct SkinWorld : PlayerWorld {
  skin::Skin look{{settings, session, form, folder, loop, error_log}};
  skin::Chrome frame{{settings, session, form, folder}};
  skin::TrayIcon tray_icon{tray};

  SkinWorld() {
    for (const wchar_t* name : {L"form", L"ot", L"otn", L"min", L"end", L"play", L"stop", L"rec", L"show", L"menu",
                                L"sat", L"display", L"orb", L"vol0", L"vol1", L"vol2", L"vol3", L"vol4", L"vol5"})
      picture(L"Tmava", name, gif(20, 10));
  }
  void picture(const std::wstring& skin_name, const std::wstring& name, const std::string& bytes) {
    (void)files.replace(machine.folder + L"\\Orb_Data\\skins\\" + skin_name + L"\\" + name + L".gif", bytes);
  }
  void description(const std::wstring& skin_name, const std::string& text) {
    (void)files.replace(machine.folder + L"\\Orb_Data\\skins\\" + skin_name + L".skin", text);
  }
  [[nodiscard]] std::string log() const { return files.read(machine.folder + L"\\Orb_Data\\error.log").value_or(""); }
  [[nodiscard]] static std::wstring file_name(const std::wstring& path) {
    return path.substr(path.find_last_of(L'\\') + 1);
  }
};

} // namespace lumotune::test
