#include "pallomir/files/file_utility.h"

#include "pallomir/files/file_calls.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"

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

std::string RemoveExtension(std::string_view path) {
  const size_t separator = path.find_last_of("\\/");
  const size_t name = separator == std::string_view::npos ? 0 : separator + 1;
  const size_t dot = path.substr(name).rfind('.');
  return std::string(dot == std::string_view::npos ? path : path.substr(0, name + dot));
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

bool RenameFile(std::string_view from, std::string_view to) {
  const std::filesystem::path target = PlatformPath(to);
  std::error_code error, ignored;
  if (Faulted(FileCall::Rename))
    error.assign(errno, std::generic_category());
  else
    std::filesystem::rename(PlatformPath(from), target, error);
  if (error == std::errc::no_such_file_or_directory && std::filesystem::exists(target.parent_path(), ignored))
    return false;
  if (error)
    throw FaultOfPath(ErrorKind::NotWritten, PlatformPath(from),
                      "cannot be renamed to " + PathText(target) + " (" + error.message() + ")");
  return true;
}

void SafeguardFile(std::string_view path, const std::function<bool(std::string_view)>& worthKeeping) {
  // Saving replaces a link itself; its target is not written to and needs no backup.
  std::error_code error;
  if (std::filesystem::is_symlink(PlatformPath(path), error)) return;
  const std::string content = ReadText(path);
  const std::string copy = std::string(path) + ".bak";
  if (FileExists(copy) && !worthKeeping(content)) return;
  SaveFile file(copy);
  file.Write(content);
  file.Commit();
}

}  // namespace pallomir::FileUtility
