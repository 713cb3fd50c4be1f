// SPDX-License-Identifier: LGPL-2.1-or-later
// The account identity sent with web requests: read from the settings file, and scrambled for the login page.
#pragma once

#include "base/options_lines.h"
#include "base/program_folder.h"
#include "base/session.h"
#include "platform/event_loop.h"

#include <string>

namespace lumotune::companions {

// User-interface thread. The values are never logged; a box shows them only at the server's request.
class Identity {
public:
  struct Uses {
    const base::ProgramFolder& folder;
    platform::EventLoop& loop;
    base::Settings& settings;
  };
  explicit Identity(const Uses& uses) : uses_(uses) {}

  // Read idh and h, or the nickname, from options.ini. False, and nothing changed, when the file is missing or too
  // short.
  [[nodiscard]] bool LoadOptionsLodin();
  [[nodiscard]] bool LoadOptionsNick();

  // Swaps each pair of neighbouring characters. Runs events after each pair, unless the program is ending.
  [[nodiscard]] std::wstring Prehod(std::wstring Orbvstup);
  // Returns the character codes of the swapped text, each followed by "-"; the argument becomes the swapped text.
  [[nodiscard]] std::wstring Encrypt(std::wstring& Orbvstup);
  // The inverse; the argument becomes the text before swapping back. Decoding stops at a piece that is not a character
  // code.
  [[nodiscard]] std::wstring Encrypt2(std::wstring& Orbvstup);
  // Encrypt and Prehod applied twice: digits and "-" only.
  [[nodiscard]] std::wstring Heslo(const std::wstring& ZadejHeslo);

private:
  void read_lines(); // fills List5

  Uses uses_;
  base::TextLines List5; // the lines of options.ini that are not empty
};

} // namespace lumotune::companions
