// SPDX-License-Identifier: LGPL-2.1-or-later
// The playback engine of the main window: hands addresses to the media player, starts and stops it, sets the volume and
// keeps the display in step.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"
#include "platform/event_loop.h"
#include "platform/media_player.h"
#include "player/client_link.h"
#include "player/media_key_rule.h"
#include "player/ports.h"
#include "stations/station_lookup.h"

#include <string>

namespace lumotune::player {

// User-interface thread. Nothing waits for the network; what the player cannot do it says in its status.
class Playback {
public:
  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    platform::MediaPlayer& player; // WindowsMediaPlayer1
    stations::StationLookup& stations;
    const platform::EventLoop& loop;
    ClientLink& client_link;
    MediaKeyRule& media_keys;
  };
  explicit Playback(const Uses& uses) : uses_(uses) {}

  SkinSlot skin;
  FavouritesSlot favourites;

  // Prepares an address, or the pending one-shot address when it is empty; that one is used up in every case. Who does
  // not say where the address comes from gets what a station may reach: the network.
  // Another address than the one that plays ends what plays: the window then shows the stopped state, its list as it
  // is.
  void PripravHrani(std::wstring URL, platform::AddressOrigin origin = platform::AddressOrigin::station);
  void Play(); // not once the program ends
  void PlayStop();
  // Prepares and plays.
  void PlayAll(const std::wstring& URL, platform::AddressOrigin origin = platform::AddressOrigin::station);

  // Plays a station of the database; an empty quality becomes "1". The station becomes the tuned one.
  void AutoStart(const std::wstring& IDlastRadio, const std::wstring& KvalitaLT);
  // Its address as it stands in the database, without playing.
  [[nodiscard]] std::wstring tuned_address();

  void VolumeSet(int VolValue); // percent, clamped to 0..100; kept as the saved volume

  [[nodiscard]] bool stopped() const { return !uses_.session.playing; }

  // Events of the window's controls.
  void PlayTL_Click();
  void Control_Play_Click() { uses_.form.PlayTL.press(); }

private:
  void prepare(std::wstring URL, platform::AddressOrigin origin);
  void set_playing(bool playing);

  Uses uses_;
};

} // namespace lumotune::player
