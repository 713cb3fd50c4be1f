// SPDX-License-Identifier: LGPL-2.1-or-later
// Opens web pages in the system's browser, and files.
#pragma once

#include "platform/shell.h"

#include <string>

namespace lumotune::companions {

// User-interface thread. Failures of the system are silent.
class WebPages {
public:
  explicit WebPages(platform::Shell& shell) : shell_(shell) {}

  // Opens a trusted address, made from the client's files: one that begins with "htt" through the explorer program, any
  // other, quoted, through the shell; blanks around it are ignored. Returns the shell's result (above 32: opened), or 0
  // when the shell was not called. A refused address is not opened.
  int OpenUrl(const std::wstring& address);
  // Whether OpenUrl refuses the address: it has characters that no address has, or makes the shell open something other
  // than this machine's files or a host.
  [[nodiscard]] static bool refuses(const std::wstring& address);
  // OpenUrl, ignoring failures of the system; false when the address is refused.
  [[nodiscard]] bool open_own(const std::wstring& address);

  // Opens an address from outside, if it is a web page's; otherwise false. Blanks around it are ignored.
  [[nodiscard]] bool open_station_web(const std::wstring& address);

private:
  platform::Shell& shell_;
};

} // namespace lumotune::companions
