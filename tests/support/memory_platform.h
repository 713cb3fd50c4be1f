// SPDX-License-Identifier: LGPL-2.1-or-later
// The system in memory, as every world of the tests needs it.
#pragma once

#include "base/program_folder.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"
#include "platform/memory/worker.h"

namespace lumotune::test {

struct MemoryPlatform {
  platform::memory::EventLoop loop;
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  platform::memory::Messages messages;
  platform::memory::Shell shell;
  platform::memory::Dialogs dialogs{loop};
  platform::memory::Tray tray;
  platform::memory::MediaPlayer player;
  platform::memory::Worker worker{loop};

  MemoryPlatform() { dialogs.modal.lets_run(loop); }
};

} // namespace lumotune::test
