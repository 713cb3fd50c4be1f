// SPDX-License-Identifier: LGPL-2.1-or-later
// The downloader: fetches the address before "/@/" into the file after it. The file grows while the reply arrives;
// after a failure there is none.
#include "demo/companions/note.h"

#include <windows.h>

#include <winhttp.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <memory>
#include <optional>
#include <string>

namespace {

struct CloseInternet {
  using pointer = HINTERNET;
  void operator()(HINTERNET handle) const { WinHttpCloseHandle(handle); }
};
using Internet = std::unique_ptr<void, CloseInternet>;

constexpr int time_limit_ms = 30000;
// An older download of the same file may still hold it: it ends within its own time limit.
constexpr int held_tries = 350;
constexpr DWORD held_wait_ms = 100;

// The number of bytes that the server promises; nothing when it does not say.
std::optional<std::uint64_t> promised_length(HINTERNET request) {
  std::array<wchar_t, 32> text{};
  DWORD size = sizeof text;
  if (WinHttpQueryHeaders(request, WINHTTP_QUERY_CONTENT_LENGTH, nullptr, text.data(), &size, nullptr) == 0)
    return std::nullopt;
  return std::wcstoull(text.data(), nullptr, 10);
}

// Writes what has arrived at once, so that the file shows the progress. A reply that breaks off is a failure.
bool copy_reply(HINTERNET request, HANDLE file) {
  std::array<char, 16384> buffer{};
  std::uint64_t total = 0;
  while (true) {
    DWORD there = 0;
    DWORD got = 0;
    if (WinHttpQueryDataAvailable(request, &there) == 0)
      return false;
    if (there == 0)
      return total == promised_length(request).value_or(total);
    const DWORD wanted = std::min(there, static_cast<DWORD>(buffer.size()));
    if (WinHttpReadData(request, buffer.data(), wanted, &got) == 0)
      return false;
    if (got == 0)
      return total == promised_length(request).value_or(total);
    DWORD written = 0;
    if (WriteFile(file, buffer.data(), got, &written, nullptr) == 0 || written != got)
      return false;
    total += got;
  }
}

HANDLE make_file(const std::wstring& path) {
  for (int tries = 1;; ++tries) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION || tries == held_tries)
      return file;
    Sleep(held_wait_ms);
  }
}

bool is_found(HINTERNET request) {
  DWORD status = 0;
  DWORD size = sizeof status;
  return WinHttpSendRequest(request, nullptr, 0, nullptr, 0, 0, 0) != 0 &&
         WinHttpReceiveResponse(request, nullptr) != 0 &&
         WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, nullptr, &status, &size,
                             nullptr) != 0 &&
         status == HTTP_STATUS_OK;
}

bool store_reply(HINTERNET request, const std::wstring& path) {
  const HANDLE file = make_file(path);
  if (file == INVALID_HANDLE_VALUE)
    return false;
  const bool whole = copy_reply(request, file);
  CloseHandle(file);
  if (!whole)
    DeleteFileW(path.c_str());
  return whole;
}

bool fetch(const std::wstring& address, const std::wstring& path) {
  std::array<wchar_t, 256> host{};
  std::array<wchar_t, 4096> target{};
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  parts.lpszHostName = host.data();
  parts.dwHostNameLength = static_cast<DWORD>(host.size());
  parts.lpszUrlPath = target.data();
  parts.dwUrlPathLength = static_cast<DWORD>(target.size());
  if (WinHttpCrackUrl(address.c_str(), 0, 0, &parts) == 0)
    return false;
  const Internet session(WinHttpOpen(L"load", WINHTTP_ACCESS_TYPE_NO_PROXY, nullptr, nullptr, 0));
  if (session == nullptr)
    return false;
  WinHttpSetTimeouts(session.get(), time_limit_ms, time_limit_ms, time_limit_ms, time_limit_ms);
  const Internet connection(WinHttpConnect(session.get(), host.data(), parts.nPort, 0));
  const Internet request(connection == nullptr
                             ? nullptr
                             : WinHttpOpenRequest(connection.get(), L"GET", target.data(), nullptr, nullptr, nullptr,
                                                  parts.nScheme == INTERNET_SCHEME_HTTPS ? WINHTTP_FLAG_SECURE : 0));
  return request != nullptr && is_found(request.get()) && store_reply(request.get(), path);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  companion::note_start();
  const std::wstring line = companion::arguments();
  const std::size_t cut = line.find(L"/@/");
  if (cut == std::wstring::npos)
    return 2;
  const bool done = fetch(line.substr(0, cut), line.substr(cut + 3));
  companion::note(done ? L"done" : L"failed");
  return done ? 0 : 1;
}
