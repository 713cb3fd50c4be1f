// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/directory.h"

namespace lumotune::directory {

Directory::Directory(const DirectoryUses& uses) : uses_(uses) {}

void Directory::Naladit() {
  if (!ListRadios_) {
    const std::uint32_t begun = uses_.loop.tick_count_ms();
    ListRadios_ = std::make_unique<ListRadios>(uses_, advert_state_, kept_view_);
    ListRadios_->on_unload = [this] { forget(); };
    (void)ListRadios_->Form_Load(begun); // where it fails, the program ends
    return;
  }
  ListRadios_->show();
  // Bringing it to the front delivers messages sent by other programs: the user may have closed it by now.
  if (ListRadios_)
    ListRadios_->NajdiIndexRadia(uses_.settings.IDlastRadio);
}

// One of its own procedures may be on the stack, waiting: destroy it from the top of the loop.
void Directory::forget() {
  closed_.push_back(std::move(ListRadios_));
  destroy_closed_ = uses_.loop.post_top_level([this] { closed_.clear(); });
}

} // namespace lumotune::directory
