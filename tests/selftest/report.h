// SPDX-License-Identifier: LGPL-2.1-or-later
// The report of the self-test: what a stranger's Windows is and what went well on it, nothing about the stranger.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumotune::selftest {

// What came of a program of GoogleTest.
struct Result {
  int passed = 0;
  int skipped = 0;
  std::vector<std::string> failed; // names, "SUITE.TEST"
  std::string running;             // the test that had begun and not ended
  bool whole = false;              // the program came to its end by itself
  unsigned long exit_code = 0;
  unsigned seconds = 0;
};

// Takes what such a program prints, line by line, and notes it. Names are cut at 120 characters and have letters,
// digits and
// "._/-" alone: nothing else of a line is kept.
void take_line(Result& result, std::string_view line);

struct Part {
  std::string name; // as the report calls it
  Result result;
  bool done = false;
};

// Everything that went, in UTF-8. `system` is of `system_lines`.
[[nodiscard]] std::string report_text(const std::string& version, const std::vector<std::string>& system,
                                      const std::vector<Part>& parts);

// Whether every part came to its end and nothing failed.
[[nodiscard]] bool all_well(const std::vector<Part>& parts);

} // namespace lumotune::selftest
