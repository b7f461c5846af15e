#pragma once

#include <cerrno>
#include <csignal>
#include <optional>

#include "pallomir/files/file_calls.h"

namespace pallomir {

/// During its lifetime the k-th call (from 1) of a kind, or of any kind, fails; the following ones succeed again.
class InjectedFault {
 public:
  /// Instead of an errno: the program is killed there.
  static constexpr int kKill = -1;

  explicit InjectedFault(int k, std::optional<FileCall> kind = {}, int error = ENOSPC) {
    left_ = k;
    kind_ = kind;
    error_ = error;
    FaultBefore = [](FileCall call) {
      if ((kind_ && *kind_ != call) || --left_ != 0) return 0;
      if (error_ == kKill) std::raise(SIGKILL);
      return error_;
    };
  }
  ~InjectedFault() { FaultBefore = nullptr; }
  InjectedFault(const InjectedFault&) = delete;
  InjectedFault& operator=(const InjectedFault&) = delete;

  /// Calls until the one that fails.
  static int Left() { return left_; }
  static bool Happened() { return left_ <= 0; }

 private:
  static inline int left_ = 0, error_ = 0;
  static inline std::optional<FileCall> kind_;
};

}  // namespace pallomir
