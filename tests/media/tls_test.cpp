// SPDX-License-Identifier: LGPL-2.1-or-later
// Stations by https, and certificates that are bad.
#include "tests/media/hostile_rig.h"

namespace lumotune::media::rig {
namespace {

using namespace std::chrono_literals;

class TlsTest : public SourceTest {
protected:
  void SetUp() override {
    ports_ = radio.tls(options.ca_file);
    ASSERT_TRUE(ports_.contains("good"));
  }
  [[nodiscard]] std::string tls_url(const std::string& kind, const std::string& path, const std::string& who = "") {
    return "https://" + who + "127.0.0.1:" + ports_[kind] + path;
  }

private:
  std::map<std::string, std::string> ports_;
};

TEST_F(TlsTest, AGoodCertificateIsTrusted) {
  const Opened opened = open(tls_url("good", "/live/440.mp3"));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_FALSE(opened.unverified);
  EXPECT_GT(hear(*opened.source, 1, 20s).seconds_of_sound, 0.9);
  EXPECT_EQ(radio.hits("/live/440.mp3"), 1);
}

TEST_F(TlsTest, ABadCertificatePlaysAndIsMarked) {
  for (const char* kind : {"self", "expired", "wrong"}) {
    const Opened opened = open(tls_url(kind, "/live/440.mp3"));
    ASSERT_NE(opened.source, nullptr) << kind;
    EXPECT_TRUE(opened.unverified) << kind;
    EXPECT_TRUE(opened.source->unverified()) << kind;
    EXPECT_GT(hear(*opened.source, 1, 20s).seconds_of_sound, 0.9) << kind;
  }
}

TEST_F(TlsTest, WithoutTheTestsRootItsCertificateIsBad) {
  options.ca_file.clear(); // the system's roots
  const Opened opened = open(tls_url("good", "/live/440.mp3"));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_TRUE(opened.unverified);
}

TEST_F(TlsTest, ARedirectionToABadCertificateIsMarked) {
  const Opened opened = open(radio.url("/to/x?url=" + escaped(tls_url("self", "/live/440.mp3"))));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_TRUE(opened.unverified);
}

TEST_F(TlsTest, ATroubleWithoutCertificatesIsNotMarked) {
  const Opened opened = open(radio.url("/to/x?url=" + escaped(radio.url("/live/440.mp3"))));
  ASSERT_NE(opened.source, nullptr);
  EXPECT_FALSE(opened.unverified);
}

TEST_F(TlsTest, PasswordsGoToTrustedServersAlone) {
  EXPECT_NE(open(tls_url("good", "/live/440.mp3?password=1", "me:word@")).source, nullptr);
  EXPECT_NE(radio.heads("/live/440.mp3").find("Authorization: Basic"), std::string::npos);
  const Opened opened = open(tls_url("self", "/live/880.mp3?password=1", "me:word@"));
  EXPECT_EQ(opened.source, nullptr);
  EXPECT_GE(radio.hits("/live/880.mp3"), 1);
  EXPECT_EQ(radio.heads("/live/880.mp3").find("Authorization"), std::string::npos) << radio.heads("/live/880.mp3");
}

std::string list_of(const std::string& segment) {
  return "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n" + segment + "\n#EXT-X-ENDLIST\n";
}

TEST_F(TlsTest, WhatAListNamesIsCheckedToo) {
  const Opened good = open(radio.text_url(list_of(tls_url("good", "/file/5500.ts")), "audio/x-mpegurl"));
  ASSERT_NE(good.source, nullptr);
  EXPECT_FALSE(good.unverified);
  const Opened bad = open(radio.text_url(list_of(tls_url("self", "/file/5501.ts")), "audio/x-mpegurl"));
  ASSERT_NE(bad.source, nullptr);
  EXPECT_TRUE(bad.unverified);
}

TEST_F(TlsTest, CookiesGoToTrustedServersAlone) {
  for (const bool trusted : {true, false}) {
    const std::string path = "/text/x?type=audio/x-mpegurl&cookie=a%3db%3bpath%3d/&body=";
    const std::string kind = trusted ? "good" : "self";
    const std::string file = trusted ? "/file/5500.ts" : "/file/5501.ts";
    ASSERT_NE(open(tls_url(kind, path + escaped(list_of(tls_url(kind, file))))).source, nullptr) << kind;
    EXPECT_EQ(radio.heads(file).find("Cookie: a=b") != std::string::npos, trusted) << radio.heads(file);
  }
}

TEST_F(TlsTest, AHandshakeThatDiesIsGivenUpAndSaidSo) {
  for (const auto& [kind, trouble] : {std::pair("silent", Trouble::not_answering), {"torn", Trouble::not_secure}}) {
    const auto begin = std::chrono::steady_clock::now();
    const Opened opened = open(tls_url(kind, "/live/440.mp3"));
    EXPECT_EQ(opened.source, nullptr) << kind;
    EXPECT_EQ(opened.trouble, trouble) << kind;
    EXPECT_FALSE(opened.unverified) << kind;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s) << kind;
  }
}

class TlsPlayerTest : public PlayerTest {
protected:
  HostileRadio radio;
};

TEST_F(TlsPlayerTest, ABadCertificateIsHeardAndTold) {
  const auto ports = radio.tls(options.ca_file);
  play("https://127.0.0.1:" + ports.at("self") + "/live/440.mp3");
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_TRUE(until_said("unverified server")) << told();
}

TEST_F(TlsPlayerTest, AListThatStandsStillIsTriedAgain) {
  play(radio.url("/list/still.m3u8?target=1"));
  ASSERT_TRUE(until_hears(550)) << told();
  EXPECT_TRUE(until_said("lost, retry in ")) << told();
}

} // namespace
} // namespace lumotune::media::rig
