// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes sent to the main window: always answered, always bounded, and the next real command still works.
#include "tests/support/player_world.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lumotune::test::PlayerWorld world;
  world.commands.Hook(true);
  world.player.set_auto_start(false);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  if (world.command(bytes) != -1 || world.settings.IDlastRadio.size() > 100 || world.settings.KvalitaLT.size() > 100 ||
      (!world.player.calls.empty() && world.player.origin() == lumotune::platform::AddressOrigin::listener))
    std::abort();
  world.journal.clear();
  if (world.command("fmax") != -1 || !world.did(L"FormMax"))
    std::abort();
  return 0;
}
