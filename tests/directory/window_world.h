// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory window with a downloader that answers at once.
#pragma once

#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::directory {

using Names = std::vector<std::wstring>;

struct WindowWorld : testing::Test, test::DirectoryWorld {
  // The downloader brings a file, complete, as soon as it is started.
  void serve(const std::string& list) {
    shell.on_start = [this, list](const platform::memory::Shell::Started& started) {
      if (started.command_line.find(L"size=1") != std::wstring::npos)
        write(L"orb_test_size.tt", "size:" + std::to_string(list.size()) + "\r\n");
      else if (started.command_line.find(L"lt_list.php") != std::wstring::npos)
        write(L"seznam.tt", list);
    };
  }
};

} // namespace lumotune::directory
