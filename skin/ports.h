// SPDX-License-Identifier: LGPL-2.1-or-later
// What the skin room asks of the rooms above it and of the menus. Synchronous, on the user-interface thread.
#pragma once

#include "base/slot.h"

#include <cstddef>
#include <string>

namespace lumotune::skin {

// The submenu of installed skins: the item array LT_Menu_Skins_SKIN, whose element 0 always exists.
struct SkinMenuPort {
  virtual ~SkinMenuPort() = default;
  virtual void unload_above_0() = 0;
  // Sets an element, loading it when its index is the next free one, and makes it visible.
  virtual void set_element(std::size_t index, const std::wstring& caption, bool checked) = 0;
};
struct NoSkinMenu final : SkinMenuPort {
  void unload_above_0() override {}
  void set_element(std::size_t /*index*/, const std::wstring& /*caption*/, bool /*checked*/) override {}
};
using SkinMenuSlot = base::Slot<SkinMenuPort, NoSkinMenu>;

// The tray's pop-up menu; events run while it is open.
struct TrayMenuPort {
  virtual ~TrayMenuPort() = default;
  virtual void show_volume_submenu() = 0; // LT_Volume becomes visible
  virtual void pop_up() = 0;              // LT_TrayMenu at the pointer
};
struct NoTrayMenu final : TrayMenuPort {
  void show_volume_submenu() override {}
  void pop_up() override {}
};
using TrayMenuSlot = base::Slot<TrayMenuPort, NoTrayMenu>;

// The end of the program.
struct ExitPort {
  virtual ~ExitPort() = default;
  virtual void Konec() = 0;
};
struct NoExit final : ExitPort {
  void Konec() override {}
};
using ExitSlot = base::Slot<ExitPort, NoExit>;

} // namespace lumotune::skin
