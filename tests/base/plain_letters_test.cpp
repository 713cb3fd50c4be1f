// SPDX-License-Identifier: LGPL-2.1-or-later
// Letters without case and diacritics, as text and in the code page.
#include "base/plain_letters.h"

#include "base/text.h"
#include "platform/memory/files.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace lumotune::base {
namespace {

TEST(PlainLetters, CaseAndDiacriticsGo) {
  EXPECT_EQ(plain_letters(L"Příliš ŽLUŤOUČKÝ kůň úpěl ďábelské ódy"), L"prilis zlutoucky kun upel dabelske ody");
  EXPECT_EQ(plain_letters(L"ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ"), L"acdeeinorstuuyz");
  EXPECT_EQ(plain_letters(L"Ľúbivá ŕba, kĺb, vôňa, ĹŔĽÔÄ"), L"lubiva rba, klb, vona, lrloa");
  EXPECT_EQ(plain_letters(L"Zażółć gęślą jaźń ŁĄŚŹŻĆĘŃÓ"), L"zazolc gesla jazn laszzceno");
  EXPECT_EQ(plain_letters(L"Größe ÄÖÜ äöü Straße"), L"grosse aou aou strasse");
  EXPECT_EQ(plain_letters(L"Hosszú őű ŐŰ"), L"hosszu ou ou");
  EXPECT_EQ(plain_letters(L"ăâîșțşţ đ ø œ æ ĳ þ ſ ı İ"), L"aaistst d o oe ae ij th s i i");
}

TEST(PlainLetters, OtherCharactersAreLowerCaseAtMost) {
  EXPECT_EQ(plain_letters(L"Rock 80's & ×÷§ €"), L"rock 80's & ×÷§ €");
  EXPECT_EQ(plain_letters(L"РАДИО Ωμ"), L"радио ωμ");
  EXPECT_EQ(plain_letters(L""), L"");
  EXPECT_EQ(plain_letters(std::wstring(2, L'\0')), std::wstring(2, L'\0'));
}

// Every byte of the code page is what its character is.
TEST(PlainLetters, TheCodePagesTableAgreesWithTheText) {
  const platform::memory::Codec codec;
  const PlainLetters letters(codec);
  for (int byte = 0; byte < 256; ++byte) {
    const std::string stored(1, static_cast<char>(byte));
    std::string plain;
    letters.append(plain, stored);
    EXPECT_EQ(codec.decode(plain), plain_letters(codec.decode(stored))) << byte;
  }
}

TEST(PlainLetters, WhatIsTypedIsLikeWhatIsStored) {
  const platform::memory::Codec codec;
  const PlainLetters letters(codec);
  std::string bytes(256, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  std::string stored;
  letters.append(stored, bytes);
  EXPECT_EQ(letters.of(codec.decode(bytes)), stored);
  EXPECT_EQ(letters.of(L"Brønnøysund"), "bronnoysund") << "letters that the code page lacks, but not their plain form";
  EXPECT_EQ(letters.of(L"радио"), std::nullopt);
  EXPECT_EQ(letters.of(L""), "");
}

} // namespace
} // namespace lumotune::base
