// SPDX-License-Identifier: LGPL-2.1-or-later
// One part of the self-test: a program of GoogleTest that is run to its end.
#pragma once

#include "tests/selftest/report.h"

#include <functional>
#include <string>

namespace lumotune::selftest {

// Runs it, with what it starts in a job of its own that ends with it. A program that prints nothing for three minutes
// is ended. `tell` hears of each test that ended.
[[nodiscard]] Result run_part(const std::wstring& program, const std::wstring& words,
                              const std::function<void(const Result&)>& tell);

} // namespace lumotune::selftest
