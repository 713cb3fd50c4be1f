// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/hardening.h"

#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

// The libraries that the image itself names are loaded before any code of ours: they are such that the system knows by
// name and takes from its own folder in any case (tools/check_exe keeps the list); all others are loaded later.
// Not forbidden: extension points (input methods and screen readers of the old kind come that way) and code made at run
// time (the browser control makes some).
void harden_process() {
  (void)HeapSetInformation(nullptr, HeapEnableTerminationOnCorruption, nullptr, 0);
  (void)SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  (void)SetDllDirectoryW(L"");
  PROCESS_MITIGATION_IMAGE_LOAD_POLICY images{};
  images.NoRemoteImages = 1;
  images.NoLowMandatoryLabelImages = 1;
  images.PreferSystem32Images = 1;
  (void)SetProcessMitigationPolicy(ProcessImageLoadPolicy, &images, sizeof images);
}

} // namespace lumotune::platform::win32
