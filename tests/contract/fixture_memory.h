// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"

#include <string>

namespace lumotune::contract {

struct Backend {
  platform::memory::MemoryEventLoop loop;
  platform::memory::MemoryFiles files;
  platform::memory::MemoryCodec codec;
  platform::memory::MemoryWindow window{files};
  platform::memory::MemoryFramedWindowMaker framed_windows{files};
  platform::memory::MemoryMessages messages;

  std::wstring folder = L"C:\\pokus";

  // Lets so many milliseconds go by, with their events.
  void pass(std::uint32_t ms) { loop.advance(ms); }
  // Another program sends the main window copy-data; its answer.
  long deliver(const std::string& bytes, std::uint32_t kind) { return messages.deliver(bytes, kind); }
};

} // namespace lumotune::contract
