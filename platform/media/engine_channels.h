// SPDX-License-Identifier: LGPL-2.1-or-later
// What an engine's owner and its two threads share.
#pragma once

#include "platform/media/board.h"
#include "platform/media/device.h"
#include "platform/media/mailbox.h"
#include "platform/media/mixer.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace lumotune::media {

// Every member may be used from every thread, within the roles that its own header assigns. Held by the engine and its
// worker: the last one to leave destroys it.
struct EngineChannels {
  // Throws std::system_error when the device thread cannot be created.
  EngineChannels(std::shared_ptr<Board> its_board, OutputFactory make_output, int latency_ms)
      : board(std::move(its_board)),
        mixer(std::make_shared<Mixer>(highest_usual_rate * ring_seconds, static_cast<int>(highest_usual_rate))),
        device(mixer, std::move(make_output), latency_ms) {}

  // The ring is sized for the highest usual rate, so that the device may choose its own.
  static constexpr std::size_t highest_usual_rate = 48000;
  static constexpr std::size_t ring_seconds = 8;

  Mailbox mailbox;                    // wishes, from the user-interface thread to the worker
  const std::shared_ptr<Board> board; // reports, from the worker to the user-interface thread
  const std::shared_ptr<Mixer> mixer; // sound, from the worker to the device; the device thread holds it, too
  Device device;
};

} // namespace lumotune::media
