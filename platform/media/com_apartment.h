// SPDX-License-Identifier: LGPL-2.1-or-later
// COM initialization of the device thread.
#pragma once

namespace lumotune::media {

// Multi-threaded COM for the current thread while the object lives: cubeb requires it on Windows. No-op elsewhere.
class ComApartment {
public:
  ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment();

private:
  bool entered_ = false;
};

} // namespace lumotune::media
