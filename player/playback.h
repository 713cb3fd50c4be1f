// SPDX-License-Identifier: LGPL-2.1-or-later
// The playback logic of the main window: hands addresses to the media player, starts and stops it, sets the volume and
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

// User-interface thread. Nothing waits for the network; errors appear in the player's status.
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

  // Prepares an address, or, when it is empty, the pending one-shot address, which is consumed in every case. By
  // default an address may reach only what a station may: the network.
  // An address other than the one that plays stops playback: the window then shows the stopped state, its list
  // unchanged.
  void PripravHrani(std::wstring URL, platform::AddressOrigin origin = platform::AddressOrigin::station);
  void Play(); // does nothing once the program is ending
  void PlayStop();
  // Prepares and plays.
  void PlayAll(const std::wstring& URL, platform::AddressOrigin origin = platform::AddressOrigin::station);

  // Plays a station of the database; an empty quality becomes "1". The station becomes the tuned one.
  void AutoStart(const std::wstring& IDlastRadio, const std::wstring& KvalitaLT);
  // The tuned station's address in the database; does not play it.
  [[nodiscard]] std::wstring tuned_address();

  void VolumeSet(int VolValue); // percent, clamped to 0..100; becomes the saved volume

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
