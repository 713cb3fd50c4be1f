// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/directory.h"

namespace lumotune::directory {
namespace {

constexpr std::uint32_t bury_ms = 100;

} // namespace

Directory::Directory(const DirectoryUses& uses)
    : uses_(uses), undertaker_(uses.loop.make_timer(bury_ms, [this] { bury(); })) {}

void Directory::Naladit() {
  if (!ListRadios_) {
    ListRadios_ = std::make_unique<ListRadios>(uses_, advert_state_);
    ListRadios_->on_unload = [this] { forget(); };
    if (!ListRadios_->Form_Load())
      return;
    // Loading lets events run: the window may be closed again already.
    if (!ListRadios_)
      return;
    ListRadios_->watch_for_categories();
  }
  ListRadios_->show();
  // So does bringing it to the front, which takes in what other programs have sent.
  if (!ListRadios_)
    return;
  ListRadios_->NajdiIndexRadia(uses_.settings.IDlastRadio);
}

void Directory::forget() {
  closed_.push_back(std::move(ListRadios_));
  undertaker_->start();
}

// A wait inside one of the window's procedures may be what lets this run: then later.
void Directory::bury() {
  std::erase_if(closed_, [](const auto& window) { return !window->in_use(); });
  if (closed_.empty())
    undertaker_->stop();
}

} // namespace lumotune::directory
