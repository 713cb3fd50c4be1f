// SPDX-License-Identifier: LGPL-2.1-or-later
// The media player on FFmpeg and cubeb.
#pragma once

#include "platform/event_loop.h"
#include "platform/media/player_options.h"
#include "platform/media_player.h"

#include <memory>

namespace lumotune::media {

// User-interface thread, like every call of the player.
[[nodiscard]] std::unique_ptr<platform::MediaPlayer> make_media_player(platform::EventLoop& loop,
                                                                       PlayerOptions options);

} // namespace lumotune::media
