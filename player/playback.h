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

#include <optional>
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

  // Another quality of the station that plays, in place of the chosen one: nothing is saved or reported anew. The next
  // start or press returns to the chosen one.
  void play_backup(const std::wstring& address, const std::wstring& bit_rate);
  void return_to_chosen(); // now; does nothing unless a backup plays
  [[nodiscard]] bool plays_backup() const { return chosen_address_.has_value(); }
  [[nodiscard]] unsigned starts() const { return starts_; } // how often `Play` was called
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
  void take_back_backup();

  Uses uses_;
  unsigned starts_ = 0;
  std::optional<std::wstring> chosen_address_; // of the quality that a backup stands in for
};

} // namespace lumotune::player
