#pragma once

#include <cerrno>

namespace pallomir {

/// The system calls used for saving.
enum class FileCall { Open, Write, Flush, Rename };

/// Called before each of them if a test has set it; returns the errno with which the call fails, or 0 to let it
/// proceed.
inline int (*FaultBefore)(FileCall call) = nullptr;

/// True, with errno set, if a test makes the call fail.
inline bool Faulted(FileCall call) {
  const int fault = FaultBefore ? FaultBefore(call) : 0;
  if (fault) errno = fault;
  return fault != 0;
}

}  // namespace pallomir
