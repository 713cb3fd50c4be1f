// SPDX-License-Identifier: LGPL-2.1-or-later
// Another program, started and ended by a test.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace lumotune::media::rig {

class Process {
public:
  Process() = default;
  explicit Process(std::vector<std::string> command); // its own output and input are pipes to us
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  Process(Process&& other) noexcept { *this = std::move(other); }
  Process& operator=(Process&& other) noexcept;
  ~Process() { end(); }

  void end(); // asks it to end, then makes it; waits
  void write_line(const std::string& line);
  [[nodiscard]] std::string read_line(); // empty at the end of its output
  [[nodiscard]] bool running() const { return pid_ > 0; }

private:
  int pid_ = 0;
  int to_ = -1;
  int from_ = -1;
};

// Of an address of this machine.
[[nodiscard]] int free_port(const std::string& address);
[[nodiscard]] bool port_answers(const std::string& address, int port);

} // namespace lumotune::media::rig
