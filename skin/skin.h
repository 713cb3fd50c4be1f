// SPDX-License-Identifier: LGPL-2.1-or-later
// The look of the main window: applies skin files and the looks that follow the play state and the volume.
#pragma once

#include "base/error_log.h"
#include "base/lumotune_form.h"
#include "base/menu_tree.h"
#include "base/session.h"
#include "platform/ansi_codec.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "player/ports.h"
#include "skin/skin_file.h"

#include <optional>
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
    const platform::Files& files;
    const platform::AnsiCodec& codec;
    const platform::Machine& machine;
    platform::EventLoop& loop;
    base::ErrorLog& error_log;
    base::MenuTree& menu_tree;
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
  void forget_pictures();
  void forget_labels();
  void forget_ground() const;
  [[nodiscard]] bool fits(const std::vector<std::wstring>& lines) const;
  // Each answers what was wrong, empty when nothing was.
  [[nodiscard]] std::wstring load(const std::wstring& name, unsigned turn);
  [[nodiscard]] std::wstring apply_lines(const std::wstring& path, const std::vector<std::wstring>& lines,
                                         unsigned turn);
  [[nodiscard]] std::wstring apply(const SkinLine& line);
  [[nodiscard]] std::wstring apply_form(const SkinLine& line);
  [[nodiscard]] std::wstring apply_picture(const SkinLine& line, platform::PictureBox& control,
                                           const std::wstring& picture);
  [[nodiscard]] std::wstring apply_state_picture(const SkinLine& line, platform::PictureBox& control,
                                                 const std::wstring& picture);
  [[nodiscard]] std::wstring place_picture(const SkinLine& line, platform::PictureBox& control,
                                           const std::wstring& picture);
  [[nodiscard]] std::wstring apply_list(const SkinLine& line);
  [[nodiscard]] std::wstring apply_label(const SkinLine& line, platform::Label& label);
  [[nodiscard]] std::wstring apply_status(const SkinLine& line);
  [[nodiscard]] std::wstring apply_kept(const SkinLine& line);

  Uses uses_;
  unsigned turn_ = 0;     // counts the loads, so that an interrupted one knows
  bool sized_ = false;    // the current skin has given the window its size
  bool grounded_ = false; // and its background
};

} // namespace lumotune::skin
