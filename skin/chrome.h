// SPDX-License-Identifier: LGPL-2.1-or-later
// The frame of the borderless main window: dragging, the topmost layer, hiding and showing, underlined links.
#pragma once

#include "base/lumotune_form.h"
#include "base/program_folder.h"
#include "base/session.h"

namespace lumotune::skin {

// User-interface thread. Nothing here shows a message; failures are silent.
class Chrome {
public:
  struct Uses {
    base::Settings& settings;
    base::Session& session;
    base::LumotuneForm& form;
    const base::ProgramFolder& folder;
  };
  explicit Chrome(const Uses& uses) : uses_(uses) {}

  void OnTopYES();
  void OnTopNO();
  void FormMax(); // visible, normal, redrawn, with the keyboard focus
  void FormMin(); // minimised and hidden; the notification-area icon remains
  void OrbMinMax();

  // Events of the window and its controls.
  void Form_MouseMove(const platform::MouseEvent& event); // with the left button held, the system moves the window
  void LineMenu_OnTop_Click();
  void LineMenu_Min_Click() { FormMin(); }
  void InfoName_MouseMove();
  void InfoNaladit_MouseMove();
  void LTDisplay_MouseMove();

private:
  void SetTopmost(bool& flag);
  void show_layer_picture(const wchar_t* picture);

  Uses uses_;
};

} // namespace lumotune::skin
