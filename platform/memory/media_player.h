// SPDX-License-Identifier: LGPL-2.1-or-later
// A media player without sound: records calls and reports the status that a test sets.
#pragma once

#include "platform/media_player.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

class MediaPlayer final : public platform::MediaPlayer {
public:
  void set_url(const std::wstring& url, AddressOrigin origin) override {
    calls.push_back(L"url " + url);
    if (playing_ && url == url_ && origin == origin_)
      return;
    url_ = url;
    origin_ = origin;
    playing_ = false;
    if (auto_start_)
      play();
  }
  [[nodiscard]] std::wstring url() const override { return url_; }
  [[nodiscard]] AddressOrigin origin() const { return origin_; }
  void set_auto_start(bool on) override {
    auto_start_ = on;
    calls.push_back(on ? L"auto start on" : L"auto start off");
  }
  void play() override {
    calls.emplace_back(L"play");
    playing_ = true;
  }
  void stop() override {
    calls.emplace_back(L"stop");
    playing_ = false;
  }
  [[nodiscard]] bool playing() const override { return playing_; }
  void set_volume(int percent) override {
    volume_ = std::clamp(percent, 0, 100);
    calls.push_back(L"volume " + std::to_wstring(percent));
  }
  [[nodiscard]] int volume() const override { return volume_; }
  void system_suspended() override { calls.emplace_back(L"suspended"); }
  void system_resumed() override { calls.emplace_back(L"resumed"); }
  [[nodiscard]] StreamStatus status() const override {
    StreamStatus initial;
    initial.phase = playing_ ? StreamPhase::connecting : StreamPhase::stopped;
    return reported.value_or(initial);
  }
  [[nodiscard]] std::uint64_t played_ms() const override { return played; }

  std::vector<std::wstring> calls;
  std::optional<StreamStatus> reported; // as reported by the stream; when unset, the status follows from play and stop
  std::uint64_t played = 0;

private:
  std::wstring url_;
  AddressOrigin origin_ = AddressOrigin::station;
  bool auto_start_ = true;
  bool playing_ = false;
  int volume_ = 100;
};

} // namespace lumotune::platform::memory
