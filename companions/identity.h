// SPDX-License-Identifier: LGPL-2.1-or-later
// The account identity that web requests carry: read from the settings file, and scrambled for the login page.
#pragma once

#include "base/options_lines.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/event_loop.h"

#include <string>

namespace lumotune::companions {

// User-interface thread. The values are never logged; a box shows them only where the server
// asks for it.
class Identity {
public:
  struct Uses {
    const base::ProgramFolder& folder;
    platform::EventLoop& loop;
    base::Settings& settings;
  };
  explicit Identity(const Uses& uses) : uses_(uses) {}

  // Read idh and h, or the nickname, out of options.ini. False, and nothing changed, when the file is missing or too
  // short for them.
  [[nodiscard]] bool LoadOptionsLodin();
  [[nodiscard]] bool LoadOptionsNick();

  // The text with each pair of neighbouring characters swapped. Lets events run after each pair, until the program
  // ends.
  [[nodiscard]] std::wstring Prehod(std::wstring Orbvstup);
  // The character codes of the swapped text, each followed by "-"; the argument becomes the swapped text.
  [[nodiscard]] std::wstring Encrypt(std::wstring& Orbvstup);
  // The other way round; the argument becomes the text before it is swapped back. What follows a piece that is no
  // character code is lost.
  [[nodiscard]] std::wstring Encrypt2(std::wstring& Orbvstup);
  // Twice both: digits and "-" only.
  [[nodiscard]] std::wstring Heslo(const std::wstring& ZadejHeslo);

private:
  void read_lines(); // fills List5

  Uses uses_;
  base::TextLines List5; // the lines of options.ini that are not empty
};

} // namespace lumotune::companions
