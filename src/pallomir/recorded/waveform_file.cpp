#include "pallomir/recorded/waveform_file.h"

#include "pallomir/files/bytes.h"
#include "pallomir/files/error.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

std::filesystem::path RequiredPath(const std::filesystem::path& parameterFile) {
  std::filesystem::path path = WaveformFilePath(parameterFile);
  if (path.empty())
    throw CommandError(ErrorKind::Missing, "There is no waveform file for " + NameText(parameterFile) +
                                               ": that name does not end in \".Ntt.parms\".");
  return path;
}

}  // namespace

std::filesystem::path WaveformFilePath(const std::filesystem::path& parameterFile) {
  constexpr size_t replaced = std::string_view("Ntt.parms").size();
  const auto& native = parameterFile.native();
  if (!IsParameterFileName(parameterFile) || native.size() < replaced) return {};
  std::filesystem::path path = native.substr(0, native.size() - replaced);
  return path += "waveforms";
}

WaveformFile::WaveformFile(const std::filesystem::path& parameterFile) : file_(RequiredPath(parameterFile)) {}

bool WaveformFile::Read(int64_t n, WaveformRecord& into) {
  if (n < 0 || n >= RecordCount()) return false;
  unsigned char bytes[kWaveformRecordBytes];
  if (file_.ReadUpTo(static_cast<uint64_t>(n) * kWaveformRecordBytes, bytes, sizeof bytes) < sizeof bytes) return false;
  for (size_t i = 0; i < into.size(); ++i) into[i] = LoadLittleEndian<int16_t>(bytes + 2 * i);
  return true;
}

}  // namespace pallomir
