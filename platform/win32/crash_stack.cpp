// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/crash_stack.h"

#include <winternl.h>

#include <cstring>

namespace lumotune::platform::win32 {
namespace {

constexpr int most_modules = 1000;

// Not by NtCurrentTeb(), of whose reading at a fixed place GCC 12 warns.
const TEB& own_block() {
  const TEB* block = nullptr;
#ifdef _WIN64
  asm volatile("mov %%gs:0x30, %0" : "=r"(block));
#else
  asm volatile("mov %%fs:0x18, %0" : "=r"(block));
#endif
  return *block;
}

// The headers of an image that is mapped at that address; none where there is no image.
const IMAGE_NT_HEADERS* headers_at(std::uintptr_t base) {
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  if (dos->e_magic != IMAGE_DOS_SIGNATURE || dos->e_lfanew <= 0 || dos->e_lfanew > 4096)
    return nullptr;
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + static_cast<std::uintptr_t>(dos->e_lfanew));
  return headers->Signature == IMAGE_NT_SIGNATURE ? headers : nullptr;
}

bool in_image(std::uintptr_t base, std::uintptr_t address) {
  if (address < base)
    return false;
  const IMAGE_NT_HEADERS* headers = headers_at(base);
  return headers != nullptr && address - base < headers->OptionalHeader.SizeOfImage;
}

char plain(wchar_t c) {
  const bool kept = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'.' ||
                    c == L'-' || c == L'_';
  return kept ? static_cast<char>(c) : '_';
}

// What follows the last separator of a path.
void copy_file_name(const UNICODE_STRING& path, std::array<char, 40>& name) {
  const std::size_t length = path.Length / sizeof(wchar_t);
  std::size_t begin = length;
  while (begin > 0 && path.Buffer[begin - 1] != L'\\')
    --begin;
  std::size_t to = 0;
  for (std::size_t from = begin; from < length && to + 1 < name.size(); ++from)
    name[to++] = plain(path.Buffer[from]);
  name[to] = '\0';
}

struct Stack {
  std::uintptr_t low;
  std::uintptr_t high;
};

Stack own_stack() {
  const auto* block = reinterpret_cast<const NT_TIB*>(&own_block());
  return {reinterpret_cast<std::uintptr_t>(block->StackLimit), reinterpret_cast<std::uintptr_t>(block->StackBase)};
}

bool on_stack(std::uintptr_t address) {
  const Stack stack = own_stack();
  return address % sizeof(void*) == 0 && address >= stack.low && address + sizeof(void*) <= stack.high;
}

std::uintptr_t word_at(std::uintptr_t address) {
  return *reinterpret_cast<const std::uintptr_t*>(address);
}

} // namespace

CodePlace place_of(std::uintptr_t address) noexcept {
  CodePlace place;
  const LIST_ENTRY& list = own_block().ProcessEnvironmentBlock->Ldr->InMemoryOrderModuleList;
  const LIST_ENTRY* each = list.Flink;
  for (int count = 0; each != nullptr && each != &list && count < most_modules; ++count, each = each->Flink) {
    const auto* module = CONTAINING_RECORD(each, LDR_DATA_TABLE_ENTRY, InMemoryOrderLinks);
    const auto base = reinterpret_cast<std::uintptr_t>(module->DllBase);
    if (base == 0 || !in_image(base, address))
      continue;
    copy_file_name(module->FullDllName, place.module);
    place.offset = static_cast<std::uint32_t>(address - base);
    break;
  }
  return place;
}

#ifdef _WIN64

std::uintptr_t running_at(const CONTEXT& context) noexcept {
  return context.Rip;
}

bool step_to_caller(CONTEXT& context) noexcept {
  const std::uintptr_t before = context.Rsp;
  if (!on_stack(before))
    return false;
  DWORD64 base = 0;
  PRUNTIME_FUNCTION const function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
  if (function == nullptr) { // it has no frame: the return address is what the stack begins with
    context.Rip = word_at(before);
    context.Rsp += sizeof(void*);
  } else {
    void* handler_data = nullptr;
    DWORD64 frame = 0;
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &handler_data, &frame, nullptr);
  }
  return context.Rip != 0 && context.Rsp > before;
}

#else

std::uintptr_t running_at(const CONTEXT& context) noexcept {
  return context.Eip;
}

// Functions without a frame pointer are missed.
bool step_to_caller(CONTEXT& context) noexcept {
  const std::uintptr_t frame = context.Ebp;
  if (!on_stack(frame) || !on_stack(frame + sizeof(void*)) || frame < context.Esp)
    return false;
  context.Eip = word_at(frame + sizeof(void*));
  context.Ebp = word_at(frame);
  context.Esp = frame + 2 * sizeof(void*);
  return context.Eip != 0;
}

#endif

std::array<char, 33> own_build_id() noexcept {
  std::array<char, 33> text{"none"};
  const auto base = reinterpret_cast<std::uintptr_t>(GetModuleHandleW(nullptr));
  const IMAGE_NT_HEADERS* headers = headers_at(base);
  if (headers == nullptr || headers->OptionalHeader.NumberOfRvaAndSizes <= IMAGE_DIRECTORY_ENTRY_DEBUG)
    return text;
  const IMAGE_DATA_DIRECTORY& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DEBUG];
  const auto* entry = reinterpret_cast<const IMAGE_DEBUG_DIRECTORY*>(base + directory.VirtualAddress);
  for (std::size_t left = directory.Size / sizeof *entry; left > 0; --left, ++entry) {
    constexpr std::size_t signature_bytes = 16;
    if (entry->Type != IMAGE_DEBUG_TYPE_CODEVIEW || entry->SizeOfData < 4 + signature_bytes)
      continue;
    const auto* record = reinterpret_cast<const unsigned char*>(base + entry->AddressOfRawData);
    if (std::memcmp(record, "RSDS", 4) != 0)
      continue;
    // Three numbers with their lowest byte first, then eight bytes.
    static constexpr std::array<unsigned char, signature_bytes> order{3, 2, 1,  0,  5,  4,  7,  6,
                                                                      8, 9, 10, 11, 12, 13, 14, 15};
    for (std::size_t i = 0; i < signature_bytes; ++i) {
      const unsigned char byte = record[4 + order[i]];
      text[2 * i] = "0123456789abcdef"[byte >> 4];
      text[2 * i + 1] = "0123456789abcdef"[byte & 15];
    }
    break;
  }
  return text;
}

} // namespace lumotune::platform::win32
