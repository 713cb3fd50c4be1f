// SPDX-License-Identifier: LGPL-2.1-or-later
// A skin packed as a .zip that is dropped on the main window becomes one of the listener's skins.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "platform/dialogs.h"
#include "platform/drop.h"
#include "platform/event_loop.h"
#include "player/status_display.h"
#include "skin/skin_archive.h"

#include <string>

namespace lumotune::skin {

// User-interface thread.
class SkinInstaller {
public:
  struct Uses {
    base::LumotuneForm& form;
    const base::ProgramFolder& folder;
    const platform::EventLoop& loop;
    platform::Dialogs& dialogs;
    player::StatusDisplay& status;
  };
  explicit SkinInstaller(const Uses& uses) : uses_(uses) {}

  // Whether the first of the dropped files is an archive on a drive of this machine. Reads nothing.
  [[nodiscard]] static bool is_archive(const platform::Drop& drop);

  // Checks the archive, asks before it takes the place of a skin that is there, and keeps it in the folder of the
  // skins; the description comes last, so that no skin is listed that is not complete. The name of the skin, for it to
  // be worn; empty when there is none, which the listener has then been told or decided.
  [[nodiscard]] std::wstring install(const platform::Drop& drop);

private:
  [[nodiscard]] bool fits(const UnpackedSkin& skin) const;
  [[nodiscard]] bool may_replace(const UnpackedSkin& skin);
  [[nodiscard]] bool save(const UnpackedSkin& skin) const;
  void remove_others(const UnpackedSkin& skin) const;
  void refuse(const std::wstring& reason);

  Uses uses_;
};

} // namespace lumotune::skin
