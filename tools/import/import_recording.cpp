#include "tools/import/import_recording.h"

#include <cmath>
#include <optional>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/text_header.h"
#include "tools/import/output_file.h"
#include "tools/import/position_file.h"
#include "tools/import/spike_writer.h"
#include "tools/raw/record_order.h"

namespace pallomir {

namespace {

constexpr size_t kCopySize = size_t{1} << 20;

/// Opens a raw file whose extension must be that of one of `kinds`.
RawFile OpenRaw(const std::filesystem::path& path, std::initializer_list<RawKind> kinds, std::string_view wanted) {
  const RawLayout* layout = LayoutByExtension(path);
  if (!layout || std::find(kinds.begin(), kinds.end(), layout->Kind) == kinds.end())
    throw FaultOfPath(ErrorKind::Foreign, path, "is not " + std::string(wanted) + ", judging by its extension");
  return RawFile(path, *layout);
}

/// A byte-by-byte copy, including an incomplete record at the end.
void CopyFile(const std::filesystem::path& source, OutputFile& to, ProgressBar& progress) {
  FileReader from(source);
  std::vector<unsigned char> block(kCopySize);
  progress.Begin("bytes copied", from.Length());
  for (uint64_t offset = 0; offset < from.Length(); offset += block.size()) {
    const size_t count = static_cast<size_t>(std::min<uint64_t>(block.size(), from.Length() - offset));
    from.Read(offset, block.data(), count);
    to.Write(block.data(), count);
    progress.Reached(offset + count);
  }
}

/// From the header, 0 if not stated.
int WaveformLengthOf(const RawFile& spikes) {
  const std::vector<double> length = HeaderNumbers(spikes.Header(), "WaveformLength");
  return length.empty() || !(std::abs(length[0]) < 1e6) ? 0 : static_cast<int>(length[0]);
}

/// The raw files, all opened before anything is written.
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

/// Reads everything except the waveforms.
ImportReport LookThrough(const ImportRequest& request, RawRecording& raw, const RecordOrder& order,
                         ProgressBar& progress) {
  ImportReport report;
  report.SpikesName = raw.Spikes.Name();
  report.Spikes = order.Stamps();
  report.SpikesTrailing = raw.Spikes.TrailingBytes();
  report.WaveformLength = WaveformLengthOf(raw.Spikes);
  if (raw.Video) {
    report.HasVideo = true;
    report.Video = ReadTracking(*raw.Video, progress);
    report.VideoTrailing = raw.Video->TrailingBytes();
    Positions& samples = report.Video.Samples;
    samples.PixelsPerCm = request.PixelsPerCm;
    samples.Angles = request.Angles;
    if (!request.HasAngles) ForgetDirections(samples);
    report.Angles = CheckAngles(samples);
  }
  if (raw.Events) {
    report.HasEvents = true;
    raw.Events->ForEachRecord(
        progress, [&](const unsigned char* record, uint64_t) { report.Events.Add(raw.Events->StampOf(record)); });
    report.EventsTrailing = raw.Events->TrailingBytes();
  }
  return report;
}

/// A group of one file.
OutputGroup Alone(OutputFile file, std::function<void(OutputFile&)> make) {
  OutputGroup group;
  group.Files.push_back(std::move(file));
  group.Make = [make = std::move(make)](std::span<OutputFile> files) { make(files[0]); };
  return group;
}

/// The files in the folder that all tetrodes share.
void AddTracking(const ImportRequest& request, const Tracking& video, std::vector<OutputGroup>& groups) {
  const std::filesystem::path& out = request.Out;
  OutputFile sampling(out / "VideoSampling");
  const bool hasVideo = !request.Video.empty();
  if (hasVideo || !sampling.Stands())
    groups.push_back(Alone(std::move(sampling),
                           [&video](OutputFile& file) { file.Write(std::to_string(VideoSampling(video.FrameRate))); }));
  if (hasVideo)
    groups.push_back(Alone(OutputFile(out / "Pos.p", PositionHeader(video.Samples, request.Date)),
                           [&video](OutputFile& file) { WritePositions(video.Samples, file); }));
}

std::vector<std::filesystem::path> SourcesOf(const ImportRequest& request) {
  std::vector<std::filesystem::path> sources;
  for (const std::filesystem::path& source : {request.Spikes, request.Video, request.Events})
    if (!source.empty()) sources.push_back(source);
  return sources;
}

}  // namespace

ImportReport ImportRecording(const ImportRequest& request, ProgressBar& progress) {
  if (!(request.PixelsPerCm >= 0) || !std::isfinite(request.PixelsPerCm))
    throw CommandError(ErrorKind::Refused,
                       "Pixels per cm must be a number above 0, not " + DoubleText(request.PixelsPerCm) + ".");
  RawRecording raw(request);
  const RecordOrder order(raw.Spikes, progress);
  ImportReport report = LookThrough(request, raw, order, progress);

  const std::filesystem::path spikesName = request.Spikes.filename();
  const std::filesystem::path folder = request.Out / spikesName.stem();
  const auto named = [&](const char* ending) { return (folder / spikesName.stem()) += ending; };
  // The analysis report expects a tetrode's spike file under the parameter file's name without ".parms".
  const bool isTetrode = raw.Spikes.Layout().Kind == RawKind::Tetrode;
  std::vector<OutputGroup> groups;
  AddTracking(request, report.Video, groups);
  groups.push_back(Alone(OutputFile(isTetrode ? named(".Ntt") : folder / spikesName),
                         [&](OutputFile& file) { CopyFile(request.Spikes, file, progress); }));
  if (raw.Events)
    groups.push_back(Alone(OutputFile(folder / request.Events.filename()),
                           [&](OutputFile& file) { CopyFile(request.Events, file, progress); }));
  const SeenPositions positions(report.Video.Samples);
  OutputGroup& spikes = groups.emplace_back();
  spikes.Files.emplace_back(named(".waveforms"));
  spikes.Files.emplace_back(named(".Ntt.parms"), TextHeader("Parameters", request.Date));
  spikes.Make = [&](std::span<OutputFile> files) {
    report.SpikesPlaced = WriteSpikes(raw.Spikes, order, positions, files[1], files[0], progress);
  };
  PutInPlace(groups, SourcesOf(request), request.Replace);
  progress.End(spikes.Files[1].IsLeft() ? "Compared" : "Wrote");
  for (const OutputGroup& group : groups)
    for (const OutputFile& file : group.Files)
      if (file.IsLeft()) report.Left.push_back(NameText(file.Path()));
  return report;
}

}  // namespace pallomir
