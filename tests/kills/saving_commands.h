#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pallomir {

/// A command that saves: Run(folder, version) writes its files, of other content by version (1, 2, ..), into a folder
/// in which its data directory "TT1" stands.
struct SavingCommand {
  std::string Name;
  std::function<void(const std::string& folder, int version)> Run;
  /// Files of an earlier version stand there when it is run; otherwise the folder is new.
  bool OverEarlier = true;
};

std::vector<SavingCommand> SavingCommands();

/// The import of a tetrode of its own name into the folder, as the command line does it.
void ImportTetrode(const std::string& folder, const std::string& tetrode, int version);

}  // namespace pallomir
