#include "gui/controls/run_command.h"

#include <new>

#include "pallomir/files/error.h"

namespace pallomir {

bool RunCommand(World& world, const std::function<void()>& command) {
  try {
    command();
    return true;
  } catch (const ProgramEnd&) {
    throw;
  } catch (const CommandError& error) {
    world.ShowMessage(error.what(), error.Title());
  } catch (const std::bad_alloc& error) {
    world.ShowMessage(SentenceOf(error), {});
  }
  return false;
}

std::string SentenceOf(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) ? "There is not enough memory for this." : error.what();
}

}  // namespace pallomir
