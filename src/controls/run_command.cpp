#include "controls/run_command.h"

#include <new>

#include "files/error.h"

namespace pallomir {

void RunCommand(World& world, const std::function<void()>& command) {
  try {
    command();
  } catch (const ProgramEnd&) {
    throw;
  } catch (const CommandError& error) {
    world.ShowMessage(error.what(), error.Title());
  } catch (const std::bad_alloc&) {
    world.ShowMessage("There is not enough memory for this.", {});
  }
}

}  // namespace pallomir
