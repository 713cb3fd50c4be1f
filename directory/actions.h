// SPDX-License-Identifier: LGPL-2.1-or-later
// What a listener does with the selected station besides playing it, and the menus that offer it.
#pragma once

#include "base/menu_tree.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "companions/identity.h"
#include "companions/open_url.h"
#include "companions/send_command.h"
#include "directory/details.h"
#include "platform/event_loop.h"
#include "platform/popup_menus.h"
#include "player/favourites.h"

#include <cstddef>
#include <string>
#include <vector>

namespace lumotune::directory {

struct StationMenuTable;
using StationMenu = base::MenuTree<StationMenuTable>;

// User-interface thread. Events run while a menu or a box is open.
class Actions {
public:
  struct Uses {
    ListRadiosForm& form;
    StationList& list;
    Details& details;
    companions::Identity& identity;
    base::Settings& settings;
    player::Favourites& favourites;
    companions::CommandSender& sender;
    platform::PopupMenus& menus;
    const platform::EventLoop& loop;
    platform::Shell& shell;
    const base::ProgramFolder& folder;
    platform::Dialogs& dialogs;
    companions::WebPages& web;
  };
  explicit Actions(const Uses& uses) : uses_(uses) {}

  struct Choice {
    std::wstring caption; // of the item that the user chose
    std::wstring id;      // of the station that the menu was opened for
  };

  // Adds the selected station to the favourites, in a quality "1".."5". Without a row, or for one that is no station of
  // the table, nothing is written.
  void PridejRadioDoFAST(const std::wstring& Kvalita);

  // For the station that MenuRadia found last.
  void Diskuze_Click();
  void Potize_Click();
  void ShowUsers_Click();
  void WebRadia_Click(const std::wstring& address);
  void KvalitaInfo_Click() { uses_.details.KvalitaInfo_Click(); }
  // For the station that the menu was opened for: nothing, where another row is selected by now or the quality is gone.
  void play_quality(const Choice& choice, std::size_t quality); // 1..5
  void add_quality(const Choice& choice, std::size_t quality);
  // For the selected row.
  void Label10_Click(); // discussion
  void Label6_Click();  // trouble report
  void Label9_Click();  // listeners
  void Label4_Click();  // web page
  void Image3_Click();  // the site's login page

  void Label5_Click();        // opens the qualities to add
  void Label7_Click();        // opens the qualities to play
  void pop_up_station_menu(); // SkryteMenu
  // Enter or a double click on a row: the only quality is played at once, of several the listener chooses.
  void tune_row();

private:
  void prepare(StationMenu& menu) const;
  void offer_qualities(const platform::Control& anchor); // to play
  void offer(const StationMenu& menu, const std::vector<platform::MenuItem>& shown, const platform::Control& anchor);
  [[nodiscard]] bool still_offers(const std::wstring& id, std::size_t quality);
  void show_users(const std::wstring& id);

  Uses uses_;
};

} // namespace lumotune::directory
