// The value that guards the stack against overruns (-fstack-protector), and what happens when one is found. The
// compiler's own library asks the cryptographic services for it, whose libraries would be loaded at every start; this
// is made as Microsoft's compiler makes its "security cookie": from what no two starts have in common.
#include <windows.h>

#include <cstdint>
#include <initializer_list>

namespace {

__attribute__((no_stack_protector)) std::uintptr_t NewGuard() {
  FILETIME time;
  LARGE_INTEGER counter;
  GetSystemTimeAsFileTime(&time);
  QueryPerformanceCounter(&counter);
  std::uint64_t mixed = static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  // Addresses are random, too; each part is spread over all bits (splitmix64, https://prng.di.unimi.it/splitmix64.c).
  for (const std::uint64_t part :
       {static_cast<std::uint64_t>(counter.QuadPart), static_cast<std::uint64_t>(GetCurrentProcessId()),
        static_cast<std::uint64_t>(GetCurrentThreadId()), GetTickCount64(), reinterpret_cast<std::uint64_t>(&time)}) {
    mixed = (mixed ^ part) + 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    mixed ^= mixed >> 31;
  }
  return mixed & ~std::uintptr_t{0xFF};  // a zero stops what copies texts
}

}  // namespace

extern "C" {

std::uintptr_t __stack_chk_guard = 0;  // NOLINT(bugprone-reserved-identifier): the compiler's name

// Before every other constructor.
__attribute__((constructor(101), no_stack_protector)) void SetStackGuard() { __stack_chk_guard = NewGuard(); }

[[noreturn]] void __stack_chk_fail() {  // NOLINT(bugprone-reserved-identifier)
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_STACK_BUFFER_OVERRUN));
  __builtin_trap();
}
}
