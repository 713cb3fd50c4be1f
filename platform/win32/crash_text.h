// SPDX-License-Identifier: LGPL-2.1-or-later
// The text that a crash leaves: where the program was, and nothing about its user.
#pragma once

#include <string>

namespace lumotune::platform::win32 {

// The longest text, in bytes, and the most frames that it tells.
constexpr std::size_t max_crash_text = 4096;
constexpr std::size_t max_crash_frames = 48;

// From then on an exception that nobody handles, std::terminate, abort and a call of a pure virtual function write one
// text to `name` below the program's own folder, over that of an earlier run, and then the process ends as it would
// have ended, with the exception's code; terminate and abort end it with STATUS_FATAL_APP_EXIT. Further crashes of the
// same run, on other threads or while the text is made, write nothing. The calling thread keeps stack for the text of
// its own overflow; others may have too little. Not seen: what ends the process without asking it (a fail-fast of the
// stack protector, a damaged heap, TerminateProcess).
//
// The text is UTF-8 and has lines "version", "build" (of the image's RSDS record, or "none"), "system", "code", "kind",
// "thread" and "frame MODULE+OFFSET", the innermost first; a frame is a module's file name and an offset in it. It
// holds no addresses, contents of registers or of the stack, paths or texts of the program's. tools/resolve-crash reads
// it.
//
// `version` is ASCII. Once, by the thread of the user interface.
void arm_crash_text(const std::wstring& name, const std::string& version);

} // namespace lumotune::platform::win32
