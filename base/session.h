// SPDX-License-Identifier: LGPL-2.1-or-later
// The program-wide state: two plain structs, owned by the program and passed to the rooms by reference, never copied.
#pragma once

#include <cstdint>
#include <string>

namespace lumotune::base {

// The contents of the settings files. Flags and numbers stay text, as in the files.
struct Settings {
  std::wstring idh;      // account identity; written by LoadOptionsWorkIt, the play report and the directory
  std::wstring h;        // account check value; written by the same; never logged; shown only at the server's request
  std::wstring nickname; // written by LoadOptionsWorkIt
  std::wstring LTTop;    // "1" on top; written by LoadOptionsWorkIt, OnTopYES, OnTopNO
  std::wstring IDlastRadio;    // tuned station; written by LoadOptionsWorkIt, client commands, AutoStart, favourites
  std::wstring KvalitaLT;      // its quality "1".."5"; written by the same
  std::wstring LTautoStart;    // "1" plays at start; written by LoadOptionsWorkIt and the settings menu
  std::wstring LTvolume;       // 0..100; written by LoadOptionsWorkIt and VolumeSet
  std::wstring LTskin;         // current skin; written by LoadOptionsWorkIt and LoadSkin
  std::wstring saved_skin;     // the skin to be saved; written by LoadOptionsWorkIt and LoadSkin
  std::wstring LTpleft;        // left edge in twips; written by LoadOptionsWorkIt and SaveOptions
  std::wstring LTptop;         // top edge in twips; written by the same
  std::wstring client_link;    // "off" or anything else; written by LoadOptionsWorkIt and the play report
  std::wstring server_address; // community server; written by LoadOptionsServer
};

// The parsed fields of the current skin that the window needs later; written by LoadSkin alone.
struct KeptSkinFields {
  enum class LogoSeen { while_playing, always, while_stopped };

  bool list = false; // Control_List is shown at all
  bool list_hidden_while_playing = false;
  bool display = false; // LTDisplay is shown at all; always while something plays
  bool display_while_stopped = false;
  bool display_behind_empty_list = false;
  bool logo = false; // Orbwww is shown at all
  LogoSeen logo_seen = LogoSeen::while_playing;
  bool status_has_first_layout = false; // InfoStatus has another position until playback is audible
  int status_top_1 = 0;                 // twips, like the fields below
  int status_top_2 = 0;
  int status_height_1 = 0;
  int status_height_2 = 0;
  // The needle on the display; of no height where the skin has none. Twips of the window.
  struct NeedleScale {
    int top = 0;
    int height = 0;
    int from = 0; // where it stands before anything is loaded
    int to = 0;   // and while something plays
    std::uint32_t colour = 0;
  };
  NeedleScale needle;
};

// What the middle of the main window shows.
enum class Panel { as_designed, station, favourites, hint };

// State that lives as long as the program.
struct Session {
  std::wstring OverrideURL;    // one-shot address; written by "remoteplay", cleared by PripravHrani
  std::wstring OverrideName;   // name for an address from the client; written by "remoteplay"
  std::wstring station_name;   // field "name" of the station; written by Play and the console
  std::wstring backup_quality; // bit rate of what plays in place of the chosen quality, else empty; written by Playback
  std::wstring last_titles;    // what was heard last, each after a line end, newest first; written by TitleHistory
  std::wstring shown_name;     // written by the status display
  std::wstring time_text;      // elapsed time, empty until playback is audible; written by the status display
  std::wstring title_text;     // for the tray icon's tooltip; written by the status display
  std::wstring window_shown;   // "1" shown, "0" hidden, empty before either; written by FormMax, FormMin, OrbMinMax
  std::wstring favourite_line = L"lt:/"; // line of the last clicked favourite; written by Control_List_Click
  std::wstring refresh_favourites;       // "1" while CommandOK reloads the list; never read by the program itself
  bool playing = false;                  // whether sound is wanted; written by Playback
  Panel panel = Panel::as_designed;      // written by Play and by the favourites while nothing plays
  bool ClientStartedByUs = false;        // written by Form_Load
  KeptSkinFields skin;
};

} // namespace lumotune::base
