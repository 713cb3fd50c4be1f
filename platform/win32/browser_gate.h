// SPDX-License-Identifier: LGPL-2.1-or-later
// Filters every address that the system's browser control opens, including a page's pictures and style sheets.
#pragma once

#include "platform/win32/win.h"

#include <urlmon.h>

#include <memory>

namespace lumotune::platform::win32 {

// While it exists, this process opens no address of a scheme that reaches this machine or the shares of others, and of
// web addresses only those that `is_web_address` takes; all else of the web goes to the system's own handlers. Nobody
// else in the process opens addresses through the system. User-interface thread, with COM entered.
class BrowserGate {
public:
  BrowserGate();
  BrowserGate(const BrowserGate&) = delete;
  BrowserGate& operator=(const BrowserGate&) = delete;
  ~BrowserGate();

  [[nodiscard]] bool closed() const { return session_ != nullptr; } // false: the filter could not be registered

private:
  class Handlers;
  struct ReleaseHandlers {
    void operator()(Handlers* handlers) const;
  };
  struct ReleaseSession {
    void operator()(IInternetSession* session) const { session->Release(); }
  };

  std::unique_ptr<Handlers, ReleaseHandlers> handlers_;
  std::unique_ptr<IInternetSession, ReleaseSession> session_;
};

} // namespace lumotune::platform::win32
