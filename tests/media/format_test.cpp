// SPDX-License-Identifier: LGPL-2.1-or-later
// Every kind of sound, of list and of title, from a radio of our own and from files.
#include "platform/media/open_budget.h"
#include "platform/media/wide.h"
#include "tests/media/player_rig.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <utility>

namespace lumotune::media::rig {
namespace {

std::string hex(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    constexpr const char* digits = "0123456789abcdef";
    text += {digits[static_cast<unsigned char>(c) >> 4], digits[c & 15]};
  }
  return text;
}

std::string escaped(const std::string& text) {
  const std::string digits = hex(text);
  std::string all;
  for (std::size_t i = 0; i < digits.size(); i += 2)
    all += "%" + digits.substr(i, 2);
  return all;
}

// A file of silence that says of itself what it likes.
std::string wav(std::uint32_t rate, std::uint16_t channels, std::uint32_t bytes) {
  std::string file;
  const auto add = [&](auto number) { file.append(reinterpret_cast<const char*>(&number), sizeof number); };
  file += "RIFF";
  add(bytes + 36);
  file += "WAVEfmt ";
  add(std::uint32_t{16});
  add(std::uint16_t{1});
  add(channels);
  add(rate);
  add(static_cast<std::uint32_t>(rate * channels * 2U));
  add(static_cast<std::uint16_t>(channels * 2U));
  add(std::uint16_t{16});
  file += "data";
  add(bytes);
  return file + std::string(bytes, '\0');
}

class Format : public PlayerTest {
protected:
  void expect_list(const std::string& type, const std::string& body) {
    texts.clear();
    play(radio.url("/text?type=" + escaped(type) + "&body=" + escaped(body)));
    EXPECT_TRUE(until_hears(440)) << type << "\n" << body << "\n" << told();
    play(radio.url("/live/880.mp3"));
    ASSERT_TRUE(until_hears(880));
  }
  FakeRadio radio;
};

TEST_F(Format, IsFoundByTheBytesWhateverTheTypeSays) {
  for (const char* type : {"text/html", "audio/x-scpls", "application/ogg", "audio/x-mpegurl", ""}) {
    play(radio.url("/live/440.mp3?type=" + escaped(type)));
    EXPECT_TRUE(until_hears(440)) << type << told();
    play(radio.url("/live/500.aac?type=" + escaped(type)));
    EXPECT_TRUE(until_hears(500)) << type << told();
  }
}

// What would make the resampler ask for gigabytes. The worker lives on and plays the next station.
TEST_F(Format, SoundOfNoRateIsUnknown) {
  int number = 0;
  for (const auto& [rate, channels] : {std::pair(1U, 2), std::pair(3999U, 2), std::pair(1000000000U, 2),
                                       std::pair(384001U, 2), std::pair(44100U, 255), std::pair(44100U, 9)}) {
    const std::string name = "odd" + std::to_string(number++) + ".wav";
    std::ofstream(media(name), std::ios::binary) << wav(rate, static_cast<std::uint16_t>(channels), 400000);
    texts.clear();
    play(radio.url("/file/" + name));
    EXPECT_TRUE(until_said("unknown format")) << rate << " " << channels << told();
  }
  play(radio.url("/live/440.mp3"));
  EXPECT_TRUE(until_hears(440)) << told();
}

// The one type that FFmpeg's own look at the bytes would believe.
TEST_F(Format, IsFoundByTheBytesUnderTheTypeOfAac) {
  play(radio.url("/live/440.mp3?type=audio/aac"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Format, OggPlaysAndTellsItsTitle) {
  play(radio.url("/live/600.ogg?type=application/ogg"));
  EXPECT_TRUE(until_hears(600)) << told();
  EXPECT_TRUE(until([this] { return says("Hz: Umělec - Píseň"); })) << told();
  EXPECT_EQ(player().status().codec, L"Vorbis");
  play(radio.url("/live/700.opus?type=application/ogg"));
  EXPECT_TRUE(until_hears(700)) << told();
  play(radio.url("/live/800.oga?type=application/ogg&kbps=700"));
  EXPECT_TRUE(until_hears(800)) << told();
}

TEST_F(Format, FilesPlayToTheirEnd) {
  const std::pair<const char*, double> files[] = {{"300.wav", 300}, {"350.flac", 350}, {"400.wma", 400}};
  for (const auto& [name, hertz] : files) {
    texts.clear();
    play(media(name));
    EXPECT_TRUE(until_hears(hertz)) << name << told();
    ASSERT_TRUE(until_said("stopped: ended")) << name << told();
    EXPECT_EQ(states.back(), 1);
  }
}

TEST_F(Format, FilesHaveAddressesAndCzechNames) {
  play(media("Příšerně žluťoučký.flac"));
  EXPECT_TRUE(until_hears(350)) << told();
  player().stop();
  ASSERT_TRUE(until([this] { return device->silent(); }));
  play("file://" + media("P%C5%99%C3%AD%C5%A1ern%C4%9B%20%C5%BElu%C5%A5ou%C4%8Dk%C3%BD.flac"));
  EXPECT_TRUE(until_hears(350)) << told();
  play(media("missing.mp3"));
  EXPECT_TRUE(until_said("not found, retry")) << told();
}

TEST_F(Format, FilesOfAServerPlayToTheirEnd) {
  play(radio.url("/file/350.flac"));
  EXPECT_TRUE(until_hears(350)) << told();
  EXPECT_TRUE(until_said("stopped: ended")) << told();
  EXPECT_EQ(radio.hits("/file/350.flac"), 1);
}

// Frames of MP3 lean on those before them: the first ones of who joins in the middle are silence.
TEST_F(Format, TheMiddleOfAStationIsHeardAtOnce) {
  play(radio.url("/live/440.mp3?from=50001&burst=4"));
  EXPECT_TRUE(until_hears(440)) << told();
  EXPECT_LT(device->silent_frames, static_cast<std::uint64_t>(device->rate) / 100);
}

TEST_F(Format, HlsPlays) {
  play(radio.url("/file/550.m3u8"));
  EXPECT_TRUE(until_hears(550)) << told();
  play(radio.url("/file/650.m3u8"));
  EXPECT_TRUE(until_hears(650)) << told();
}

TEST_F(Format, EncryptedHlsPlays) {
  play(radio.url("/file/450.m3u8"));
  EXPECT_TRUE(until_hears(450)) << told();
  EXPECT_EQ(radio.hits("/file/450.key"), 1);
}

TEST_F(Format, MediaServersPlay) {
  std::string address = radio.url("/mms/420.wma");
  address.replace(0, 4, "mms");
  play(address);
  EXPECT_TRUE(until_hears(420)) << told();
  EXPECT_TRUE(until([this] { return player().status().codec == L"WMA"; })) << told();
}

TEST_F(Format, ListsLeadToTheirStations) {
  expect_list("audio/x-scpls", "[playlist]\nNumberOfEntries=1\nFile1={base}/live/440.mp3\n");
  expect_list("audio/x-mpegurl", "#EXTM3U\n#EXTINF:-1,Radio\n{base}/live/440.mp3\n");
  expect_list("text/plain", "{base}/live/440.mp3");
  expect_list("video/x-ms-asf", "<ASX><Entry><REF HREF='{base}/live/440.mp3?a=1&amp;b=2'/></Entry></ASX>");
  expect_list("application/xspf+xml", "<?xml version='1.0'?><playlist><trackList><track><location>{base}/live/440.mp3"
                                      "</location></track></trackList></playlist>");
}

TEST_F(Format, ListsAreTriedInTheirOrder) {
  expect_list("audio/x-scpls", "[playlist]\nFile1={base}/nothing\nFile2=ftp://127.0.0.1/\nFile3=/live/440.mp3\n"
                               "File4={base}/never\n");
  EXPECT_GE(radio.hits("/nothing"), 1);
  EXPECT_EQ(radio.hits("/never"), 0);
}

TEST_F(Format, ListsMayNameLists) {
  const std::string inner = "/text?type=audio/x-scpls&body=" + escaped("[playlist]\nFile1={base}/live/440.mp3\n");
  expect_list("audio/x-mpegurl", "{base}" + inner);
}

TEST_F(Format, ListsThatNameThemselvesEnd) {
  std::ofstream(media("self.m3u")) << "#EXTM3U\nself.m3u\nself.m3u\n";
  play(radio.url("/file/self.m3u"));
  EXPECT_TRUE(until_said("retry in ")) << told();
  play(radio.url("/live/440.mp3"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Format, ListsThatNameThemselvesAreOpenedOnceATry) {
  options.retry_scale = 20; // the next try is seconds away
  std::ofstream(media("itself.m3u")) << "#EXTM3U\nitself.m3u\n/file/itself.m3u\n";
  play(radio.url("/file/itself.m3u"));
  ASSERT_TRUE(until_said("unknown format, retry in ")) << told();
  EXPECT_EQ(radio.hits("/file/itself.m3u"), 1);
}

TEST_F(Format, ListsOfListsEndATry) {
  options.retry_scale = 20;
  play(radio.url("/lists/x"));
  ASSERT_TRUE(until_said("unknown format, retry in ")) << told();
  EXPECT_EQ(radio.total_hits(), OpenBudget::max_openings);
}

// What "//host/share/x" is to Windows; here it is the file itself, which would play.
TEST_F(Format, ListsOnDiskReachNoShares) {
  for (const std::string& entry : {"/" + media("300.wav"), "file:///" + media("300.wav"), "file:" + media("300.wav")}) {
    std::ofstream(media("share.m3u")) << entry << "\n";
    texts.clear();
    device->forget();
    play(media("share.m3u"));
    if (entry.starts_with("file:" + media(""))) {
      EXPECT_TRUE(until_hears(300)) << told();
      continue;
    }
    ASSERT_TRUE(until_said("retry in ")) << entry << told();
    EXPECT_FALSE(device->has_heard(300)) << entry;
  }
}

TEST_F(Format, StationsOfAListAreNoFiles) {
  player().set_url(from_utf8(media("300.wav")).value(), platform::AddressOrigin::station);
  ASSERT_TRUE(until([this] { return says("unsupported address"); })) << told();
  player().set_url(from_utf8("/" + media("300.wav")).value(), platform::AddressOrigin::message);
  player().stop();
  player().play();
  ASSERT_TRUE(until([this] { return says("unsupported address"); })) << told();
  player().set_url(from_utf8(media("300.wav")).value(), platform::AddressOrigin::message);
  EXPECT_TRUE(until_hears(300)) << told();
}

TEST_F(Format, ListsOfTheNetworkDoNotReachTheListenersFiles) {
  play(radio.url("/text?type=audio/x-mpegurl&body=" +
                 escaped("#EXTM3U\n" + media("300.wav") + "\nfile://" + media("300.wav"))));
  ASSERT_TRUE(until_said("retry in ")) << told();
  EXPECT_FALSE(device->has_heard(300));
}

TEST_F(Format, ListsOnDiskMayNameFilesBesideThem) {
  std::ofstream(media("beside.m3u")) << "300.wav\r\n";
  play(media("beside.m3u"));
  EXPECT_TRUE(until_hears(300)) << told();
}

TEST_F(Format, TitlesAreReadable) {
  const std::pair<std::string, std::wstring> titles[] = {
      {"StreamTitle='P\xc5\x99\xc3\xad\xc5\xa1"
       "era';",
       L"Příšera"},
      {"StreamTitle='P\xf8\xed\x9a"
       "era';StreamUrl='';",
       L"Příšera"},
      {"StreamTitle='Rock'n'roll';b';", L"Rock'n'roll';b"},
      {"StreamTitle='Dvo&#345;&#225;k &amp; syn';", L"Dvořák & syn"},
  };
  for (const auto& [block, title] : titles) {
    play(radio.url("/live/440.mp3?title=" + hex(block)));
    EXPECT_TRUE(until([&, this] { return player().status().title == title; })) << told();
    play(radio.url("/live/880.mp3"));
    ASSERT_TRUE(until_hears(880));
  }
}

// Of UTF-16, FFmpeg hands on what precedes the first zero byte.
TEST_F(Format, ATitleThatCannotBeReadEndsTheOneBefore) {
  const auto utf16 = [](const std::string& text) {
    std::string wide;
    for (const char c : text)
      wide += {c, '\0'};
    return wide;
  };
  for (const std::string& block : {utf16("StreamTitle='two';"), "StreamTitle='\xff\xfe" + utf16("two") + "';",
                                   std::string("\0S", 2) + utf16("treamTitle='two'"), std::string("StreamTitle='tw")}) {
    play(radio.url("/live/440.mp3?burst=0.5&every=4&title=" + hex("StreamTitle='one';") + "&title=" + hex(block)));
    ASSERT_TRUE(until([this] { return player().status().title == L"one"; })) << told();
    EXPECT_TRUE(
        until([this] { return player().status().phase == Phase::playing && player().status().title.empty(); }, 6000))
        << told();
    player().stop();
  }
}

TEST_F(Format, TitlesFollowTheSongs) {
  play(radio.url("/live/440.mp3?burst=0.5&every=8&title=" + hex("StreamTitle='one';") +
                 "&title=" + hex("StreamTitle='two';") + "&title=" + hex("StreamTitle='';")));
  EXPECT_TRUE(until_said("Hz: one")) << told();
  EXPECT_TRUE(until_said("Hz: two")) << told();
  EXPECT_TRUE(until([this] { return player().status().phase == Phase::playing && player().status().title.empty(); }))
      << told();
}

} // namespace
} // namespace lumotune::media::rig
