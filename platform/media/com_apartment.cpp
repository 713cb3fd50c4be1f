// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/com_apartment.h"

#ifdef _WIN32
#include <windows.h>

#include <objbase.h>
#endif

namespace lumotune::media {

#ifdef _WIN32
ComApartment::ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
ComApartment::~ComApartment() {
  if (entered_)
    CoUninitialize();
}
#else
ComApartment::ComApartment() = default;
ComApartment::~ComApartment() = default;
#endif

} // namespace lumotune::media
