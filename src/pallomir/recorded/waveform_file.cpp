#include "pallomir/recorded/waveform_file.h"

#include "pallomir/files/bytes.h"
#include "pallomir/files/error.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

std::string RequiredName(std::string_view parameterFile) {
  std::string name = WaveformFileName(parameterFile);
  if (name.empty())
    throw CommandError(ErrorKind::Missing, "There is no waveform file for " + NameText(PlatformPath(parameterFile)) +
                                               ": that name does not end in \".Ntt.parms\".");
  return name;
}

}  // namespace

std::string WaveformFileName(std::string_view parameterFile) {
  constexpr size_t replaced = std::string_view("Ntt.parms").size();
  if (!IsParameterFileName(parameterFile) || parameterFile.size() < replaced) return {};
  return std::string(parameterFile.substr(0, parameterFile.size() - replaced)) + "waveforms";
}

WaveformFile::WaveformFile(std::string_view parameterFile) : file_(RequiredName(parameterFile)) {}

bool WaveformFile::Read(int64_t n, WaveformRecord& into) {
  if (n < 0 || n >= RecordCount()) return false;
  unsigned char bytes[kWaveformRecordBytes];
  if (file_.ReadUpTo(static_cast<uint64_t>(n) * kWaveformRecordBytes, bytes, sizeof bytes) < sizeof bytes) return false;
  for (size_t i = 0; i < into.size(); ++i) into[i] = LoadLittleEndian<int16_t>(bytes + 2 * i);
  return true;
}

}  // namespace pallomir
