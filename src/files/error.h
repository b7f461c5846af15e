#pragma once

#include <stdexcept>
#include <string>

namespace pallomir {

/// What ends a command: its text is one sentence that says what was wrong, in which file and where.
/// It is caught in one place, round every event handler; the session is whole when it is thrown.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The user asked for a long piece of work to stop; nothing needs to be said about it.
class Interrupted : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace pallomir
