// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/selftest/part.h"

#include "demo/start/sandbox.h"

#include <array>
#include <optional>

namespace lumotune::selftest {
namespace {

constexpr ULONGLONG longest_silence_ms = 180000;
constexpr DWORD step_ms = 50;
constexpr std::size_t longest_line = 4096;

struct Started {
  sandbox::Handle job;
  sandbox::Handle process;
  sandbox::Handle output;
};

std::optional<Started> start_with_pipe(std::wstring line) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE input = nullptr;
  HANDLE output = nullptr;
  if (CreatePipe(&input, &output, &inherited, 0) == 0)
    return std::nullopt;
  Started started{sandbox::Handle(CreateJobObjectW(nullptr, nullptr)), nullptr, sandbox::Handle(input)};
  const sandbox::Handle its(output);
  SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(started.job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESTDHANDLES;
  how.hStdOutput = output;
  PROCESS_INFORMATION made{};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr,
                     nullptr, &how, &made) == 0)
    return std::nullopt;
  started.process.reset(made.hProcess);
  AssignProcessToJobObject(started.job.get(), made.hProcess);
  ResumeThread(made.hThread);
  CloseHandle(made.hThread);
  return started;
}

// What is there; nothing when nobody will write any more, empty when there is nothing yet.
std::optional<std::string> read_some(HANDLE output) {
  DWORD there = 0;
  if (PeekNamedPipe(output, nullptr, 0, nullptr, &there, nullptr) == 0)
    return std::nullopt;
  std::array<char, 4096> bytes{};
  DWORD count = 0;
  if (there > 0 && ReadFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0)
    return std::nullopt;
  return std::string(bytes.data(), count);
}

void take_lines(Result& result, std::string& text, const std::function<void(const Result&)>& tell) {
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
    const int before = result.passed + result.skipped + static_cast<int>(result.failed.size());
    take_line(result, std::string_view(text).substr(0, end));
    text.erase(0, end + 1);
    if (result.passed + result.skipped + static_cast<int>(result.failed.size()) != before)
      tell(result);
  }
  if (text.size() > longest_line)
    text.clear();
}

} // namespace

Result run_part(const std::wstring& program, const std::wstring& words,
                const std::function<void(const Result&)>& tell) {
  Result result;
  const ULONGLONG begun = GetTickCount64();
  const std::optional<Started> started = start_with_pipe(L"\"" + program + L"\" " + words);
  if (!started)
    return result;
  std::string text;
  ULONGLONG spoken = begun;
  bool silent = false;
  // The end of the program counts, not that of the pipe, which what it started may keep open.
  while (true) {
    const bool ended = WaitForSingleObject(started->process.get(), 0) == WAIT_OBJECT_0;
    const std::optional<std::string> more = read_some(started->output.get());
    if (more && !more->empty()) {
      spoken = GetTickCount64();
      text += *more;
      take_lines(result, text, tell);
      continue;
    }
    silent = GetTickCount64() - spoken > longest_silence_ms;
    if (ended || silent)
      break;
    WaitForSingleObject(started->process.get(), step_ms); // its end needs no step; its pipe cannot be waited for
  }
  GetExitCodeProcess(started->process.get(), &result.exit_code);
  result.whole = !silent && result.running.empty();
  result.seconds = static_cast<unsigned>((GetTickCount64() - begun) / 1000);
  return result;
}

} // namespace lumotune::selftest
