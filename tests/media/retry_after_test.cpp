// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/retry_after.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

constexpr sys_seconds now = sys_days(2026y / November / 6) + 8h + 49min + 37s;

std::optional<seconds> asked(const std::string& fields) {
  return retry_after("HTTP/1.1 503 Busy\r\n" + fields, now);
}

TEST(RetryAfter, IsSeconds) {
  EXPECT_EQ(asked("Server: x\r\nRetry-After: 120\r\nContent-Length: 0"), 120s);
  EXPECT_EQ(asked("retry-after:7"), 7s);
  EXPECT_EQ(asked("Retry-After: \t 0 "), 0s);
}

TEST(RetryAfter, IsADateInEachForm) {
  EXPECT_EQ(asked("Retry-After: Fri, 06 Nov 2026 08:50:07 GMT"), 30s);
  EXPECT_EQ(asked("Retry-After: Friday, 06-Nov-26 08:50:07 GMT"), 30s);
  EXPECT_EQ(asked("Retry-After: Fri Nov  6 08:50:07 2026"), 30s);
  EXPECT_EQ(asked("Retry-After: Fri, 06 Nov 2026 08:49:00 GMT"), 0s) << "it has passed";
}

// The listener's clock may be wrong by hours; the server's own difference counts.
TEST(RetryAfter, CountsFromTheServersOwnDate) {
  EXPECT_EQ(asked("Date: Sat, 07 Nov 2026 01:00:00 GMT\r\nRetry-After: Sat, 07 Nov 2026 01:00:45 GMT"), 45s);
}

TEST(RetryAfter, IsADayAtMost) {
  EXPECT_EQ(asked("Retry-After: 99999999"), 24h);
  EXPECT_EQ(asked("Retry-After: 99999999999999999999999"), 24h);
  EXPECT_EQ(asked("Retry-After: Fri, 06 Nov 9999 08:50:07 GMT"), 24h);
}

TEST(RetryAfter, IsNothingWhenItIsMissingOrMalformed) {
  for (const char* fields :
       {"", "Server: Retry-After: 5", "Retry-After:", "Retry-After: -5", "Retry-After: 5s", "Retry-After: soon",
        "Retry-After: Fri, 31 Feb 2026 08:50:07 GMT", "Retry-After: Fri, 06 Nov 2026 24:50:07 GMT",
        "Retry-After: Fri, 06 Nov 2026 08:50 GMT", "Retry-After: Fri, 06 Nov 2026 08:50:07 CET",
        "Retry-After: Fri, 06 Now 2026 08:50:07 GMT", "Retry-After: Fri, 6 Nov 08:50:07 GMT", "X-Retry-After: 5"})
    EXPECT_EQ(asked(fields), std::nullopt) << fields;
}

TEST(RetryAfter, TheFirstFieldOfThatNameCounts) {
  EXPECT_EQ(asked("Retry-After: 3\r\nRetry-After: 9"), 3s);
  EXPECT_EQ(header_field("HTTP/1.1 200 OK\nA: b\nC: d", "c"), "d") << "bare line feeds";
  EXPECT_EQ(header_field("Retry-After: 3", "Retry-After"), "") << "the first line is the status";
}

} // namespace
} // namespace lumotune::media
