// SPDX-License-Identifier: LGPL-2.1-or-later
// The category tree and the station list of the directory window.
#pragma once

#include "base/session.h"
#include "directory/list_radios_form.h"
#include "directory/station_rows.h"
#include "platform/ansi_codec.h"
#include "player/ports.h"
#include "stations/station_table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lumotune::directory {

// User-interface thread. Selecting by program fires no click.
class StationList {
public:
  struct Uses {
    ListRadiosForm& form;
    stations::StationFiles& station_files;
    const platform::AnsiCodec& codec;
    base::Session& session;
    player::FavouritesPort& favourites;
  };
  explicit StationList(const Uses& uses);
  StationList(const StationList&) = delete;
  StationList& operator=(const StationList&) = delete;
  ~StationList();

  void make_columns();
  // What the empty list says while there are no stations at all.
  void set_no_stations_text(const std::wstring& text) { no_stations_text_ = text; }
  // The keys of the categories whose subcategories are shown; and those that the next NactiKategorie opens.
  [[nodiscard]] std::vector<std::wstring> open_categories() const;
  void set_open_categories(std::vector<std::wstring> keys) { open_categories_ = std::move(keys); }
  void NactiKategorie();             // fills the tree from kategories.tt; what was open is open again
  void NactiRadia(bool& OnlyMemory); // fills the table from radios.tt and, unless OnlyMemory, lists every station
  // NactiRadia with OnlyMemory false in pieces: `begin_listing`, `list_more` until it returns true, `end_listing`. The
  // window shows no rows before the end.
  void begin_listing();
  [[nodiscard]] bool list_more();
  void end_listing() { show_rows(); }
  void index_table() const; // so that the first look-up of a station need not
  void ZobrazKategoriiRadii(std::wstring& Kategorie);
  // A node was clicked or reached by a key: shows its stations.
  void choose_category();
  // New files are in place: reloads the table, the tree and the stations of the node clicked last (by default the
  // first). Restores the selection by station, not by row; nothing is selected if the station is gone.
  void reload();
  // Shows only the stations that match what was typed, or all again; the selection follows its station, also back.
  void filter(const std::wstring& typed);
  [[nodiscard]] bool filtered_away(const std::wstring& IDradia) const { return rows_.filtered_away(IDradia); }
  // The tree was refilled: re-enables the update and refreshes the main window's favourites.
  void CommandOK();
  // Selects the station if it is shown; otherwise keeps the selection.
  void select_station(const std::wstring& IDradia);

  void remember_row();
  [[nodiscard]] bool row_selected() const { return uses_.form.ListView1.selected() != 0; }
  [[nodiscard]] std::wstring selected_id() const;   // empty while nothing is selected
  [[nodiscard]] std::wstring selected_text() const; // the row's first column
  // The record of the selected station; nullopt without a row, or when the table no longer has it. A row without an
  // identifier stands for its own line. Valid until the next load.
  [[nodiscard]] std::optional<stations::StationRecord> selected_record() const;
  [[nodiscard]] const stations::StationTable& table() const { return table_; }

private:
  void show_rows();
  void select_row_of(const std::wstring& station);
  [[nodiscard]] std::wstring station_in_mind() const;
  void show_filter_count();
  void set_empty_text();
  void expand_categories();

  Uses uses_;
  stations::StationTable table_;
  StationRows rows_;
  std::size_t remembered_node_ = 0; // the node clicked last, 0 for none
  std::size_t remembered_row_ = 0;  // the row selected or found last, 0 for none
  std::wstring hidden_station_;     // was selected when the filter hid it
  std::wstring no_stations_text_;
  std::vector<std::wstring> open_categories_;
};

} // namespace lumotune::directory
