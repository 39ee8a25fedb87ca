// Whether the tests run under sanitizers: everything takes ten times as long then, and far more memory.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define PEDIGREEWATCH_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PEDIGREEWATCH_ADDRESS_SANITIZER 1
#endif
#endif

namespace pedigreewatch::test {

#ifdef PEDIGREEWATCH_ADDRESS_SANITIZER
inline constexpr bool has_address_sanitizer = true;
#else
inline constexpr bool has_address_sanitizer = false;
#endif

/// How many random cases a test draws: the many that prove a figure or a share are drawn without sanitizers, which look
/// for undefined behaviour and find it in the few as well.
constexpr int cases(int without, int under_sanitizers) {
  return has_address_sanitizer ? under_sanitizers : without;
}

}  // namespace pedigreewatch::test
