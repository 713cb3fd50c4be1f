// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/dpi.h"

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

int pixels(int twips, unsigned dpi) {
  return MulDiv(twips, static_cast<int>(dpi), 1440);
}

int twips(int pixels, unsigned dpi) {
  return MulDiv(pixels, 1440, static_cast<int>(dpi));
}

} // namespace lumotune::platform::win32
