// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/running_mark.h"

#include "platform/win32/late.h"

#include <sddl.h>

namespace lumotune::platform::win32 {
namespace {

constexpr const wchar_t* mark_name = L"Local\\Lumotune.Running";
constexpr const wchar_t* ending_name = L"Local\\Lumotune.Ending";

// All that a copy does with another's objects is to wait. Who is logged in here may do that, so that a copy with fewer
// rights can wait for one with more; all else is for the owner.
class WaitableByOthers {
public:
  WaitableByOthers() {
    const auto convert = late_function<decltype(ConvertStringSecurityDescriptorToSecurityDescriptorW)>(
        L"advapi32.dll", "ConvertStringSecurityDescriptorToSecurityDescriptorW");
    attributes_.nLength = sizeof attributes_;
    if (convert != nullptr)
      convert(L"D:(A;;GA;;;OW)(A;;GA;;;SY)(A;;0x00100000;;;IU)(A;;0x00100000;;;AU)", SDDL_REVISION_1,
              &attributes_.lpSecurityDescriptor, nullptr);
  }
  WaitableByOthers(const WaitableByOthers&) = delete;
  WaitableByOthers& operator=(const WaitableByOthers&) = delete;
  ~WaitableByOthers() { LocalFree(attributes_.lpSecurityDescriptor); }
  [[nodiscard]] SECURITY_ATTRIBUTES* get() {
    return &attributes_;
  } // the system's usual rights where the text is unknown

private:
  SECURITY_ATTRIBUTES attributes_{};
};

} // namespace

bool tells_of_a_copy(DWORD creation_error) {
  return creation_error == ERROR_ALREADY_EXISTS || creation_error == ERROR_ACCESS_DENIED;
}

// The mark is a mutex that its owner never releases; the end of the process does. One that exists but cannot even be
// waited for belongs to a copy with higher privileges.
RunningMark::RunningMark() {
  WaitableByOthers rights;
  mark_.reset(CreateMutexExW(rights.get(), mark_name, CREATE_MUTEX_INITIAL_OWNER, SYNCHRONIZE));
  previous_ = tells_of_a_copy(GetLastError());
  if (previous_ && mark_ != nullptr)
    wait_for_the_end();
}

// Several may wait: one of them becomes the holder, and for the others it is a copy that runs. The holder's event is
// gone with its process, so it is looked for again and again instead of being kept. A process that ends loses its
// objects one after the other: when the event has just gone, the mark follows at once.
void RunningMark::wait_for_the_end() {
  constexpr DWORD slice_ms = 50;
  const ULONGLONG begun = GetTickCount64();
  bool was_ending = false;
  while (GetTickCount64() - begun < longest_wait_ms) {
    const KernelHandle ending(OpenEventW(SYNCHRONIZE, FALSE, ending_name));
    const bool ends = ending != nullptr || GetLastError() == ERROR_ACCESS_DENIED;
    const bool nobody_ends = !ends && !was_ending;
    was_ending = ends;
    const DWORD got = WaitForSingleObject(mark_.get(), nobody_ends ? 0 : slice_ms);
    if (got == WAIT_OBJECT_0 || got == WAIT_ABANDONED) {
      previous_ = false;
      return;
    }
    if (nobody_ends)
      return;
  }
}

void RunningMark::begin_end() {
  if (previous_ || ending_ != nullptr)
    return;
  WaitableByOthers rights;
  ending_.reset(CreateEventExW(rights.get(), ending_name, CREATE_EVENT_MANUAL_RESET, SYNCHRONIZE));
}

} // namespace lumotune::platform::win32
