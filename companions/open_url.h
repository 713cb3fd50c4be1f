// SPDX-License-Identifier: LGPL-2.1-or-later
// Opening web pages in the system's browser, and files.
#pragma once

#include "platform/shell.h"

#include <string>

namespace lumotune::companions {

// User-interface thread. Failures of the system are silent.
class WebPages {
public:
  explicit WebPages(platform::Shell& shell) : shell_(shell) {}

  // An address of our own, made of the client's files: one that begins with "htt" through the explorer program, any
  // other, in quotation marks, through the shell; blanks around it do not count. Answers what the shell answers (above
  // 32: opened), 0 where it was not asked. One that is refused is not opened.
  int OpenUrl(const std::wstring& address);
  // Whether OpenUrl would not try: it has what no address has, or leads the shell elsewhere than to this machine's
  // files or a host.
  [[nodiscard]] static bool refuses(const std::wstring& address);
  // OpenUrl where a failure of the system is silent; false when the address is refused.
  [[nodiscard]] bool open_own(const std::wstring& address);

  // An address that came from outside: opened only when it is that of a web page, false when it is none. Blanks around
  // it do not count.
  [[nodiscard]] bool open_station_web(const std::wstring& address);

private:
  platform::Shell& shell_;
};

} // namespace lumotune::companions
