// SPDX-License-Identifier: LGPL-2.1-or-later
// The parts of starting the demonstration: its radio, the address in its folder, a program.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

namespace sandbox {

struct CloseKernelHandle {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseKernelHandle>;

// Without a backslash at its end.
[[nodiscard]] std::wstring own_folder();

// Whether a Lumotune of this session runs.
[[nodiscard]] bool lumotune_runs();

// A program with its full path, in its own folder or in `folder`, with further words of its command line; its process,
// nullptr where it did not start.
[[nodiscard]] Handle start(const std::wstring& program, const std::wstring& words = {},
                           const std::wstring& folder = {});

// The small radio as a process of its own that ends with this object, and with this process whatever ends that.
class Radio {
public:
  // Waits, at most 20 seconds, until it answers. On failure its port is 0.
  explicit Radio(const std::wstring& program);
  Radio(const Radio&) = delete;
  Radio& operator=(const Radio&) = delete;
  ~Radio();
  [[nodiscard]] std::uint16_t port() const { return port_; }

private:
  void launch(const std::wstring& program, HANDLE output);
  [[nodiscard]] std::uint16_t read_port(HANDLE input) const;

  Handle job_;
  Handle process_;
  std::uint16_t port_ = 0;
};

// Makes the program folder name the radio at that port, in place of the one that it named. Each file is replaced whole.
// False where one cannot be read or written.
[[nodiscard]] bool lay_address(const std::wstring& folder, std::uint16_t port);

} // namespace sandbox
