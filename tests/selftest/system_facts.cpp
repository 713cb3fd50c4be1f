// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/selftest/system_facts.h"

#include <array>
#include <cstdio>

#include <windows.h>
// behind it
#include <winternl.h>

namespace lumotune::selftest {
namespace {

void* system_function(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name));
}

std::string windows_version() {
  using GetVersion = NTSTATUS NTAPI(PRTL_OSVERSIONINFOW);
  RTL_OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  const auto get = reinterpret_cast<GetVersion*>(system_function("RtlGetVersion"));
  if (get == nullptr || get(&version) < 0)
    return "?";
  return std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
         std::to_string(version.dwBuildNumber);
}

std::string wine_version() {
  using GetVersion = const char* CDECL();
  const auto get = reinterpret_cast<GetVersion*>(system_function("wine_get_version"));
  return get == nullptr ? "ne" : get();
}

} // namespace

std::vector<std::string> system_lines() {
  SYSTEM_INFO machine{};
  GetNativeSystemInfo(&machine);
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  SYSTEMTIME now{};
  GetSystemTime(&now);
  std::array<char, 40> date{};
  (void)std::snprintf(date.data(), date.size(), "%04d-%02d-%02d %02d:%02d UTC", now.wYear, now.wMonth, now.wDay,
                      now.wHour, now.wMinute);
  return {"Windows " + windows_version(),
          "Wine " + wine_version(),
          "procesorů " + std::to_string(machine.dwNumberOfProcessors) + ", druh " +
              std::to_string(machine.wProcessorArchitecture),
          "obrazovka " + std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
              std::to_string(GetSystemMetrics(SM_CYSCREEN)) + ", " + std::to_string(dots) +
              " bodů na palec, monitorů " + std::to_string(GetSystemMetrics(SM_CMONITORS)),
          "kódová stránka " + std::to_string(GetACP()),
          std::string("vzdálená plocha ") + (GetSystemMetrics(SM_REMOTESESSION) != 0 ? "ano" : "ne"),
          std::string("čas ") + date.data()};
}

} // namespace lumotune::selftest
