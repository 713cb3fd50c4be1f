// SPDX-License-Identifier: LGPL-2.1-or-later
// A list in columns of the real backend, under the user's mouse and keyboard.
#pragma once

#include "tests/contract/win32_framed.h"

#include <set>
#include <string>
#include <vector>

namespace lumotune::contract {

struct ManyRows final : platform::RowModel {
  std::size_t size = 300;
  mutable std::set<std::size_t> asked;
  [[nodiscard]] std::size_t count() const override { return size; }
  [[nodiscard]] std::wstring text(std::size_t row, std::size_t column) const override {
    asked.insert(row);
    if (column == 1)
      return L"Česko";
    return row == size ? L"Žluťoučký kůň & přátelé" : L"Stejné jméno";
  }
  [[nodiscard]] bool bold(std::size_t row) const override { return row == 5; }
};

struct Win32ListViewTest : Win32Framed {
  ManyRows rows;
  platform::ListView& list = window->make_list_view(L"ListView1");
  std::wstring events; // in their order, each with what was selected then

  Win32ListViewTest() {
    place(list, 150, 150, 4500, 3000);
    list.add_column(L"Name", L"Název rádia", 2000);
    list.add_column(L"zeme", L"Země", 800);
    list.set_rows(&rows);
    list.on_mouse_down = [this](const platform::MouseEvent& event) {
      note(event.button == platform::MouseButton::right ? L"right" : L"left");
    };
    list.on_click = [this] { note(L"click"); };
    list.on_double_click = [this] { note(L"double"); };
    list.on_key_up = [this] { note(L"up"); };
    list.on_key_press = [this](wchar_t c) { note(L"key" + std::to_wstring(static_cast<int>(c))); };
    show();
    SetFocus(handle(list));
  }
  ~Win32ListViewTest() override { window.reset(); } // before its rows
  void note(const std::wstring& what) { events += what + std::to_wstring(list.selected()) + L" "; }
  [[nodiscard]] RECT area(std::size_t row) const {
    RECT found{};
    found.left = LVIR_BOUNDS;
    SendMessageW(handle(list), LVM_GETITEMRECT, row - 1, reinterpret_cast<LPARAM>(&found));
    return found;
  }
  [[nodiscard]] POINT middle(std::size_t row) const {
    const RECT found = area(row);
    return {found.left + 40, (found.top + found.bottom) / 2};
  }
};

} // namespace lumotune::contract
