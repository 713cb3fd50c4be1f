// SPDX-License-Identifier: LGPL-2.1-or-later
// The details of the selected station, the qualities in which it can be heard, and tuning it.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "directory/advert.h"
#include "directory/list_radios_form.h"
#include "directory/station_list.h"
#include "platform/dialogs.h"
#include "platform/shell.h"
#include "player/playback.h"
#include "stations/station_lookup.h"

#include <array>
#include <cstddef>
#include <string>

namespace lumotune::directory {

inline constexpr std::size_t quality_count = 5;

// The station that MenuRadia found last.
struct SelectedStation {
  std::wstring id;
  std::wstring name;
  std::wstring web; // its web address
  // Empty for a quality the station lacks. Playing looks the address up again.
  std::array<std::wstring, quality_count> stream_addresses;
};

// The entries Kvalita1..5 and Kvalita1play..5play, as the last MenuRadia left them.
struct QualityEntry {
  std::wstring caption;
  bool visible = true;
};

// User-interface thread.
class Details {
public:
  struct Uses {
    ListRadiosForm& form;
    StationList& list;
    base::LumotuneForm& main_form;
    base::Settings& settings;
    stations::StationLookup& stations; // of the main window
    player::Playback& playback;
    platform::Shell& shell;
    const base::ProgramFolder& folder;
    platform::Dialogs& dialogs;
    Advert& advert;
  };
  explicit Details(const Uses& uses);

  void MenuRadia();
  void NactiInfoRadio(); // Label2, Label3, Label4, Text1; they stay where the station is not found
  // Plays the selected station in a quality "1".."5"; a television station goes to its own player.
  // Does nothing without a selected row; a row without an identifier cannot be tuned, and the status line says so.
  void NaladitRadio(const std::wstring& Kvalita);
  void KvalitaInfo_Click();

  // What a click on a row shows: the quality menu and its label, not for television.
  void show_quality_choice();
  void show_fields();
  void hide_fields(); // and Label5
  // The station was selected by the program, not by a click: everything is shown.
  void show_all();

  [[nodiscard]] const SelectedStation& selected() const { return selected_; }
  [[nodiscard]] const std::array<QualityEntry, quality_count>& qualities() const { return qualities_; }
  [[nodiscard]] bool DostupnaKvalita_visible() const { return DostupnaKvalita_visible_; }

  // Hover looks of the link labels.
  void hover(platform::Label& label);
  void ZpetMouseMove();

private:
  [[nodiscard]] bool is_television(const std::wstring& id);

  Uses uses_;
  SelectedStation selected_;
  std::array<QualityEntry, quality_count> qualities_;
  bool DostupnaKvalita_visible_ = true;
};

} // namespace lumotune::directory
