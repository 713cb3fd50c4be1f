// SPDX-License-Identifier: LGPL-2.1-or-later
#include "companions/identity.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::test {
namespace {

struct IdentityWorld {
  platform::memory::EventLoop loop;
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Machine machine;
  base::ProgramFolder folder{files, codec, machine};
  base::Settings settings;
  companions::Identity identity{{folder, loop, settings}};

  IdentityWorld() {
    settings.idh = L"stare idh";
    settings.h = L"stare h";
    settings.nickname = L"stary";
  }
  void options(const std::string& bytes) { (void)files.replace(L"C:\\Orb\\Orb_Data\\options.ini", bytes); }
  std::wstring encrypt(std::wstring text) { return identity.Encrypt(text); }
  std::wstring encrypt2(std::wstring text) { return identity.Encrypt2(text); }
};

const std::string head = "0\r\n1\r\n\r\n2\r\n3\r\n4\r\n";

TEST(Identity, ValuesAreTakenByLineAndPosition) {
  IdentityWorld w;
  w.options(head + "12345678901idh\r\n\r\n1234567890123tajn\xe9\r\n1234567890123P\xf8"
                   "ezd\xedvka\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  EXPECT_EQ(w.settings.idh, L"idh");
  EXPECT_EQ(w.settings.h, L"tajné");
  EXPECT_EQ(w.settings.nickname, L"stary") << "not read by this one";
  EXPECT_TRUE(w.identity.LoadOptionsNick());
  EXPECT_EQ(w.settings.nickname, L"Přezdívka");
}

TEST(Identity, ALineShorterThanItsPrefixGivesAnEmptyValue) {
  IdentityWorld w;
  w.options(head + "1234567890\r\n1234567890123\r\nx\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  EXPECT_EQ(w.settings.idh, L"");
  EXPECT_EQ(w.settings.h, L"");
  EXPECT_TRUE(w.identity.LoadOptionsNick());
  EXPECT_EQ(w.settings.nickname, L"");
}

TEST(Identity, AMissingOrShortFileLeavesTheValues) {
  IdentityWorld w;
  EXPECT_FALSE(w.identity.LoadOptionsLodin());
  EXPECT_FALSE(w.identity.LoadOptionsNick());
  w.options(head + "12345678901idh\r\n\r\n");
  EXPECT_FALSE(w.identity.LoadOptionsLodin()) << "six lines";
  EXPECT_EQ(w.settings.idh, L"stare idh");
  EXPECT_EQ(w.settings.h, L"stare h");
  w.options(head + "12345678901idh\r\n1234567890123h\r\n\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  EXPECT_FALSE(w.identity.LoadOptionsNick()) << "seven lines";
  EXPECT_EQ(w.settings.nickname, L"stary");
}

TEST(Identity, AFileThatVanishedIsNotRememberedByItsLines) {
  IdentityWorld w;
  w.options(head + "12345678901idh\r\n1234567890123h\r\n1234567890123n\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  w.files.make_unreadable(L"C:\\Orb\\Orb_Data\\options.ini");
  EXPECT_FALSE(w.identity.LoadOptionsLodin());
  EXPECT_FALSE(w.identity.LoadOptionsNick());
}

TEST(Identity, EachReadingReadsTheFileAnew) {
  IdentityWorld w;
  w.options(head + "12345678901idh\r\n1234567890123h\r\n1234567890123n\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsNick());
  w.options(head + "12345678901jina\r\n1234567890123jine\r\n1234567890123jiny\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsNick());
  EXPECT_EQ(w.settings.nickname, L"jiny");
  EXPECT_EQ(w.settings.idh, L"stare idh") << "not read by this one";
  w.options(head + "12345678901treti\r\n1234567890123treti\r\n");
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  EXPECT_EQ(w.settings.idh, L"treti");
  EXPECT_EQ(w.settings.h, L"treti");
}

TEST(Identity, HostileFilesGiveWhatStandsThere) {
  IdentityWorld w;
  const std::string huge(500'000, 'x');
  w.options(head + huge + "\r" + std::string(20, '\0') + "\n1234567890123" + huge);
  EXPECT_TRUE(w.identity.LoadOptionsLodin());
  EXPECT_EQ(w.settings.idh.size(), huge.size() - 11);
  EXPECT_EQ(w.settings.h, std::wstring(7, L'\0'));
  EXPECT_TRUE(w.identity.LoadOptionsNick());
  EXPECT_EQ(w.settings.nickname.size(), huge.size());
}

TEST(Identity, PrehodSwapsNeighbours) {
  IdentityWorld w;
  EXPECT_EQ(w.identity.Prehod(L""), L"");
  EXPECT_EQ(w.identity.Prehod(L"a"), L"a");
  EXPECT_EQ(w.identity.Prehod(L"ab"), L"ba");
  EXPECT_EQ(w.identity.Prehod(L"abc"), L"bac");
  EXPECT_EQ(w.identity.Prehod(L"abcd"), L"badc");
}

TEST(Identity, PrehodLetsEventsRunOncePerPair) {
  IdentityWorld w;
  const auto before = w.loop.pending_runs();
  (void)w.identity.Prehod(L"abcde");
  EXPECT_EQ(w.loop.pending_runs() - before, 3U);
}

TEST(Identity, AnEndingProgramGetsItsAnswerWithoutFurtherEvents) {
  IdentityWorld w;
  w.loop.at(0, [&] { w.loop.quit(); });
  EXPECT_EQ(w.identity.Prehod(L"abcdef"), L"badcfe");
  EXPECT_EQ(w.loop.pending_runs(), 1U);
}

TEST(Identity, WhatEventsDoToTheArgumentDoesNotMatter) {
  IdentityWorld w;
  std::wstring text = L"abcdef";
  w.loop.at(0, [&] { text = L"x"; });
  EXPECT_EQ(w.identity.Prehod(text), L"badcfe");
}

TEST(Identity, EncryptWritesTheCodesOfTheSwappedText) {
  IdentityWorld w;
  std::wstring text = L"ab";
  EXPECT_EQ(w.identity.Encrypt(text), L"98-97-");
  EXPECT_EQ(text, L"ba") << "the argument is left swapped";
  EXPECT_EQ(w.encrypt(L""), L"");
  EXPECT_EQ(w.encrypt(L"\u0159\u017e\x7"), L"158-248-7-") << "codes of the code page";
  EXPECT_EQ(w.encrypt(L"\u8a9e"), L"63-") << "a character that the code page lacks";
}

TEST(Identity, Encrypt2IsTheOtherWayRound) {
  IdentityWorld w;
  for (const wchar_t* text : {L"", L"a", L"ab", L"tajné heslo", L"Příliš žluťoučký kůň"})
    EXPECT_EQ(w.encrypt2(w.encrypt(text)), text);
  std::wstring codes = L"98-97-";
  EXPECT_EQ(w.identity.Encrypt2(codes), L"ab");
  EXPECT_EQ(codes, L"ba");
}

TEST(Identity, Encrypt2ReturnsWhatItCollectedBeforeABadPiece) {
  IdentityWorld w;
  EXPECT_EQ(w.encrypt2(L"98-97-x-99-"), L"ab");
  EXPECT_EQ(w.encrypt2(L"98-97-256-99-"), L"ab");
  EXPECT_EQ(w.encrypt2(L"255-97-"), L"a\u02d9") << "the last code of all";
  EXPECT_EQ(w.encrypt2(L"98-97-99999999999999999999-99-"), L"ab");
  EXPECT_EQ(w.encrypt2(L"98-9 7-99"), L"b");
  EXPECT_EQ(w.encrypt2(L"98-97- -99"), L"ab") << "a blank is no number";
  EXPECT_EQ(w.encrypt2(L"--98----97"), L"ab") << "empty pieces are skipped";
  EXPECT_EQ(w.encrypt2(L" 98 -97"), L"ab");
  EXPECT_EQ(w.encrypt2(L"nic"), L"");
  EXPECT_EQ(w.encrypt2(std::wstring(100000, L'-')), L"");
}

TEST(Identity, HesloIsTwoPassesOfBoth) {
  IdentityWorld w;
  EXPECT_EQ(w.identity.Heslo(L""), L"");
  // "97-" is swapped to "79-" and back by the second pass, whose codes "57-55-45-" are swapped at last.
  EXPECT_EQ(w.identity.Heslo(L"a"), L"755--554-");
  std::wstring given = L"tajn\u00e9";
  std::wstring first = w.encrypt(given);
  const std::wstring expected = w.identity.Prehod(w.encrypt(w.identity.Prehod(first)));
  EXPECT_EQ(w.identity.Heslo(given), expected);
  EXPECT_EQ(expected.find_first_not_of(L"0123456789-"), std::wstring::npos);
}

TEST(Identity, HesloLeavesTheSharedValue) {
  IdentityWorld w;
  w.settings.h = L"abcd";
  (void)w.identity.Heslo(w.settings.h);
  EXPECT_EQ(w.settings.h, L"abcd");
}

} // namespace
} // namespace lumotune::test
