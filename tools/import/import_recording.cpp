#include "tools/import/import_recording.h"

#include <cmath>
#include <optional>

#include "files/error.h"
#include "files/number_text.h"
#include "files/platform.h"
#include "files/raw_header.h"
#include "files/save_file.h"
#include "tools/import/position_file.h"
#include "tools/import/spike_writer.h"
#include "tools/raw/record_order.h"

namespace pallomir {

namespace {

constexpr size_t kCopySize = size_t{1} << 20;

/// Opens a raw file whose extension must stand for one of `kinds`.
RawFile OpenRaw(const std::string& path, std::initializer_list<RawKind> kinds, std::string_view wanted) {
  const RawLayout* layout = LayoutByExtension(path);
  if (!layout || std::find(kinds.begin(), kinds.end(), layout->Kind) == kinds.end())
    throw CommandError(path + " is not " + std::string(wanted) + ", by its extension.");
  return RawFile(path, *layout);
}

void MakeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw CommandError("The folder " + PathText(folder) + " cannot be made (" + error.message() + ").");
}

/// A copy byte by byte, also of what is not a whole record. A file that is there already is left alone.
void CopyFile(const std::string& source, const std::filesystem::path& target, Progress& progress) {
  std::error_code error;
  if (std::filesystem::equivalent(PlatformPath(source), target, error)) return;
  FileReader from(source);
  SaveFile to(PathText(target));
  std::vector<unsigned char> block(kCopySize);
  progress.Begin("bytes copied", from.Length());
  for (uint64_t place = 0; place < from.Length(); place += block.size()) {
    const size_t count = static_cast<size_t>(std::min<uint64_t>(block.size(), from.Length() - place));
    from.Read(place, block.data(), count);
    to.Write(block.data(), count);
    progress.Reached(place + count);
  }
  to.Commit();
}

void WriteVideoSampling(const std::filesystem::path& path, double frameRate) {
  SaveFile file(PathText(path));
  file.Write(std::to_string(VideoSampling(frameRate)));
  file.Commit();
}

std::filesystem::path NameOf(const std::string& path) {
  return PlatformPath(path).filename();
}

/// As the header has it, 0 when it does not say.
int WaveformLengthOf(const RawFile& spikes) {
  const std::vector<double> length = HeaderNumbers(spikes.Header(), "WaveformLength");
  return length.empty() || !(std::abs(length[0]) < 1e6) ? 0 : static_cast<int>(length[0]);
}

/// The raw files, all of them opened before anything is written.
struct RawRecording {
  explicit RawRecording(const ImportRequest& request)
      : Spikes(OpenRaw(request.Spikes, {RawKind::Tetrode, RawKind::SingleElectrode}, "a spike file (.Ntt or .Nse)")) {
    if (!request.Video.empty()) Video = OpenRaw(request.Video, {RawKind::Video}, "a video file (.Nvt)");
    if (!request.Events.empty()) Events = OpenRaw(request.Events, {RawKind::Events}, "an events file (.Nev)");
  }

  RawFile Spikes;
  std::optional<RawFile> Video;
  std::optional<RawFile> Events;
};

/// Reads all but the waveforms.
ImportReport LookThrough(RawRecording& raw, const RecordOrder& order, Progress& progress) {
  ImportReport report;
  report.SpikesName = raw.Spikes.Name();
  report.Spikes = order.Stamps();
  report.SpikesTrailing = raw.Spikes.TrailingBytes();
  report.WaveformLength = WaveformLengthOf(raw.Spikes);
  if (raw.Video) {
    report.HasVideo = true;
    report.Video = ReadTracking(*raw.Video, progress);
    report.VideoTrailing = raw.Video->TrailingBytes();
  }
  if (raw.Events) {
    report.HasEvents = true;
    raw.Events->ForEachRecord(
        progress, [&](const unsigned char* record, uint64_t) { report.Events.Add(raw.Events->StampOf(record)); });
    report.EventsTrailing = raw.Events->TrailingBytes();
  }
  return report;
}

}  // namespace

ImportReport ImportRecording(const ImportRequest& request, Progress& progress) {
  if (!(request.PixelsPerCm >= 0) || !std::isfinite(request.PixelsPerCm))
    throw CommandError("Pixels per cm must be a number above 0, not " + DoubleText(request.PixelsPerCm) + ".");
  RawRecording raw(request);
  const RecordOrder order(raw.Spikes, progress);
  ImportReport report = LookThrough(raw, order, progress);

  const std::filesystem::path out = PlatformPath(request.Out);
  const std::filesystem::path spikesName = NameOf(request.Spikes);
  const std::string stem = PathText(spikesName.stem());
  const std::filesystem::path folder = out / PlatformPath(stem);
  MakeFolder(folder);
  // The analysis report finds a tetrode's spike file by leaving ".parms" off the parameter file's name.
  const bool isTetrode = raw.Spikes.Layout().Kind == RawKind::Tetrode;
  CopyFile(request.Spikes, folder / (isTetrode ? PlatformPath(stem + ".Ntt") : spikesName), progress);
  if (raw.Events) CopyFile(request.Events, folder / NameOf(request.Events), progress);
  WriteVideoSampling(out / "VideoSampling", report.Video.FrameRate);
  WritePositionFile(out / "Pos.p", report.Video, request.PixelsPerCm, request.Date);
  const SpikeOutputs outputs{folder / PlatformPath(stem + ".Ntt.parms"), folder / PlatformPath(stem + ".waveforms")};
  report.SpikesPlaced = WriteSpikes(raw.Spikes, order, report.Video, outputs, request.Date, progress);
  return report;
}

}  // namespace pallomir
