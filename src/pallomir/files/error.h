#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "pallomir/files/printable.h"

namespace pallomir {

/// Ends a command. The text is one sentence that says what is wrong, in which file and where. RunCommand, which wraps
/// every event handler, shows it in a message box under `title` (the application's name if empty); throwers leave the
/// session consistent. Texts from files may contain any bytes; only printable ones are shown.
class CommandError : public std::runtime_error {
 public:
  explicit CommandError(const std::string& text, std::string title = {})
      : std::runtime_error(Printable(text)), title_(std::move(title)) {}
  const std::string& Title() const noexcept { return title_; }

 private:
  std::string title_;
};

/// As CommandError, but the program cannot continue: it exits once the user has read the message.
class ProgramEnd : public CommandError {
 public:
  using CommandError::CommandError;
};

/// The user stopped a long operation; no message is shown.
class Interrupted : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace pallomir
