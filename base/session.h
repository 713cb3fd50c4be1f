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

// Fields of the current skin's lines that the window keeps; written by LoadSkin alone.
struct KeptSkinFields {
  std::wstring list_show;     // field 1 of Control_List
  std::wstring list_mode;     // field 4
  std::wstring display_show;  // field 1 of LTDisplay
  std::wstring display_mode;  // field 4
  std::wstring display_value; // field 5: "showifnulllist" shows the display behind the empty list
  std::wstring logo_show;     // field 1 of Orbwww
  std::wstring logo_mode;     // field 4
  std::wstring status_mode;   // field 1 of InfoStatus
  int status_top_1 = 0;       // field 2, twips
  int status_top_2 = 0;       // field 3, twips
  int status_height_1 = 0;    // field 6, twips
  int status_height_2 = 0;    // field 7, twips
};

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
  bool ClientStartedByUs = false;        // written by Form_Load
  KeptSkinFields skin;
};

} // namespace lumotune::base
