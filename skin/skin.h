// SPDX-License-Identifier: LGPL-2.1-or-later
// The look of the main window: applies skin files and the looks that follow the play state and the volume.
#pragma once

#include "base/error_log.h"
#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/event_loop.h"
#include "player/ports.h"
#include "skin/line_applier.h"

#include <string>
#include <vector>

namespace lumotune::skin {

// User-interface thread. Nothing shows a message: what was wrong with a skin goes to the error log.
class Skin final : public player::SkinPort {
public:
  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    const base::ProgramFolder& folder;
    platform::EventLoop& loop;
    base::ErrorLog& error_log;
  };
  explicit Skin(const Uses& uses) : uses_(uses) {}

  // Applies the skin of that name, line by line, letting pending events run after each. Ends at the first missing file,
  // picture or number; controls not yet reached then stay hidden. Of a skin that asks for more than `over_limits`
  // allows nothing is used. A load that begins inside another one ends that one. Nothing of the last skin stays, and
  // every picture is read anew. The name is the current one at once, and the saved one when the load has come to its
  // end.
  void LoadSkin(const std::wstring& name) override;
  void ZobrazCoMas(const std::wstring& play_button_text) override;
  void SkinVolume(int percent) override;
  void load_play_picture() override;

private:
  [[nodiscard]] std::wstring picture_path(const std::wstring& picture) const;
  void forget_pictures() const;
  void forget_labels() const;
  void forget_background(const LineApplier& applied) const;
  [[nodiscard]] bool fits(const std::vector<std::wstring>& lines) const;
  // Each answers what was wrong, empty when nothing was.
  [[nodiscard]] std::wstring load(const std::wstring& name, unsigned turn, LineApplier& applier) const;
  [[nodiscard]] std::wstring apply_lines(const std::wstring& path, const std::vector<std::wstring>& lines,
                                         unsigned turn, LineApplier& applier) const;

  Uses uses_;
  unsigned turn_ = 0; // counts the loads, so that an interrupted one knows
};

} // namespace lumotune::skin
