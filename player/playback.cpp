// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/playback.h"

#include <algorithm>
#include <utility>

namespace lumotune::player {

// A screen reader announces the picture button with the hidden button's caption.
void Playback::set_playing(bool playing) {
  uses_.session.playing = playing;
  const std::wstring caption = playing ? base::caption_stop : base::caption_play;
  uses_.form.PlayTL.set_text(caption);
  uses_.form.Control_Play.set_text(caption);
  uses_.form.Control_Play.set_tooltip(caption);
}

void Playback::prepare(std::wstring URL, platform::AddressOrigin origin) {
  if (URL.empty()) {
    URL = uses_.session.OverrideURL;
    origin = platform::AddressOrigin::station; // it came with "remoteplay", whoever plays it
  }
  uses_.session.OverrideURL.clear();
  // The chosen quality set again while a backup plays in its place has no effect, as with the address that plays.
  if (origin != platform::AddressOrigin::station || chosen_address_ != URL) {
    chosen_address_.reset();
    uses_.session.backup_quality.clear();
    uses_.player.set_url(URL, origin);
  }
  uses_.form.PlayTL.set_enabled(true);
  uses_.form.Control_Play.set_enabled(true);
  uses_.media_keys.can_be_pressed();
  if (!uses_.player.playing())
    skin->load_play_picture();
}

void Playback::PripravHrani(std::wstring URL, platform::AddressOrigin origin) {
  prepare(std::move(URL), origin);
  if (stopped() || uses_.player.playing())
    return;
  set_playing(false);
  skin->ZobrazCoMas(uses_.form.PlayTL.text());
  favourites->show_in_place();
}

void Playback::Play() {
  if (uses_.loop.ending())
    return;
  ++starts_;
  take_back_backup();
  uses_.player.play();
  set_playing(true);
  uses_.session.panel = base::Panel::station;
  skin->ZobrazCoMas(uses_.form.PlayTL.text());
  uses_.session.station_name = uses_.stations.RadioInfo(uses_.settings.IDlastRadio, L"name");
  uses_.client_link.enable_Timer1();
}

// The player's address becomes the chosen quality's; while it plays, that ends it.
void Playback::take_back_backup() {
  uses_.session.backup_quality.clear();
  if (const auto chosen = std::exchange(chosen_address_, std::nullopt))
    uses_.player.set_url(*chosen, platform::AddressOrigin::station);
}

void Playback::play_backup(const std::wstring& address, const std::wstring& bit_rate) {
  if (stopped() || uses_.loop.ending())
    return;
  chosen_address_ = chosen_address_.value_or(uses_.player.url());
  uses_.session.backup_quality = bit_rate;
  uses_.player.set_url(address, platform::AddressOrigin::station);
  uses_.player.play();
}

void Playback::return_to_chosen() {
  if (stopped() || !plays_backup() || uses_.loop.ending())
    return;
  take_back_backup();
  uses_.player.play();
}

void Playback::PlayStop() {
  uses_.player.stop();
  set_playing(false);
  take_back_backup();
  skin->ZobrazCoMas(uses_.form.PlayTL.text());
  favourites->ZobrazOblibene();
}

void Playback::PlayAll(const std::wstring& URL, platform::AddressOrigin origin) {
  prepare(URL, origin);
  Play();
}

std::wstring Playback::tuned_address() {
  const auto& settings = uses_.settings;
  return uses_.stations.RadioInfo(settings.IDlastRadio,
                                  L"u" + (settings.KvalitaLT.empty() ? L"1" : settings.KvalitaLT));
}

void Playback::AutoStart(const std::wstring& IDlastRadio, const std::wstring& KvalitaLT) {
  // Copies first: the arguments may alias the settings written here.
  std::wstring quality = KvalitaLT.empty() ? L"1" : KvalitaLT;
  uses_.settings.IDlastRadio = std::wstring(IDlastRadio);
  uses_.settings.KvalitaLT = std::move(quality);
  PlayAll(tuned_address());
}

void Playback::VolumeSet(int VolValue) {
  const int percent = std::clamp(VolValue, 0, 100);
  uses_.player.set_volume(percent);
  uses_.settings.LTvolume = std::to_wstring(percent);
  skin->SkinVolume(percent);
}

void Playback::PlayTL_Click() {
  if (stopped())
    Play();
  else
    PlayStop();
}

} // namespace lumotune::player
