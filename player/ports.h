// SPDX-License-Identifier: LGPL-2.1-or-later
// What the player needs from the rooms above it. Every call is synchronous, on the user-interface thread: the order of
// steps matters. A call runs events only where it says so.
#pragma once

#include "base/slot.h"

#include <string>

namespace lumotune::player {

// The look of the main window.
struct SkinPort {
  virtual ~SkinPort() = default;
  virtual void LoadSkin(const std::wstring& name) = 0; // lets events run between lines
  virtual void ZobrazCoMas(const std::wstring& play_button_text) = 0;
  virtual void SkinVolume(int percent) = 0;
  virtual void load_play_picture() = 0; // "\play.gif" of the current skin into Control_Play
};
using SkinSlot = base::Slot<SkinPort>;

// The window's frame: topmost layer, hiding and showing, the notification-area icon.
struct ChromePort {
  virtual ~ChromePort() = default;
  virtual void OnTopYES() = 0;
  virtual void OnTopNO() = 0;
  virtual void FormMax() = 0;
  virtual void Tray() = 0;
  virtual void remove_tray() = 0;
};
using ChromeSlot = base::Slot<ChromePort>;

// The list of favourite stations.
struct FavouritesPort {
  virtual ~FavouritesPort() = default;
  virtual void ZobrazOblibene() = 0;
  virtual void show_in_place() = 0; // shows the list or the hint while nothing plays; reads nothing again
};
using FavouritesSlot = base::Slot<FavouritesPort>;

// The station directory window.
struct DirectoryPort {
  virtual ~DirectoryPort() = default;
  virtual void Naladit() = 0;
};
using DirectorySlot = base::Slot<DirectoryPort>;

} // namespace lumotune::player
