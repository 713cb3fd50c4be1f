// SPDX-License-Identifier: LGPL-2.1-or-later
// The station directory: creates its window on demand and drops it when it is closed.
#pragma once

#include "directory/list_radios.h"
#include "platform/event_loop.h"
#include "player/ports.h"

#include <memory>
#include <vector>

namespace lumotune::directory {

// User-interface thread.
class Directory final : public player::DirectoryPort {
public:
  explicit Directory(const DirectoryUses& uses);

  // Shows the window, creating and loading it if necessary, and selects the tuned station.
  void Naladit() override;

  [[nodiscard]] bool open() const { return ListRadios_ != nullptr; }

private:
  void forget();

  DirectoryUses uses_;
  AdvertState advert_state_;
  KeptView kept_view_;
  std::unique_ptr<ListRadios> ListRadios_;
  std::vector<std::unique_ptr<ListRadios>> closed_;
  std::unique_ptr<platform::TopLevelWork> destroy_closed_;
};

} // namespace lumotune::directory
