#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "pallomir/files/printable.h"

namespace pallomir {

/// What ends a command: its text is one sentence that says what was wrong, in which file and where.
/// RunCommand, round every event handler, shows it in a message box under `title` (the application's own when empty);
/// the session is whole when it is thrown. Names and texts from files may hold anything; what is shown is printable.
class CommandError : public std::runtime_error {
 public:
  explicit CommandError(const std::string& text, std::string title = {})
      : std::runtime_error(Printable(text)), title_(std::move(title)) {}
  const std::string& Title() const noexcept { return title_; }

 private:
  std::string title_;
};

/// As CommandError, but the program cannot go on: it ends once the user has read the message.
class ProgramEnd : public CommandError {
 public:
  using CommandError::CommandError;
};

/// The user asked for a long piece of work to stop; nothing needs to be said about it.
class Interrupted : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace pallomir
