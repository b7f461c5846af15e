#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// A fuzz target is one function of bytes. The fuzzer calls every target by one name; among the tests, where the corpus
// is run through it, each has its own.
#ifdef PALLOMIR_FUZZER
#define FUZZ_TARGET(name) extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
#else
#define FUZZ_TARGET(name) int name(const uint8_t* data, size_t size)
#endif

/// What must hold for every input: the fuzzer and the tests both notice when the program ends here.
#define REQUIRE(condition)                                                         \
  do {                                                                             \
    if (!(condition)) {                                                            \
      std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                \
    }                                                                              \
  } while (false)
