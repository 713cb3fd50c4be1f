// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace lumotune::media {

// Multi-threaded COM for the thread it lives on, which cubeb wants on Windows; nothing elsewhere.
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
