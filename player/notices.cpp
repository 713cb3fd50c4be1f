// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/notices.h"

#include "base/boxes.h"

namespace lumotune::player {

void tell_or_inform(StatusDisplay& status, platform::Dialogs& dialogs, const std::wstring& text) {
  if (status.can_tell())
    status.tell(text);
  else
    base::inform(dialogs, text);
}

} // namespace lumotune::player
