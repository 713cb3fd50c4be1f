// SPDX-License-Identifier: LGPL-2.1-or-later
// What the build and the entry promise of the process, shown by breaking it: each attempt dies in a process of its own.
#include "platform/win32/hardening.h"
#include "platform/win32/win.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace lumotune::contract {
namespace {

constexpr int stack_buffer_overrun = static_cast<int>(0xC0000409U);

// Not seen through by the compiler.
std::size_t hidden(std::size_t value) {
  volatile std::size_t kept = value;
  return kept;
}

__attribute__((noinline)) char write_past_the_end(std::size_t size) {
  char small[16];
  volatile char* at = small;
  for (std::size_t i = 0; i < size; ++i)
    at[i] = 'x';
  return small[hidden(3)];
}

__attribute__((noinline)) char copy_past_the_end(const std::string& text) {
  char small[16];
  std::memcpy(small, text.data(), hidden(text.size()));
  return small[hidden(3)];
}

__attribute__((noinline)) void leave_something_on_the_stack() {
  volatile char many[256];
  for (volatile char& each : many)
    each = 'x';
}

__attribute__((noinline)) int sum_of_an_unset_array() {
  char many[256]; // NOLINT: unset on purpose
  asm volatile("" : "+m"(many));
  int sum = 0;
  for (const char each : many)
    sum += each;
  return sum;
}

TEST(Win32Hardening, WhatWritesPastItsEndEndsTheProgram) {
  EXPECT_EXIT(write_past_the_end(hidden(64)), testing::ExitedWithCode(stack_buffer_overrun), "");
  EXPECT_EQ(write_past_the_end(hidden(16)), 'x');
}

TEST(Win32Hardening, ACopyPastTheEndIsNotMade) {
  EXPECT_EXIT(copy_past_the_end(std::string(64, 'x')), testing::ExitedWithCode(stack_buffer_overrun), "");
  EXPECT_EQ(copy_past_the_end(std::string(16, 'x')), 'x');
}

TEST(Win32Hardening, AVariableStartsAsZero) {
  leave_something_on_the_stack();
  EXPECT_EQ(sum_of_an_unset_array(), 0);
}

} // namespace
} // namespace lumotune::contract
