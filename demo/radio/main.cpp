// SPDX-License-Identifier: LGPL-2.1-or-later
// The small radio of the demonstration as one program: the community's server and the stations' sound, on this machine
// only.
//   demo_radio [FOLDER [PORT]]   FOLDER has what demo/export_radio.py made; without it, the program's own folder
// Prints its port, a line, as soon as it answers. Ends when it is ended.
#include "demo/radio/server.h"

#include <charconv>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

constexpr std::uint16_t usual_port = 47800;

std::filesystem::path own_folder() {
#ifdef _WIN32
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
#else
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
#endif
}

std::uint16_t port_of(const std::string& text) {
  std::uint16_t port = usual_port;
  (void)std::from_chars(text.data(), text.data() + text.size(), port);
  return port;
}

int run(const std::filesystem::path& folder, std::uint16_t wanted) {
  try {
    const demo_radio::Socket listener = demo_radio::listen_here(wanted);
    const std::string port = std::to_string(listener.port());
    const demo_radio::Programme programme(folder, "http://127.0.0.1:" + port);
    std::puts(port.c_str());
    std::fflush(stdout);
    demo_radio::serve(listener, programme);
  } catch (const std::exception& wrong) {
    std::fprintf(stderr, "demo_radio: %s\n", wrong.what());
    return 1;
  }
}

} // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** words) {
  const std::wstring port = count > 2 ? words[2] : L"";
  return run(count > 1 ? std::filesystem::path(words[1]) : own_folder(),
             port_of(std::string(port.begin(), port.end())));
}
#else
int main(int count, char** words) {
  return run(count > 1 ? std::filesystem::path(words[1]) : own_folder(), port_of(count > 2 ? words[2] : ""));
}
#endif
