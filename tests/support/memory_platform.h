// SPDX-License-Identifier: LGPL-2.1-or-later
// The system in memory, as every world of the tests needs it.
#pragma once

#include "base/program_folder.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"

namespace lumotune::test {

struct MemoryPlatform {
  platform::memory::MemoryEventLoop loop;
  platform::memory::MemoryFiles files;
  platform::memory::MemoryCodec codec;
  platform::memory::MemoryMachine machine;
  base::ProgramFolder folder{files, codec, machine};
  platform::memory::MemoryMessages messages;
  platform::memory::MemoryShell shell;
  platform::memory::MemoryDialogs dialogs{loop};
  platform::memory::MemoryTray tray;
  platform::memory::MemoryMediaPlayer player;

  MemoryPlatform() { dialogs.modal.lets_run(loop); }
};

} // namespace lumotune::test
