// SPDX-License-Identifier: LGPL-2.1-or-later
// What a line of a skin file does to the main window.
#pragma once

#include "base/lumotune_form.h"
#include "base/session.h"
#include "skin/skin_file.h"

#include <string>
#include <utility>

namespace lumotune::skin {

// User-interface thread; for the lines of one skin, in their order.
class LineApplier {
public:
  struct Uses {
    const base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
  };
  // `folder`: where the skin's pictures lie, without a trailing backslash.
  LineApplier(const Uses& uses, std::wstring folder) : uses_(uses), folder_(std::move(folder)) {}

  // Answers what was wrong, empty when nothing was. A line that names no control does nothing.
  [[nodiscard]] std::wstring apply(const SkinLine& line);

  // Whether the lines so far have given the window its size, and its background.
  [[nodiscard]] bool sized() const { return sized_; }
  [[nodiscard]] bool has_background() const { return has_background_; }

private:
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
  [[nodiscard]] std::wstring apply_needle(const SkinLine& line);
  [[nodiscard]] std::wstring apply_kept(const SkinLine& line);

  Uses uses_;
  std::wstring folder_;
  bool sized_ = false;
  bool has_background_ = false;
};

} // namespace lumotune::skin
