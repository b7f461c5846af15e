#pragma once

#include <string>

#include "pallomir/files/error.h"

namespace pallomir {

/// What the user reads when `command` is refused, as "TITLE: text" or "text", behind "END " when the program ends with
/// it; empty when the command goes through.
template <class Command>
std::string Refusal(Command command) {
  const auto said = [](const CommandError& error) {
    return (error.Title().empty() ? "" : error.Title() + ": ") + error.what();
  };
  try {
    command();
  } catch (const ProgramEnd& end) {
    return "END " + said(end);
  } catch (const CommandError& error) {
    return said(error);
  }
  return {};
}

}  // namespace pallomir
