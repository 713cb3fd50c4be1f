// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "demo/radio/connection.h"
#include "demo/radio/programme.h"

namespace demo_radio {

// Answers every connection on a thread of its own, 32 at a time at most; a request has ten seconds to arrive. Does not
// return.
[[noreturn]] void serve(const Socket& listener, const Programme& programme);

} // namespace demo_radio
