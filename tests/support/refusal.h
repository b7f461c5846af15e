#pragma once

#include <string>

#include "pallomir/files/error.h"

namespace pallomir {

/// What the user reads if `command` is refused, after "END " if the program ends with it; empty if the command
/// succeeds.
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
