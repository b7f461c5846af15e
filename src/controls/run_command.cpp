#include "controls/run_command.h"

#include <new>

#include "files/error.h"

namespace pallomir {

bool RunCommand(World& world, const std::function<void()>& command) {
  try {
    command();
    return true;
  } catch (const ProgramEnd&) {
    throw;
  } catch (const CommandError& error) {
    world.ShowMessage(error.what(), error.Title());
  } catch (const std::bad_alloc&) {
    world.ShowMessage("There is not enough memory for this.", {});
  }
  return false;
}

}  // namespace pallomir
