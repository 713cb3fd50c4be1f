// SPDX-License-Identifier: LGPL-2.1-or-later
// A media player under test: the stream engine without a sound device, or its twin in memory.
#pragma once

#include "tests/contract/fixture.h"

#ifdef LUMOTUNE_CONTRACT_ENGINE
#include "platform/media/player.h"
#else
#include "platform/memory/media_player.h"
#endif

#include <memory>

namespace lumotune::contract {

#ifdef LUMOTUNE_CONTRACT_ENGINE

class NoDevice final : public media::AudioOutput {
public:
  [[nodiscard]] int preferred_rate() override { return 0; }
  [[nodiscard]] bool open(media::Mixer& /*mixer*/, int /*latency_ms*/) override { return false; }
  [[nodiscard]] bool start() override { return false; }
  void stop() override {}
  void set_volume(float /*volume*/) override {}
  [[nodiscard]] bool failed() const override { return false; }
};

inline std::unique_ptr<platform::MediaPlayer> make_player(platform::EventLoop& loop) {
  media::PlayerOptions options;
  options.make_output = [] { return std::make_unique<NoDevice>(); };
  return media::make_media_player(loop, options);
}

#else

inline std::unique_ptr<platform::MediaPlayer> make_player(platform::EventLoop& /*loop*/) {
  return std::make_unique<platform::memory::MediaPlayer>();
}

#endif

} // namespace lumotune::contract
