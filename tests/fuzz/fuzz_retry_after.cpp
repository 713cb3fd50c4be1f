// SPDX-License-Identifier: LGPL-2.1-or-later
// Any head of an error page: the wait that it asks for is none, or between nothing and a day.
#include "platform/media/retry_after.h"
#include "tests/fuzz/fuzzing.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace lumotune::media;
using lumotune::fuzz::demand;

constexpr const char* words[] = {"HTTP/1.1 503\r\n",
                                 "Retry-After: ",
                                 "Date: ",
                                 "\r\n",
                                 "Sun, 06 Nov 1994 08:49:37 GMT",
                                 "Sunday, 06-Nov-94 08:49:37 GMT",
                                 "Sun Nov  6 08:49:37 1994",
                                 "99999999999999999999"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string head = lumotune::fuzz::expanded(data, size, words);
  constexpr std::chrono::sys_seconds now{std::chrono::seconds{1'800'000'000}};
  if (const auto wait = retry_after(head, now))
    demand(*wait >= std::chrono::seconds{0} && *wait <= std::chrono::hours{24});
  demand(header_field(head, "Retry-After").find('\n') == std::string_view::npos);
  (void)http_date(head);
  return 0;
}
