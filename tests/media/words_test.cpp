// SPDX-License-Identifier: LGPL-2.1-or-later
// Why a station does not play: what is reported of each failure.
#include "tests/media/hostile_rig.h"

#include <cstdlib>

namespace lumotune::media::rig {
namespace {

// A label longer than 63 characters exists nowhere, which is known without asking a name server.
const std::string nowhere = "http://" + std::string(70, 'x') + ".invalid/";

class WordsTest : public SourceTest {};

TEST_F(WordsTest, ANameThatDoesNotExist) {
  const Opened opened = open(nowhere);
  EXPECT_EQ(opened.source, nullptr);
  EXPECT_EQ(opened.trouble, Trouble::no_such_host);
}

TEST_F(WordsTest, ARedirectionToANameThatDoesNotExist) {
  EXPECT_EQ(open(radio.url("/to/x?url=" + escaped(nowhere))).trouble, Trouble::no_such_host);
}

TEST_F(WordsTest, EveryCodeIsReportedAsItCame) {
  for (const int code : {400, 401, 402, 403, 405, 410, 418, 429, 451, 499, 500, 501, 502, 503, 504, 511, 599}) {
    const Opened opened = open(radio.url("/code/" + std::to_string(code)));
    EXPECT_EQ(opened.trouble, Trouble::refused_by_server) << code;
    EXPECT_EQ(opened.http_code, code);
  }
  const Opened opened = open(radio.url("/code/404"));
  EXPECT_EQ(opened.trouble, Trouble::not_found);
  EXPECT_EQ(opened.http_code, 404);
}

TEST_F(WordsTest, ACodeThatIsNeitherSoundNorAnErrorIsReportedToo) {
  for (const int code : {302, 304, 600, 999}) {
    const Opened opened = open(radio.url("/code/" + std::to_string(code)));
    EXPECT_EQ(opened.trouble, Trouble::refused_by_server) << code;
    EXPECT_EQ(opened.http_code, code);
  }
}

TEST_F(WordsTest, ARedirectionWithoutEndIsReportedByItsCode) {
  FakeRadio other;
  const Opened opened = open(other.url("/loop"));
  EXPECT_EQ(opened.trouble, Trouble::refused_by_server);
  EXPECT_EQ(opened.http_code, 302);
}

TEST_F(WordsTest, ARedirectionToAServerThatIsOffIsNoAnswer) {
  const Opened opened = open(radio.url("/to/x?url=" + escaped("http://127.0.0.1:1/")));
  EXPECT_EQ(opened.trouble, Trouble::not_answering);
  EXPECT_EQ(opened.http_code, 0);
}

TEST_F(WordsTest, AnHlsListWhoseSegmentsAreMissingSaysSo) {
  const Opened opened = open(
      radio.text_url("#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n/nothing.ts\n#EXT-X-ENDLIST\n", "audio/x-mpegurl"));
  EXPECT_EQ(opened.trouble, Trouble::not_found);
  EXPECT_EQ(opened.http_code, 404);
}

class RetryAfterTest : public PlayerTest {
protected:
  // The seconds to wait that are told first, after a failure with that code; 0 when none.
  [[nodiscard]] int told_first(const std::string& query) {
    texts.clear();
    play(radio.url("/live/440.mp3?" + query));
    EXPECT_TRUE(until_said("retry in ")) << told();
    const std::string marker = "retry in ";
    for (const std::string& each : texts) {
      if (const std::size_t at = each.find(marker); at != std::string::npos)
        return std::atoi(each.c_str() + at + marker.size());
    }
    return 0;
  }
  FakeRadio radio;
};

// Waits are shortened to a tenth.
TEST_F(RetryAfterTest, IsWaitedFor) {
  options.retry_scale = 0.1;
  const int seconds = told_first("fails=100&code=503&after=40");
  EXPECT_GE(seconds, 4) << told();
  EXPECT_LE(seconds, 5) << told();
}

TEST_F(RetryAfterTest, MayBeADate) {
  options.retry_scale = 0.1;
  const int seconds = told_first("fails=100&code=429&after=@45");
  EXPECT_GE(seconds, 4) << told();
  EXPECT_LE(seconds, 6) << told();
}

TEST_F(RetryAfterTest, IsNoLongerThanAMinute) {
  options.retry_scale = 0.1;
  const int seconds = told_first("fails=100&code=503&after=86400");
  EXPECT_GE(seconds, 5) << told();
  EXPECT_LE(seconds, 6) << told();
}

TEST_F(RetryAfterTest, ThatMakesNoSenseChangesNothing) {
  options.retry_scale = 0.1;
  EXPECT_EQ(told_first("fails=100&code=503&after=soon"), 1) << told();
}

TEST_F(RetryAfterTest, TheStationPlaysAfterwards) {
  options.retry_scale = 0.1;
  EXPECT_GE(told_first("fails=2&code=503&after=20"), 2) << told();
  EXPECT_TRUE(until_hears(440)) << told();
}

// The header costs a second request, which only an answer of these codes is worth.
TEST_F(RetryAfterTest, IsAskedForOnce) {
  options.retry_scale = 0.1;
  play(radio.url("/live/440.mp3?fails=4&code=503"));
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_EQ(radio.hits("/live/440.mp3"), 5) << told();
  EXPECT_EQ(radio.plain_hits("/live/440.mp3"), 1) << told();
  play(radio.url("/live/880.mp3?fails=3&code=500&after=50"));
  EXPECT_TRUE(until_hears(880)) << told();
  EXPECT_EQ(radio.plain_hits("/live/880.mp3"), 0) << told();
}

} // namespace
} // namespace lumotune::media::rig
