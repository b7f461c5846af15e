#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace pallomir {

/// What is wrong with the shape of a file that the program writes: a sentence, or nothing when it is whole (or is none
/// of the program's files). Written apart from the program's own readers, which forgive more.
std::string FaultOf(const std::filesystem::path& path);

/// Looks over a recording's folder for files that are torn or were left behind half written.
class FileWatch {
 public:
  explicit FileWatch(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// The file was damaged from outside: what it holds now, there or in a copy that is kept of it, is no fault.
  void Excuse(const std::filesystem::path& path);

  /// The first fault found, with the file's name, or nothing.
  std::string FirstFault() const;

 private:
  std::filesystem::path folder_;
  std::set<std::string> excused_;
};

}  // namespace pallomir
