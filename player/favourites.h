// SPDX-License-Identifier: LGPL-2.1-or-later
// The list of favourite stations in the main window.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/user_input.h"
#include "player/playback.h"
#include "player/ports.h"
#include "stations/favourite_file.h"
#include "stations/station_files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::player {

// An entry that is not a station but the hint to tune one.
inline constexpr const wchar_t* tune_hint = L"Klikněte na naladit...";

// An item of Control_List is a single text that carries its data after the visible columns.
struct FavouriteItem {
  std::wstring id;      // columns 95-100
  std::wstring quality; // column 94, "1".."5"
  std::wstring address; // from column 101, may be empty
};
// Nothing for a text without an identifier.
[[nodiscard]] std::optional<FavouriteItem> read_favourite_item(std::wstring_view item);

// The items for a favourites file, in its order. A favourite with an unknown station or a quality outside 1..5 is
// skipped.
[[nodiscard]] std::vector<std::wstring>
favourite_items(std::string_view favourites, const stations::StationLines& stations, const platform::AnsiCodec& codec);

// User-interface thread.
class Favourites final : public FavouritesPort {
public:
  struct Uses {
    const base::ProgramFolder& folder;
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    Playback& playback;
    stations::StationFiles& station_files;
    platform::Dialogs& dialogs;
    platform::EventLoop& loop;
    platform::Pointer& pointer;
  };
  explicit Favourites(const Uses& uses);

  DirectorySlot directory;

  // Refills Control_List. While nothing plays and no address from the client is pending, also shows the list, or the
  // hint when there are no favourites.
  void ZobrazOblibene() override;
  void show_in_place() override;

  // Does nothing, silently, when the line is missing or the file cannot be changed.
  void DeleteFromOblibene(const std::wstring& RadioDelete);

  // The file part of adding a favourite; the caller shows the list and the message box.
  [[nodiscard]] stations::FavouriteAdded add(const std::wstring& line) { return file_.add(line); }

  // Events of the list. A press of the right button sends a left click and runs events until it arrives, half a second
  // at most; true when the menu of the entry under the pointer, selected by then, is to open.
  void Control_List_Click();
  void Control_List_DblClick();
  [[nodiscard]] bool Control_List_MouseDown(const platform::MouseEvent& event);

  // The station identifier of the selected entry; empty when none is selected.
  [[nodiscard]] std::wstring selected_id() const;

private:
  void click_row(const platform::MouseEvent& event);
  [[nodiscard]] std::wstring selected_text() const;

  Uses uses_;
  stations::FavouriteFile file_;
  bool clicking_ = false; // a simulated click is pending
  bool clicked_ = false;  // the simulated click has arrived
};

} // namespace lumotune::player
