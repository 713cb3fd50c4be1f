// SPDX-License-Identifier: LGPL-2.1-or-later
// The favourites in the player's world, their list wired and their menu recorded.
#pragma once

#include "platform/memory/menus.h"
#include "player/favourites.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {

struct FavouritesWorld : testing::Test {
  PlayerWorld w;
  platform::memory::Pointer pointer;
  player::Favourites favourites{
      {w.folder, w.settings, w.session, w.form, w.playback, w.station_files, w.dialogs, w.loop, pointer}};
  platform::memory::ListBox& list = *w.window.list(L"Control_List");

  FavouritesWorld() {
    w.window.set_visible(true);
    w.player.set_auto_start(false);
    w.session.skin.list = true;
    list.resize(5820, 1800);
    favourites.directory.bind(w.directory);
    list.on_click = [this] { favourites.Control_List_Click(); };
    list.on_double_click = [this] { favourites.Control_List_DblClick(); };
    list.on_mouse_down = [this](const platform::MouseEvent& event) {
      if (favourites.Control_List_MouseDown(event))
        w.journal.push_back(L"menu of " + favourites.selected_id());
    };
  }
  void show(const std::string& favourites_file) {
    w.put(L"list.tt", favourites_file);
    favourites.ZobrazOblibene();
  }
  [[nodiscard]] std::vector<std::wstring> items() const {
    std::vector<std::wstring> all;
    for (std::size_t i = 0; i < list.count(); ++i)
      all.push_back(list.item(i));
    return all;
  }
  // As an item must be: the shown text padded to 93 columns, then the data.
  static std::wstring item(std::wstring shown, const std::wstring& data) {
    shown.resize(93, L' ');
    return shown + data;
  }
  static std::string file_of(const std::string& id, const std::string& name) {
    return PlayerWorld::record(id, name, "u1", "u2");
  }
  void right_click() { ASSERT_TRUE(list.user_mouse_down({platform::MouseButton::right, 30, 30})); }
};

} // namespace lumotune::test
