// SPDX-License-Identifier: LGPL-2.1-or-later
#include "demo/start/sandbox.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace sandbox {
namespace {

constexpr DWORD longest_start_ms = 20000;
constexpr DWORD step_ms = 20;

std::optional<std::string> read(const std::filesystem::path& path) {
  std::ifstream source(path, std::ios::binary);
  if (!source)
    return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(source), {});
}

bool replace(const std::filesystem::path& path, const std::string& text) {
  const std::filesystem::path made = path.native() + L".new";
  std::ofstream out(made, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  return out.good() && MoveFileExW(made.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

// The address that a server file names, "http://127.0.0.1:" and digits.
std::string address_in(const std::string& server_file) {
  const std::size_t name = server_file.find("OrbServerAddr::");
  const std::size_t begin = name == std::string::npos ? name : server_file.find("http://127.0.0.1:", name);
  if (begin == std::string::npos)
    return {};
  return server_file.substr(begin, server_file.find_first_not_of("0123456789", begin + 17) - begin);
}

bool change(const std::filesystem::path& path, const std::string& old, const std::string& address) {
  std::optional<std::string> text = read(path);
  if (!text)
    return false;
  bool found = false;
  for (std::size_t at = text->find(old); at != std::string::npos; at = text->find(old, at)) {
    text->replace(at, old.size(), address);
    at += address.size();
    found = true;
  }
  return !found || replace(path, *text);
}

} // namespace

std::wstring own_folder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\'));
}

bool lumotune_runs() {
  return Handle(OpenMutexW(SYNCHRONIZE, FALSE, L"Local\\Lumotune.Running")) != nullptr ||
         GetLastError() == ERROR_ACCESS_DENIED;
}

Handle start(const std::wstring& program, const std::wstring& words, const std::wstring& folder) {
  std::wstring line = L"\"" + program + L"\"" + (words.empty() ? L"" : L" " + words);
  const std::wstring own = folder.empty() ? program.substr(0, program.find_last_of(L'\\')) : folder;
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION made{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, own.c_str(), &how, &made) == 0)
    return nullptr;
  CloseHandle(made.hThread);
  return Handle(made.hProcess);
}

Radio::Radio(const std::wstring& program) : job_(CreateJobObjectW(nullptr, nullptr)) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE input = nullptr;
  HANDLE output = nullptr;
  if (CreatePipe(&input, &output, &inherited, 0) == 0)
    return;
  const Handle ours(input);
  {
    const Handle its(output);
    SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
    launch(program, output);
  }
  if (process_ != nullptr)
    port_ = read_port(input);
}

Radio::~Radio() {
  if (process_ != nullptr)
    TerminateProcess(process_.get(), 0);
}

void Radio::launch(const std::wstring& program, HANDLE output) {
  std::wstring line = L"\"" + program + L"\"";
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESTDHANDLES;
  how.hStdOutput = output;
  how.hStdError = output;
  PROCESS_INFORMATION made{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr,
                     program.substr(0, program.find_last_of(L'\\')).c_str(), &how, &made) == 0)
    return;
  process_.reset(made.hProcess);
  AssignProcessToJobObject(job_.get(), made.hProcess);
  ResumeThread(made.hThread);
  CloseHandle(made.hThread);
}

// Its first line; what is no number is a complaint.
std::uint16_t Radio::read_port(HANDLE input) const {
  std::string line;
  for (DWORD waited = 0; waited < longest_start_ms && line.find('\n') == std::string::npos; waited += step_ms) {
    DWORD there = 0;
    if (PeekNamedPipe(input, nullptr, 0, nullptr, &there, nullptr) == 0)
      return 0;
    std::array<char, 64> bytes{};
    DWORD count = 0;
    if (there > 0 && ReadFile(input, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0)
      line.append(bytes.data(), count);
    else
      Sleep(step_ms);
  }
  const long port = std::strtol(line.c_str(), nullptr, 10);
  return port > 0 && port < 65536 ? static_cast<std::uint16_t>(port) : std::uint16_t{0};
}

bool lay_address(const std::wstring& folder, std::uint16_t port) {
  const std::filesystem::path target(folder);
  const std::filesystem::path server = target / L"Orb_Data" / L"orb_server.tt";
  const std::string old = address_in(read(server).value_or(""));
  const std::string address = "http://127.0.0.1:" + std::to_string(port);
  if (old.empty() || old == address)
    return !old.empty();
  // The server file is the last: what stands in it is what the others are changed from.
  return change(target / L"radios.tt", old, address) && change(server.native() + L".tmp", old, address) &&
         change(server, old, address);
}

} // namespace sandbox
