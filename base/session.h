// SPDX-License-Identifier: LGPL-2.1-or-later
// The program-wide values: two plain structs, owned by the program, known to the rooms by reference. Nobody keeps
// copies.
#pragma once

#include <string>

namespace lumotune::base {

// What the settings files hold. Flags and numbers stay the texts that the files give.
struct Settings {
  std::wstring idh; // account identity; written by LoadOptionsWorkIt, the play report and the directory
  std::wstring h;   // account check value; written by the same; never logged; shown only where the server asks for it
  std::wstring nickname;       // written by LoadOptionsWorkIt
  std::wstring LTTop;          // "1" on top; written by LoadOptionsWorkIt, OnTopYES, OnTopNO
  std::wstring IDlastRadio;    // tuned station; written by LoadOptionsWorkIt, client commands, AutoStart, favourites
  std::wstring KvalitaLT;      // its quality "1".."5"; written by the same
  std::wstring LTautoStart;    // "1" plays at start; written by LoadOptionsWorkIt and the settings menu
  std::wstring LTvolume;       // 0..100; written by LoadOptionsWorkIt and VolumeSet
  std::wstring LTskin;         // current skin; written by LoadOptionsWorkIt and LoadSkin
  std::wstring saved_skin;     // what the file keeps of it; written by LoadOptionsWorkIt and LoadSkin
  std::wstring LTpleft;        // left edge in twips; written by LoadOptionsWorkIt and SaveOptions
  std::wstring LTptop;         // top edge in twips; written by the same
  std::wstring client_link;    // "off" or anything else; written by LoadOptionsWorkIt and the play report
  std::wstring server_address; // community server; written by LoadOptionsServer
};

// What the window keeps of the current skin's lines, its words read; written by LoadSkin alone.
struct KeptSkinFields {
  enum class LogoSeen { while_playing, always, while_stopped };

  bool list = false; // Control_List is shown at all
  bool list_hidden_while_playing = false;
  bool display = false; // LTDisplay is shown at all; while something plays it always is
  bool display_while_stopped = false;
  bool display_behind_empty_list = false;
  bool logo = false; // Orbwww is shown at all
  LogoSeen logo_seen = LogoSeen::while_playing;
  bool status_has_first_layout = false; // InfoStatus stands elsewhere until something is heard
  int status_top_1 = 0;                 // twips, as all that follow
  int status_top_2 = 0;
  int status_height_1 = 0;
  int status_height_2 = 0;
};

// What stands in the middle of the main window.
enum class Panel { as_designed, station, favourites, hint };

// What lasts as long as the program runs.
struct Session {
  std::wstring OverrideURL;  // one-shot address; written by "remoteplay", cleared by PripravHrani
  std::wstring OverrideName; // name for an address of the client's; written by "remoteplay"
  std::wstring station_name; // field "name" of the station; written by Play and the console
  std::wstring shown_name;   // written by the status display
  std::wstring time_text;    // elapsed time, empty while nothing is heard; written by the status display
  std::wstring title_text;   // for the tray tip; written by the status display
  std::wstring window_shown; // "1" shown, "0" hidden, empty before either; written by FormMax, FormMin, OrbMinMax
  std::wstring favourite_line = L"lt:/"; // line of the favourite clicked last; written by Control_List_Click
  std::wstring refresh_favourites;       // "1" while CommandOK has them shown anew; nothing of ours reads it
  bool playing = false;                  // whether sound is wanted; written by Playback
  Panel panel = Panel::as_designed;      // written by Play and by the favourites while nothing plays
  bool ClientStartedByUs = false;        // written by Form_Load
  KeptSkinFields skin;
};

} // namespace lumotune::base
