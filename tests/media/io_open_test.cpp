// SPDX-License-Identifier: LGPL-2.1-or-later
// What a stream of the network may open, how often, and how long it may keep us waiting.
#include "tests/media/hostile_rig.h"

#include <fstream>
#include <functional>
#include <sstream>

namespace lumotune::media::rig {
namespace {

using namespace std::chrono_literals;

// Whether some socket of this machine is bound to that port.
bool udp_port_is_open(int port) {
  std::ifstream table("/proc/net/udp");
  std::ostringstream all;
  all << table.rdbuf();
  std::ostringstream wanted;
  wanted << std::uppercase << std::hex << ":" << port << " ";
  return all.str().find(wanted.str()) != std::string::npos;
}

std::string hls_of(const std::string& lines) {
  return "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXT-X-MEDIA-SEQUENCE:0\n" + lines + "#EXT-X-ENDLIST\n";
}

class IoOpenTest : public SourceTest {};

TEST_F(IoOpenTest, AStreamOfTheNetworkReachesNoFile) {
  for (const std::string& file :
       {"file://" + media("300.wav"), "file:" + media("300.wav"), media("300.wav"),
        std::string("//127.0.0.1/share/300.wav"), std::string("\\\\127.0.0.1\\share\\300.wav"),
        std::string("\\\\.\\pipe\\x.wav"), std::string("C:\\x.wav")}) {
    EXPECT_EQ(open(radio.text_url(hls_of("#EXTINF:3,\n" + file + "\n"), "application/x-mpegurl")).source, nullptr)
        << file;
  }
}

// A list that is not taken for one by us must not be one to FFmpeg: its mark is far behind, its text is none.
std::string disguised(const std::string& lines) {
  return "#EXTM3U\n#\x01" + std::string(2100, '-') + "\n#EXT-X-TARGETDURATION:3\n#EXT-X-MEDIA-SEQUENCE:0\n" + lines +
         "#EXT-X-ENDLIST\n";
}

TEST_F(IoOpenTest, AListInDisguiseReachesNoFile) {
  std::ofstream(media("disguise.bin")) << disguised("#EXTINF:3,\nfile:" + media("440.mp3") + "\n");
  EXPECT_EQ(open(radio.url("/file/disguise.bin")).source, nullptr);
}

TEST_F(IoOpenTest, AListInDisguiseReachesNoKeyFile) {
  std::ifstream from(media("450.key"), std::ios::binary);
  std::ofstream(media("450.key.ts"), std::ios::binary) << from.rdbuf();
  std::ofstream(media("disguised_key.bin")) << disguised("#EXT-X-KEY:METHOD=AES-128,URI=\"file:" + media("450.key.ts") +
                                                         "\"\n#EXTINF:2,\n" + radio.url("/file/4500.ts") + "\n");
  EXPECT_EQ(open(radio.url("/file/disguised_key.bin")).source, nullptr);
}

TEST_F(IoOpenTest, AStreamOfTheNetworkReachesNoOtherProtocol) {
  for (const char* address : {"data:audio/wav;base64,UklGRg==", "concat:{base}/file/5500.ts|{base}/file/5501.ts",
                              "udp://127.0.0.1:45670/x.ts", "rtp://127.0.0.1:45670/x.ts", "tcp://127.0.0.1:1/x.ts",
                              "subfile,,start,0,end,9,,:{base}/file/5500.ts", "cache:{base}/file/5500.ts"}) {
    EXPECT_EQ(
        open(radio.text_url(hls_of("#EXTINF:3,\n" + std::string(address) + "\n"), "application/x-mpegurl")).source,
        nullptr)
        << address;
  }
  EXPECT_EQ(radio.hits("/file/5500.ts"), 0);
}

TEST_F(IoOpenTest, ARedirectionReachesNoFile) {
  for (const std::string& target : {"file://" + media("300.wav"), "file:" + media("300.wav"), media("300.wav"),
                                    std::string("\\\\127.0.0.1\\share\\300.wav"), std::string("rtsp://127.0.0.1/x"),
                                    std::string("data:audio/wav;base64,UklGRg==")}) {
    EXPECT_EQ(open(radio.url("/to/x?url=" + escaped(target))).source, nullptr) << target;
  }
}

TEST_F(IoOpenTest, AFileIsOpenedForTheListenerAlone) {
  options.from_network = true;
  const Opened refused = open("file:" + media("300.wav"));
  EXPECT_EQ(refused.source, nullptr);
  EXPECT_EQ(refused.trouble, Trouble::unsupported_address);
  options.from_network = false;
  EXPECT_NE(open("file:" + media("300.wav")).source, nullptr);
}

TEST_F(IoOpenTest, AListOnDiskLeadsToWhatLiesBesideIt) {
  options.from_network = false;
  const Opened opened = open("file:" + media("550.m3u8"));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_FALSE(opened.source->live());
  EXPECT_EQ(hear(*opened.source, 60, 20s).last, ReadResult::ended);
  std::ofstream(media("elsewhere.m3u8")) << hls_of("#EXTINF:3,\nfile:///etc/../" + media("300.wav") + "\n");
  EXPECT_EQ(open("file:" + media("elsewhere.m3u8")).source, nullptr);
}

TEST_F(IoOpenTest, AnAnswerThatDescribesASessionOpensNoPort) {
  constexpr int port = 45672;
  bool opened_port = false;
  options.open_limit_ms = 2000;
  options.interrupted = [&] {
    opened_port = opened_port || udp_port_is_open(port);
    return false;
  };
  const std::string session = "v=0\r\no=- 0 0 IN IP4 127.0.0.1\r\ns=x\r\nc=IN IP4 127.0.0.1\r\nt=0 0\r\nm=audio " +
                              std::to_string(port) + " RTP/AVP 14\r\n";
  for (const char* type : {"application/sdp", "audio/mpeg"}) {
    EXPECT_EQ(open(radio.text_url(session, type)).source, nullptr);
    EXPECT_FALSE(opened_port) << type;
  }
}

TEST_F(IoOpenTest, OtherProtocolsOfTheNetworkAreNotPlayed) {
  for (const char* scheme : {"rtsp", "rtp", "udp", "tcp", "ftp"}) {
    const Opened opened = open(radio.url("/live/440.mp3", scheme));
    EXPECT_EQ(opened.source, nullptr) << scheme;
    EXPECT_EQ(opened.trouble, Trouble::unsupported_address) << scheme;
  }
}

TEST_F(IoOpenTest, EachOpeningSaysWhoWeAre) {
  ASSERT_NE(open(radio.url("/file/450.m3u8")).source, nullptr);
  for (const char* path : {"/file/450.m3u8", "/file/450.key", "/file/4500.ts"})
    EXPECT_NE(radio.heads(path).find("User-Agent: Test/1"), std::string::npos) << path << radio.heads(path);
}

TEST_F(IoOpenTest, EachOpeningHasItsProxy) {
  std::vector<std::string> asked;
  options.proxy = [&](const std::string& address) {
    asked.push_back(address);
    return std::string();
  };
  ASSERT_NE(open(radio.text_url(hls_of("#EXTINF:2,\nhttp://localhost:" + radio.port() + "/file/5500.ts\n"),
                                "application/x-mpegurl"))
                .source,
            nullptr);
  ASSERT_EQ(asked.size(), 2U); // each host once
  EXPECT_TRUE(asked[1].starts_with("http://localhost"));
}

// Cookies go back to where they came from, and nowhere else.
TEST_F(IoOpenTest, CookiesStayWithTheirServer) {
  const std::string list =
      hls_of("#EXTINF:2,\n{base}/file/5500.ts\n#EXTINF:2,\nhttp://localhost:" + radio.port() + "/file/5501.ts\n");
  const Opened opened = open(radio.text_url(list, "application/x-mpegurl", "&cookie=a%3db%3bpath%3d/"));
  ASSERT_NE(opened.source, nullptr);
  (void)hear(*opened.source, 60, 20s);
  EXPECT_NE(radio.heads("/file/5500.ts").find("Cookie: a=b"), std::string::npos) << radio.heads("/file/5500.ts");
  EXPECT_EQ(radio.heads("/file/5501.ts").find("Cookie:"), std::string::npos) << radio.heads("/file/5501.ts");
}

// Bytes that trickle in.
TEST_F(IoOpenTest, AServerThatDripsBytesIsLost) {
  const Opened opened = open(radio.url("/drip/440.mp3?first=40000&ms=20"));
  ASSERT_NE(opened.source, nullptr);
  const Heard heard = hear(*opened.source, 60, 30s);
  EXPECT_EQ(heard.last, ReadResult::lost);
  EXPECT_LT(heard.took, 20s);
}

// Whole packets, each in time and all together too few.
TEST_F(IoOpenTest, AServerThatDripsPacketsIsLost) {
  const Opened opened = open(radio.url("/packets/440.mp3?first=40000&bytes=418&ms=500"));
  ASSERT_NE(opened.source, nullptr);
  const Heard heard = hear(*opened.source, 60, 30s);
  EXPECT_EQ(heard.last, ReadResult::lost);
  EXPECT_LT(heard.took, 20s);
}

// Packets in time, of whatever length they claim, that are no sound to the decoder.
TEST_F(IoOpenTest, AServerWhosePacketsBringNoSoundIsLost) {
  const Opened opened = open(radio.url("/packets/440.mp3?first=40000&bytes=836&ms=80"));
  ASSERT_NE(opened.source, nullptr);
  const Heard heard = hear(*opened.source, 60, 30s, false);
  EXPECT_EQ(heard.last, ReadResult::lost);
  EXPECT_LT(heard.took, 20s);
}

TEST_F(IoOpenTest, ASlowLineThatBringsSoundIsNotLost) {
  const Opened opened = open(radio.url("/packets/440.mp3?first=40000&bytes=836&ms=80")); // two thirds of its sound
  ASSERT_NE(opened.source, nullptr);
  EXPECT_NE(hear(*opened.source, 60, 5s).last, ReadResult::lost);
}

TEST_F(IoOpenTest, AServerThatDripsIsNotOpened) {
  options.open_limit_ms = 2000;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(open(radio.url("/drip/440.mp3?ms=20")).source, nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
}

TEST_F(IoOpenTest, AMediaServerThatFallsSilentIsLost) {
  const Opened opened = open(radio.url("/mms/420.wma?after=40", "mmsh"));
  ASSERT_NE(opened.source, nullptr);
  const Heard heard = hear(*opened.source, 60, 30s);
  EXPECT_EQ(heard.last, ReadResult::lost);
  EXPECT_LT(heard.took, 20s);
}

TEST_F(IoOpenTest, AMediaServerThatDripsIsLost) {
  const Opened opened = open(radio.url("/mms/420.wma?after=40&drip=1", "mmsh"));
  ASSERT_NE(opened.source, nullptr);
  const Heard heard = hear(*opened.source, 60, 30s);
  EXPECT_EQ(heard.last, ReadResult::lost);
  EXPECT_LT(heard.took, 20s);
}

TEST_F(IoOpenTest, AMediaServerLeadsNowhereElse) {
  std::string root;
  const auto ports = radio.tls(root);
  EXPECT_EQ(
      open(radio.url("/to/x?url=" + escaped("https://127.0.0.1:" + ports.at("self") + "/mms/420.wma"), "mmsh")).source,
      nullptr);
  EXPECT_EQ(open(radio.url("/to/x?url=" + escaped("file:" + media("420.wma")), "mmsh")).source, nullptr);
}

TEST_F(IoOpenTest, ALargeTagIsSkipped) {
  options.timeout_ms = 5000;
  options.open_limit_ms = 25000;
  const MemoryWatch memory;
  const Opened opened = open(radio.url("/tag/x?mb=200"));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_GT(hear(*opened.source, 1, 20s).seconds_of_sound, 0.9);
  EXPECT_LT(memory.grown_mb(), 60);
}

TEST_F(IoOpenTest, TagsWithoutEndAreNotKept) {
  options.open_limit_ms = 3000;
  const MemoryWatch memory;
  EXPECT_EQ(open(radio.url("/tags/x")).source, nullptr);
  EXPECT_LT(memory.grown_mb(), 60);
}

TEST_F(IoOpenTest, TheBudgetIsTakenFromByEachOpening) {
  OpenBudget budget;
  options.budget = &budget;
  ASSERT_NE(open(radio.url("/file/550.m3u8")).source, nullptr);
  EXPECT_FALSE(budget.take(radio.url("/file/550.m3u8")));
  EXPECT_FALSE(budget.take(radio.url("/file/5500.ts")));
  const Opened again = open(radio.url("/file/550.m3u8"));
  EXPECT_EQ(again.source, nullptr);
  EXPECT_TRUE(again.over_budget);
  EXPECT_EQ(radio.hits("/file/550.m3u8"), 1);
}

TEST_F(IoOpenTest, TheBudgetsTimeEndsAnOpening) {
  OpenBudget budget(OpenBudget::Clock::now() - OpenBudget::max_time + 1s);
  options.budget = &budget;
  options.open_limit_ms = 60000;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(open(radio.url("/drip/440.mp3?ms=20")).source, nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
}

} // namespace
} // namespace lumotune::media::rig
