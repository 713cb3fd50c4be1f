// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/directory.h"

namespace lumotune::directory {

Directory::Directory(const DirectoryUses& uses) : uses_(uses) {}

void Directory::Naladit() {
  const bool fresh = !ListRadios_;
  if (fresh) {
    ListRadios_ = std::make_unique<ListRadios>(uses_, advert_state_);
    ListRadios_->on_unload = [this] { forget(); };
    if (!ListRadios_->Form_Load())
      return;
  }
  ListRadios* const shown = ListRadios_.get();
  shown->show();
  // Bringing it to the front delivers messages sent by other programs: it may be closed by now, or another one open.
  if (ListRadios_.get() != shown)
    return;
  if (fresh)
    shown->load();
  else
    shown->NajdiIndexRadia(uses_.settings.IDlastRadio);
}

// One of its own procedures may be on the stack, waiting: destroy it from the top of the loop.
void Directory::forget() {
  closed_.push_back(std::move(ListRadios_));
  destroy_closed_ = uses_.loop.post_top_level([this] { closed_.clear(); });
}

} // namespace lumotune::directory
