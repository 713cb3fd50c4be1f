// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

struct CodecContract : testing::Test {
  Backend b;
};

TEST_F(CodecContract, CzechLettersHaveTheirBytes) {
  EXPECT_EQ(b.codec.encode(L"Příliš žluťoučký kůň"), "P\xf8\xedli\x9a \x9elu\x9dou\xe8k\xfd k\xf9\xf2");
  EXPECT_EQ(b.codec.decode("\x8e\x8a\xc8\xd8\x80"), L"ŽŠČŘ€");
}

TEST_F(CodecContract, EveryByteIsOneCharacterAndComesBack) {
  std::string all;
  for (int i = 0; i < 256; ++i)
    all += static_cast<char>(i);
  const std::wstring text = b.codec.decode(all);
  EXPECT_EQ(text.size(), 256U);
  EXPECT_EQ(b.codec.encode(text), all);
}

TEST_F(CodecContract, WhatTheCodePageLacksIsReplaced) {
  EXPECT_EQ(b.codec.encode(L"あ"), "?");
  EXPECT_EQ(b.codec.encode(L""), "");
  EXPECT_EQ(b.codec.decode(""), L"");
}

} // namespace
} // namespace lumotune::contract
