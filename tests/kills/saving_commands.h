#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace pallomir {

/// A command that saves: Run(folder, version) writes its files, with contents that depend on the version (1, 2, ..), to
/// a folder that contains its data directory "TT1".
struct SavingCommand {
  std::string Name;
  std::function<void(const std::string& folder, int version)> Run;
  /// Files of an earlier version exist when it is run; otherwise the folder is new.
  bool OverEarlier = true;

  /// Keeps test lists readable.
  friend void PrintTo(const SavingCommand& command, std::ostream* out) { *out << command.Name; }
};

std::vector<SavingCommand> SavingCommands();

/// Imports a tetrode of the given name into the folder, as the command line does.
void ImportTetrode(const std::string& folder, const std::string& tetrode, int version);

}  // namespace pallomir
