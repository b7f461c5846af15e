#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace pallomir {

/// A folder whose name contains a blank and a non-ASCII letter, removed with its contents after the test.
class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() / ("pallomir tést " + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The path of a file of the folder.
  std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  /// Writes a file, creating its folders, and returns its path.
  std::string Put(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path path = path_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.string();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace pallomir
