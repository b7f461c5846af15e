#pragma once

#include <string>

#include "pallomir/files/error.h"

namespace pallomir {

/// What the user reads when `command` is refused, behind "END " when the program ends with it; empty when the command
/// goes through.
template <class Command>
std::string Refusal(Command command) {
  try {
    command();
  } catch (const ProgramEnd& end) {
    return std::string("END ") + end.what();
  } catch (const CommandError& error) {
    return error.what();
  }
  return {};
}

}  // namespace pallomir
