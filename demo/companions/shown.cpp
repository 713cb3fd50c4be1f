// SPDX-License-Identifier: LGPL-2.1-or-later
// Stands in for a companion that the player only starts: notes and shows its command line.
#include "demo/companions/note.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  companion::note_start();
  if (!companion::quiet())
    companion::show_text(companion::program_name() + L" (ukázka)",
                         L"Tento program jen ukazuje, s čím byl spuštěn:\n\n" + companion::arguments());
  return 0;
}
