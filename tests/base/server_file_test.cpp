// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/server_file.h"

#include "tests/support/base_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

const wchar_t* const name = L"Orb_Data\\orb_server.tt";

struct Read {
  explicit Read(BaseWorld& w) { base::read_server_file(w.folder, w.error_log, L"Here", lines, address); }
  base::TextLines lines;
  std::wstring address = L"before";
};

TEST(ServerFile, TheSeventhLineHasTheAddressFromItsSixteenthCharacter) {
  BaseWorld w;
  w.put(name, "1\r\n2\r\n3\r\n4\r\n5\r\n\r\n123456789012345http://s");
  const Read read(w);
  EXPECT_EQ(read.address, L"http://s");
  EXPECT_EQ(read.lines.size(), 7U);
  EXPECT_EQ(w.get(L"Orb_Data\\error.log"), "(none)");
}

TEST(ServerFile, WithSixLinesIsRestoredAndToldOf) {
  BaseWorld w;
  w.put(name, "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n");
  w.put(L"Orb_Data\\orb_server.tt.tmp", "backup");
  const Read read(w);
  EXPECT_EQ(read.address, L"before");
  EXPECT_EQ(w.get(name), "backup");
  EXPECT_NE(w.get(L"Orb_Data\\error.log").find("(Here) orb_server.tt"), std::string::npos);
}

TEST(ServerFile, ThatIsTooLongCountsAsNone) {
  BaseWorld w;
  const std::string most(base::max_server_bytes - 7, '\n');
  w.put(name, most + "1234567");
  EXPECT_EQ(Read(w).address, L"");
  w.put(name, most + "12345678");
  EXPECT_EQ(Read(w).address, L"before");
}

} // namespace
} // namespace lumotune::test
