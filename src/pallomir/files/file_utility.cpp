#include "pallomir/files/file_utility.h"

#include "pallomir/files/file_calls.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"

namespace pallomir::FileUtility {

bool FileExists(const std::filesystem::path& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  return !error && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

std::string GetExtension(const std::filesystem::path& path) {
  const std::string text = PathText(path);
  const size_t dot = text.rfind('.');
  return dot == std::string::npos ? std::string() : text.substr(dot + 1);
}

std::filesystem::path RemoveExtension(const std::filesystem::path& path) {
  const auto& native = path.native();
  const auto dot = native.rfind('.');
  const bool inName = dot != std::string::npos && dot >= native.size() - path.filename().native().size();
  return inName ? std::filesystem::path(native.substr(0, dot)) : path;
}

uint64_t FileLength(const std::filesystem::path& path) {
  return FileReader(path).Length();
}

long GetHeaderLength(const std::filesystem::path& path) {
  try {
    if (GetExtension(path) != "parms") return TextHeaderLength(ReadText(path, kTextHeaderLimit));
    FileReader file(path);
    return ParameterHeaderLength(file);
  } catch (const CommandError&) {
    return -1;
  }
}

bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::error_code error, ignored;
  if (Faulted(FileCall::Rename))
    error.assign(errno, std::generic_category());
  else
    std::filesystem::rename(from, to, error);
  if (error == std::errc::no_such_file_or_directory && std::filesystem::exists(to.parent_path(), ignored)) return false;
  if (error)
    throw FaultOfPath(ErrorKind::NotWritten, from,
                      "cannot be renamed to " + PathText(to) + " (" + error.message() + ")");
  return true;
}

void SafeguardFile(const std::filesystem::path& path, const std::function<bool(std::string_view)>& worthKeeping) {
  // Saving replaces a link itself; its target is not written to and needs no backup.
  std::error_code error;
  if (std::filesystem::is_symlink(path, error)) return;
  const std::string content = ReadText(path);
  std::filesystem::path copy = path;
  copy += ".bak";
  if (FileExists(copy) && !worthKeeping(content)) return;
  SaveFile file(copy);
  file.Write(content);
  file.Commit();
}

}  // namespace pallomir::FileUtility
