#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace pallomir {

/// What is wrong with the structure of a file that the program writes: a sentence, or nothing if it is whole (or not
/// one of the program's files). Written independently of the program's own readers, which tolerate more.
std::string FaultOf(const std::filesystem::path& path);

/// Searches a recording's folder for files that are incomplete or were left behind.
class FileWatch {
 public:
  explicit FileWatch(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// The file was damaged from outside: its present contents, there or in a copy kept of it, are not a fault.
  void Excuse(const std::filesystem::path& path);

  /// The first fault found, with the file's name, or nothing.
  std::string FirstFault() const;

 private:
  std::filesystem::path folder_;
  std::set<std::string> excused_;
};

}  // namespace pallomir
