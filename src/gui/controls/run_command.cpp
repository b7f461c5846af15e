#include "gui/controls/run_command.h"

#include <new>

namespace pallomir {

namespace {

/// A CommandError with a message box's title of its own.
class TitledError : public CommandError {
 public:
  explicit TitledError(const CommandError& error) : CommandError(error) {}
};

}  // namespace

void UnderErrorTitle(const std::function<void()>& part, std::optional<ErrorKind> kind) {
  try {
    part();
  } catch (const CommandError& error) {
    if (kind && error.Kind() != *kind) throw;
    throw TitledError(error);
  }
}

void ShowError(World& world, const CommandError& error) {
  const bool titled = error.Kind() == ErrorKind::OutOfRange || dynamic_cast<const TitledError*>(&error);
  world.ShowMessage(error.what(), titled ? "ERROR" : "");
}

bool RunCommand(World& world, const std::function<void()>& command) {
  try {
    command();
    return true;
  } catch (const CommandError& error) {
    ShowError(world, error);
  } catch (const std::bad_alloc& error) {
    world.ShowMessage(SentenceOf(error), {});
  }
  return false;
}

std::string SentenceOf(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) ? "There is not enough memory for this." : error.what();
}

}  // namespace pallomir
