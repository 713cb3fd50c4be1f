// SPDX-License-Identifier: LGPL-2.1-or-later
// Streams opened without a player, from a server that means harm.
#pragma once

#include "platform/media/source.h"
#include "tests/media/player_rig.h"
#include "tests/media/process.h"

#include <chrono>
#include <map>
#include <string>

#include <gtest/gtest.h>

namespace lumotune::media::rig {

class HostileRadio {
public:
  HostileRadio();
  [[nodiscard]] std::string url(const std::string& path, const std::string& scheme = "http") const;
  [[nodiscard]] std::string text_url(const std::string& body, const std::string& type,
                                     const std::string& more = "") const;
  [[nodiscard]] const std::string& port() const { return port_; }
  [[nodiscard]] int hits(const std::string& path);
  [[nodiscard]] long long sent(const std::string& path); // bytes
  [[nodiscard]] std::string heads(const std::string& path);
  // The ports of its kinds of certificate; the file of the root is in `root`.
  [[nodiscard]] std::map<std::string, std::string> tls(std::string& root);

private:
  [[nodiscard]] std::string ask(const std::string& line);
  Process process_;
  std::string port_;
};

// What was read of a stream until it ended, or until there was enough.
struct Heard {
  ReadResult last = ReadResult::lost;
  double seconds_of_sound = 0;
  std::chrono::milliseconds took{0};
};

class SourceTest : public ::testing::Test {
protected:
  SourceTest();
  [[nodiscard]] Opened open(const std::string& address) { return Source::open(address, options); }
  // Reads for no longer than that, and no more than that much sound.
  [[nodiscard]] Heard hear(Source& source, double seconds, std::chrono::milliseconds longest, bool decodes = true);

  HostileRadio radio;
  SourceOptions options;

private:
  std::chrono::steady_clock::time_point give_up_ = std::chrono::steady_clock::time_point::max();
};

// What this process holds in memory at most from its making on, above what it held then.
class MemoryWatch {
public:
  MemoryWatch();
  [[nodiscard]] long grown_mb() const;

private:
  long before_kb_;
};

[[nodiscard]] std::string escaped(const std::string& text); // for an address

} // namespace lumotune::media::rig
