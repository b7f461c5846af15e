#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// A fuzz target is a function of bytes. The fuzzer calls every target by the same name; in the tests, which run the
// corpus through it, each has its own name.
#ifdef PALLOMIR_FUZZER
#define FUZZ_TARGET(name) extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
#else
#define FUZZ_TARGET(name) int name(const uint8_t* data, size_t size)
#endif

/// A condition for every input. If it fails the program ends, which both the fuzzer and the tests notice.
#define REQUIRE(condition)                                                         \
  do {                                                                             \
    if (!(condition)) {                                                            \
      std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                \
    }                                                                              \
  } while (false)
