#include "files/file_utility.h"

#include "files/error.h"
#include "files/file_reader.h"
#include "files/parameter_header.h"
#include "files/platform.h"
#include "files/save_file.h"
#include "files/text_header.h"

namespace pallomir::FileUtility {

bool FileExists(std::string_view path) {
  std::error_code error;
  const auto status = std::filesystem::status(PlatformPath(path), error);
  return !error && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string GetExtension(std::string_view path) {
  const size_t dot = path.rfind('.');
  return dot == std::string_view::npos ? std::string() : std::string(path.substr(dot + 1));
}

uint64_t FileLength(std::string_view path) {
  return FileReader(path).Length();
}

long GetHeaderLength(std::string_view path) {
  try {
    if (GetExtension(path) != "parms") return TextHeaderLength(ReadText(path, kTextHeaderLimit));
    FileReader file(path);
    return ParameterHeaderLength(file);
  } catch (const CommandError&) {
    return -1;
  }
}

void SafeguardFile(std::string_view path) {
  const std::string content = ReadText(path);
  const std::string copy = std::string(path) + ".bak";
  const bool headerOnly = TextHeaderLength(content) == static_cast<long>(content.size());
  if (headerOnly && FileExists(copy)) return;
  SaveFile file(copy);
  file.Write(content);
  file.Commit();
}

}  // namespace pallomir::FileUtility
