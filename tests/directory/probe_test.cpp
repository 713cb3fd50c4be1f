// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/probe.h"
#include "platform/memory/files.h"
#include "stations/station_limits.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::test {
namespace {

const platform::memory::Codec codec;

// The size, "refused" or "unusable".
std::string probe(const std::string& bytes, const std::wstring& server = L"http://server.example") {
  const directory::Probe answer = directory::parse_probe(bytes, server, codec);
  if (answer.kind == directory::Probe::Kind::size)
    return std::to_string(answer.size);
  return answer.kind == directory::Probe::Kind::refused ? "refused" : "unusable";
}

TEST(Probe, TellsTheAnnouncedSize) {
  EXPECT_EQ(probe("size:1234\r\n"), "1234");
  EXPECT_EQ(probe("SIZE: 77 \r\n"), "77");
  EXPECT_EQ(probe("pozdrav\r\n\r\nsize:00012\r\nsize\r\n"), "12") << "other lines are ignored";
  EXPECT_EQ(probe("size:1"), "1") << "a last line needs no end";
}

TEST(Probe, TheLastSizeCounts) {
  EXPECT_EQ(probe("size:10\r\nsize:20\r\n"), "20");
  EXPECT_EQ(probe("size:abc\r\nsize:20\r\n"), "20");
  EXPECT_EQ(probe("size:10\r\nsize:abc\r\n"), "unusable");
  EXPECT_EQ(probe("size:10\r\nsize:0\r\n"), "unusable");
}

TEST(Probe, ASizeThatIsNoLengthIsUnusable) {
  for (const char* bad :
       {"", "size:", "size: ", "siz", "size", "size:0", "size:000", "size:-5", "size:+5", "size:x12", "size:12x",
        "size:12:", "size:12/", "size:1.5", "size:1e3", "size:1 2", "size:0x10", " size:12", "nic\r\njineho"})
    EXPECT_EQ(probe(bad), "unusable") << bad;
  EXPECT_EQ(probe("size:1" + std::string(30, '0')), "unusable");
  EXPECT_EQ(probe("size:" + std::string(1'000'000, '9')), "unusable");
  EXPECT_EQ(probe("size:18446744073709551617"), "unusable") << "does not wrap round";
  EXPECT_EQ(probe(std::string("size:1\0", 7)), "unusable");
}

TEST(Probe, AListLongerThanAnyFileThatIsReadIsNotWaitedFor) {
  const auto longest = stations::max_station_bytes;
  EXPECT_EQ(longest, 256U * 1024 * 1024);
  EXPECT_EQ(probe("size:" + std::to_string(longest)), std::to_string(longest));
  EXPECT_EQ(probe("size:" + std::to_string(longest + 1)), "unusable");
}

TEST(Probe, TheErrorMarkerRefuses) {
  EXPECT_EQ(probe("orb.cz:error\r\n"), "refused");
  EXPECT_EQ(probe("ORB.CZ:Error 17\r\n"), "refused");
  EXPECT_EQ(probe("size:100\r\norb.cz:error\r\n"), "refused") << "also after a size";
  EXPECT_EQ(probe("orb.cz:error\r\nsize:100\r\n"), "refused") << "the reading ends there";
}

TEST(Probe, TheMarkerStandsWholeAtTheBeginning) {
  EXPECT_EQ(probe(" orb.cz:error\r\nsize:5"), "5");
  EXPECT_EQ(probe("www.orb.cz:error\r\nsize:5"), "5");
  EXPECT_EQ(probe("orb.cz:erro\r\nsize:5"), "5");
  EXPECT_EQ(probe("orb.cz error\r\nsize:5"), "5");
}

TEST(Probe, TheServersOwnHostMarksErrorsToo) {
  EXPECT_EQ(probe("a.cz:error\r\nsize:5", L"http://www.a.cz:8080/orb"), "refused");
  EXPECT_EQ(probe("A.cz:error neco\r\nsize:5", L"http://a.cz"), "refused");
  EXPECT_EQ(probe("127.0.0.1:error\r\nsize:5", L"http://127.0.0.1:8000"), "refused");
  EXPECT_EQ(probe("127.0.0.1:er\r\nsize:5", L"http://127.0.0.1:8000"), "5") << "not the whole marker";
  const std::string host = "radio.velmi-dlouhe-jmeno.example";
  const std::wstring server = L"http://www.radio.velmi-dlouhe-jmeno.example/orb";
  EXPECT_EQ(probe(host + ":error\r\nsize:5", server), "refused");
  EXPECT_EQ(probe(host + ":erro\r\nsize:5", server), "5");
  EXPECT_EQ(probe("radio.velmi-jine\r\nsize:5", server), "5") << "the same twelve characters";
  EXPECT_EQ(probe("b.cz:error\r\nsize:5", L"http://a.cz"), "5") << "another host";
  EXPECT_EQ(probe(":error\r\nsize:5", L""), "5") << "no server, no marker of its own";
  EXPECT_EQ(probe("orb.cz:error\r\nsize:5", L""), "refused");
}

TEST(Probe, TheHostOfAnAddress) {
  EXPECT_EQ(directory::host_of(L"http://www.orb.cz"), L"orb.cz");
  EXPECT_EQ(directory::host_of(L"HTTPS://WWW.orb.cz:443/cesta/a?b#c"), L"orb.cz");
  EXPECT_EQ(directory::host_of(L"orb.cz/cesta"), L"orb.cz");
  EXPECT_EQ(directory::host_of(L"orb.cz:80"), L"orb.cz");
  EXPECT_EQ(directory::host_of(L"http://[::1]:8000/a"), L"[::1]");
  EXPECT_EQ(directory::host_of(L"http://"), L"");
  EXPECT_EQ(directory::host_of(L""), L"");
}

} // namespace
} // namespace lumotune::test
