// SPDX-License-Identifier: LGPL-2.1-or-later
// What the self-test makes of the output of its parts.
#include "tests/selftest/report.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::selftest {
namespace {

Result taken(std::initializer_list<const char*> lines) {
  Result result;
  for (const char* line : lines)
    take_line(result, line);
  return result;
}

TEST(SelftestResult, CountsEachTestOnce) {
  const Result result = taken({"[==========] Running 4 tests.", "[ RUN      ] A.Good", "[       OK ] A.Good (12 ms)\r",
                               "[ RUN      ] B/A.Bad/0", "C:\\Users\\Somebody: Failure",
                               "[  FAILED  ] B/A.Bad/0, where GetParam() = 4 (1 ms)", "[ RUN      ] A.Left",
                               "[  SKIPPED ] A.Left (0 ms)", "[  PASSED  ] 1 test.",
                               "[  FAILED  ] 1 test, listed below:", "[  FAILED  ] B/A.Bad/0, where GetParam() = 4"});
  EXPECT_EQ(result.passed, 1);
  EXPECT_EQ(result.skipped, 1);
  EXPECT_EQ(result.failed, std::vector<std::string>{"B/A.Bad/0"});
  EXPECT_EQ(result.running, "");
}

TEST(SelftestResult, TellsWhereAProgramEnded) {
  const Result result = taken({"[ RUN      ] A.First", "[       OK ] A.First (1 ms)", "[ RUN      ] A.Second"});
  EXPECT_EQ(result.running, "A.Second");
}

TEST(SelftestResult, KeepsNothingButNames) {
  EXPECT_EQ(taken({"[ RUN      ] A.Name C:\\Users\\Somebody"}).running, "A.Name");
  EXPECT_EQ(taken({"[ RUN      ] Somebody"}).running, "") << "no name of a test";
  EXPECT_EQ(taken({("[ RUN      ] A." + std::string(1000, 'x')).c_str()}).running.size(), 120U);
  EXPECT_EQ(taken({"[       OK ] A.NeverBegun (1 ms)", "[  FAILED  ] A.NeverBegun"}).passed, 0);
}

Part part(const char* name, int passed) {
  Part made{name, {}, true};
  made.result.passed = passed;
  made.result.whole = true;
  return made;
}

TEST(SelftestReport, TellsEachPartAndTheSum) {
  Part bad = part("zvuk", 3);
  bad.result.failed = {"A.B", "C.D"};
  const std::string text = report_text("1.2.3", {"Windows 10.0.1"}, {part("smlouva", 7), bad});
  for (const char* wanted :
       {"verze 1.2.3\r\nWindows 10.0.1\r\n", "část smlouva: prošlo 7, neprošlo 0, vynecháno 0, 0 s",
        "  neprošlo C.D\r\n", "celkem: prošlo 10, neprošlo 2\r\nvýsledek: něco neprošlo"})
    EXPECT_NE(text.find(wanted), std::string::npos) << wanted << text;
}

TEST(SelftestReport, AllIsWellOnlyWhenEachPartCameToItsEnd) {
  EXPECT_TRUE(all_well({part("a", 1), part("b", 1)}));
  EXPECT_FALSE(all_well({part("a", 1), part("b", 0)})) << "nothing was tried";
  Part broken = part("b", 5);
  broken.result.whole = false;
  EXPECT_FALSE(all_well({broken}));
  Part crashed = part("b", 5);
  crashed.result.exit_code = 3;
  EXPECT_FALSE(all_well({crashed}));
  Part waiting = part("b", 5);
  waiting.done = false;
  EXPECT_FALSE(all_well({waiting}));
  const std::string text = report_text("1", {}, {broken});
  EXPECT_NE(text.find("nedoběhla"), std::string::npos);
}

} // namespace
} // namespace lumotune::selftest
