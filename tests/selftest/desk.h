// SPDX-License-Identifier: LGPL-2.1-or-later
// The program under test as a user has it before him: seen by the probe, which lies beside this program, moved by mouse
// and keys.
#pragma once

#include "demo/start/sandbox.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::selftest {

struct Control {
  std::string text;
  bool visible = false;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// Waits up to half a minute for a fact.
[[nodiscard]] bool until(const std::function<bool()>& fact);

// The lines that the probe prints, each parted at its tabs; UTF-8.
[[nodiscard]] std::vector<std::vector<std::string>> probe(const std::wstring& words);

// A control of the main window, or of another one, by its name.
[[nodiscard]] std::optional<Control> control(const std::string& name, const std::wstring& window = L"Lumotune");
[[nodiscard]] std::string text(const std::string& name, const std::wstring& window = L"Lumotune"); // empty without it

void click(int x, int y, int times = 1);
[[nodiscard]] bool click(const std::string& name, const std::wstring& window = L"Lumotune"); // its middle
void press(WORD key);

// From the menu that was just opened, by the keyboard: captions of submenus, then that of the item.
[[nodiscard]] bool choose(const std::vector<std::string>& captions);

} // namespace lumotune::selftest
