// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/directory.h"

namespace lumotune::directory {

Directory::Directory(const DirectoryUses& uses) : uses_(uses) {}

void Directory::Naladit() {
  if (!ListRadios_) {
    ListRadios_ = std::make_unique<ListRadios>(uses_, advert_state_);
    ListRadios_->on_unload = [this] { forget(); };
    if (!ListRadios_->Form_Load())
      return;
    // Loading runs events: the user may have closed the window by now.
    if (!ListRadios_)
      return;
    ListRadios_->watch_for_categories();
  }
  ListRadios_->show();
  // So does bringing it to the front, which delivers messages sent by other programs.
  if (!ListRadios_)
    return;
  ListRadios_->NajdiIndexRadia(uses_.settings.IDlastRadio);
}

// One of its own procedures may be on the stack, waiting: destroy it from the top of the loop.
void Directory::forget() {
  closed_.push_back(std::move(ListRadios_));
  destroy_closed_ = uses_.loop.post_top_level([this] { closed_.clear(); });
}

} // namespace lumotune::directory
