// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/status_text.h"

#include <gtest/gtest.h>

namespace lumotune::player {
namespace {

using platform::StreamStatus;
using Phase = platform::StreamPhase;
using Trouble = platform::StreamTrouble;

StreamStatus playing() {
  StreamStatus status;
  status.phase = Phase::playing;
  status.title = L"Umělec - Píseň";
  status.codec = L"MP3";
  status.kbps = 128;
  status.hertz = 44100;
  return status;
}

std::wstring waiting(Trouble trouble, int seconds, int code = 0) {
  StreamStatus status;
  status.phase = Phase::waiting;
  status.trouble = trouble;
  status.retry_seconds = seconds;
  status.http_code = code;
  return state_text(status);
}

std::wstring stopped(Trouble trouble) {
  StreamStatus status;
  status.trouble = trouble;
  return status_text(status);
}

TEST(StatusText, SaysEveryState) {
  StreamStatus status;
  EXPECT_EQ(status_text(status), L"Zastaveno");
  status.phase = Phase::connecting;
  EXPECT_EQ(status_text(status), L"Připojování...");
  status.phase = Phase::buffering;
  status.percent = 40;
  status.title = L"x";
  EXPECT_EQ(status_text(status), L"Načítání do vyrovnávací paměti (40 %)");
}

TEST(StatusText, SaysWhatPlays) {
  StreamStatus status = playing();
  EXPECT_EQ(status_text(status), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz") << "the music first";
  status.title.clear();
  EXPECT_EQ(status_text(status), L"Přehrávání · MP3 128 kbps 44,1 kHz");
  status.codec.clear();
  status.kbps = 0;
  status.hertz = 0;
  EXPECT_EQ(status_text(status), L"Přehrávání");
  status.title = L"Umělec - Píseň";
  EXPECT_EQ(status_text(status), L"Umělec - Píseň");
}

TEST(StatusText, SaysWhyNothingPlaysAndWhenItIsTriedAgain) {
  EXPECT_EQ(waiting(Trouble::lost, 4), L"Spojení ztraceno, další pokus za 4 s");
  EXPECT_EQ(waiting(Trouble::lost, 0), L"Spojení ztraceno");
  EXPECT_EQ(waiting(Trouble::not_answering, 15), L"Stanice neodpovídá, další pokus za 15 s");
  EXPECT_EQ(waiting(Trouble::not_found, 0, 404), L"Stanice nenalezena (404)");
  EXPECT_EQ(waiting(Trouble::not_found, 0), L"Soubor nenalezen");
  EXPECT_EQ(waiting(Trouble::refused_by_server, 1, 403), L"Stanice odmítla spojení (403), další pokus za 1 s");
  EXPECT_EQ(waiting(Trouble::refused_by_server, 60, 503), L"Stanice odmítla spojení (503), další pokus za 60 s");
  EXPECT_EQ(waiting(Trouble::no_such_host, 2), L"Adresu stanice nelze najít, další pokus za 2 s");
  EXPECT_EQ(waiting(Trouble::not_secure, 2), L"Zabezpečené spojení se nezdařilo, další pokus za 2 s");
  EXPECT_EQ(waiting(Trouble::unknown_format, 2), L"Neznámý formát zvuku, další pokus za 2 s");
  EXPECT_EQ(stopped(Trouble::no_address), L"Není zadána adresa stanice");
  EXPECT_EQ(stopped(Trouble::unsupported_address), L"Neznámý druh adresy");
  EXPECT_EQ(stopped(Trouble::ended), L"Přehrávání skončilo");
  EXPECT_EQ(waiting(Trouble::internal, 3), L"Přehrávání selhalo, další pokus za 3 s");
  StreamStatus status = playing();
  status.trouble = Trouble::no_device;
  EXPECT_EQ(status_text(status), L"Zvukové zařízení není k dispozici");
}

TEST(StatusText, SaysFirstThatAServerIsNotWhoItClaimsToBe) {
  StreamStatus status = playing();
  EXPECT_EQ(warning_text(status), L"");
  status.unverified = true;
  EXPECT_EQ(warning_text(status), L"Neověřený server");
  EXPECT_EQ(status_text(status), L"Umělec - Píseň · MP3 128 kbps 44,1 kHz");
  status.just_started = true;
  EXPECT_EQ(status_text(status), L"Neověřený server");
  EXPECT_EQ(Status1(status, true), L"Neověřený server                Neověřený server");
  status.phase = Phase::buffering;
  status.just_started = false;
  EXPECT_EQ(status_text(status), L"Neověřený server");
  // What keeps it from playing is worth more.
  status.phase = Phase::playing;
  status.just_started = true;
  status.trouble = Trouble::no_device;
  EXPECT_EQ(status_text(status), L"Zvukové zařízení není k dispozici");
  for (const Phase phase : {Phase::stopped, Phase::connecting, Phase::waiting}) {
    status.phase = phase;
    EXPECT_EQ(warning_text(status), L"");
  }
}

TEST(StatusText, HasADecimalComma) {
  StreamStatus status = playing();
  EXPECT_EQ(quality_text(status), L"MP3 128 kbps 44,1 kHz");
  status.hertz = 48000;
  EXPECT_EQ(quality_text(status), L"MP3 128 kbps 48 kHz");
  status.hertz = 22050;
  EXPECT_EQ(quality_text(status), L"MP3 128 kbps 22,05 kHz");
  status.hertz = 11025;
  status.kbps = 0;
  EXPECT_EQ(quality_text(status), L"MP3 11,025 kHz");
  status.codec.clear();
  status.hertz = 0;
  EXPECT_EQ(quality_text(status), L"");
}

// The display cuts at these columns.
TEST(StatusColumns, StandWhereTheDisplayCuts) {
  const std::wstring shown = L"Umělec - Píseň · MP3 128 kbps 44,1 kHz";
  const std::wstring heard = Status1(playing(), true);
  EXPECT_EQ(heard.substr(0, 32), L"Přehrávání                      ");
  EXPECT_EQ(heard.substr(32), shown);
  const std::wstring silent = Status1(playing(), false);
  EXPECT_EQ(silent.substr(0, 32), heard.substr(0, 32));
  EXPECT_EQ(silent.substr(32, 22), std::wstring(22, L' '));
  EXPECT_EQ(silent.substr(54), shown);
}

TEST(StatusColumns, StandWhateverTheLengths) {
  StreamStatus status = playing();
  status.phase = Phase::buffering;
  status.percent = 70;
  const std::wstring text = Status1(status, false);
  EXPECT_EQ(text.substr(0, 32), L"Načítání do vyrovnávací paměti (");
  EXPECT_EQ(text.substr(54), L"Načítání do vyrovnávací paměti (70 %)");
  EXPECT_EQ(Status1(status, true).substr(32), L"Načítání do vyrovnávací paměti (70 %)");
}

TEST(StatusColumns, SayTheStateWhereThereIsNoTitle) {
  EXPECT_EQ(Status1({}, false).substr(54), L"Zastaveno");
  EXPECT_EQ(Status1({}, true).substr(32), L"Zastaveno");
}

} // namespace
} // namespace lumotune::player
