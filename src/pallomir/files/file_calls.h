#pragma once

#include <cerrno>

namespace pallomir {

/// The calls to the system that saving is made of.
enum class FileCall { Open, Write, Flush, Rename };

/// Asked before each of them, where a test has set it: the errno that the call is to fail with, or 0 to let it happen.
inline int (*FaultBefore)(FileCall call) = nullptr;

/// True when a test wants the call to fail; errno is set then.
inline bool Faulted(FileCall call) {
  const int fault = FaultBefore ? FaultBefore(call) : 0;
  if (fault) errno = fault;
  return fault != 0;
}

}  // namespace pallomir
