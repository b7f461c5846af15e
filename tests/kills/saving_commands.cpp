#include "kills/saving_commands.h"

#include <QImage>
#include <sstream>

#include "gui/controls/save_image.h"
#include "pallomir/analyses/center_file.h"
#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/save_file.h"
#include "pallomir/notes/cluster_notes.h"
#include "pallomir/output/cluster_files.h"
#include "pallomir/results/direction_file.h"
#include "pallomir/results/map_file.h"
#include "pallomir/results/train_file.h"
#include "pallomir/session/axis_scale_file.h"
#include "pallomir/session/defaults_file.h"
#include "support/recording_world.h"
#include "support/sessions.h"
#include "tools/import/import_recording.h"
#include "tools/raw_files.h"
#include "tools/sample/make_sample.h"

namespace pallomir {

namespace {

constexpr int kWritten = 3;

/// A session all of whose files depend on the version.
Session SessionOf(const std::string& folder, int version) {
  const auto value = static_cast<float>(version);
  Session session = SessionWith(std::vector<Vertex>(static_cast<size_t>(10 * version * (kWritten + 1)), {value, -7}));
  session.DataDirectory = folder + "/TT1";
  session.Points.AddSlot();
  for (size_t i = 0; i < session.Points.Rows(); ++i)
    session.Points.Slot(0)[i] = static_cast<int16_t>(i % (kWritten + 1));
  for (int c = 1; c <= kWritten; ++c) {
    AddBoundary(session, c, RectangleOf(0, 0, value, value));
    session.ClusterDefined[c] = true;
    session.Notes[c] = {static_cast<int16_t>(c), "Good", "version " + std::to_string(version)};
  }
  session.CurrentCluster = 2;
  session.AxisMaximum.fill(value);
  return session;
}

void WriteClusters(const std::string& folder, int version, bool temporary) {
  Session session = SessionOf(folder, version);
  session.TemporaryMode = temporary;
  RecordingWorld world;
  WriteClusterFiles(session, world, {"cl", "0", std::to_string(version)});
}

void WriteResults(const std::string& folder, int version) {
  const std::string base = folder + "/TT1/tmp";
  MapResult map;
  map.Grid = {2, 1, 0, 0, 10, {1.0 * version, 2}};
  WriteMapFile(map, base + ".rmap");
  AutocorrelationResult train;
  train.Explanation = "version " + std::to_string(version);
  WriteAutocorrelationFile(train, base + ".acorr");
  IntervalResult intervals;
  intervals.Explanation = train.Explanation;
  WriteIntervalFile(intervals, base + ".isi");
  DirectionResult direction;
  direction.Explanation = train.Explanation;
  WriteDirectionFile(direction, base + ".dir");
}

}  // namespace

void ImportTetrode(const std::string& folder, const std::string& tetrode, int version) {
  const std::string raw = folder + "/" + tetrode + ".Ntt";
  {
    SaveFile file(raw);
    file.Write(AcquisitionHeader());
    for (int n = 0; n < 50; ++n)
      file.Write(testing::Spike(static_cast<uint64_t>(1000 * n), static_cast<int16_t>(100 * version)));
    file.Commit();
  }
  std::ostringstream said;
  ProgressBar progress(said, false);
  ImportRecording({.Spikes = raw, .Out = folder + "/out", .Replace = true, .Date = "2026-01-01 00:00:00"}, progress);
}

std::vector<SavingCommand> SavingCommands() {
  const auto ofSession = [](const char* name, auto write) {
    return SavingCommand{name, [write](const std::string& folder, int version) {
                           Session session = SessionOf(folder, version);
                           RecordingWorld world;
                           write(session, world, version);
                         }};
  };
  return {
      ofSession("boundaries", [](Session& session, World& world,
                                 int) { WriteCBFile(session, world, BoundariesFilePath(session, "cbfile.exit")); }),
      {"clusters", [](const std::string& folder, int version) { WriteClusters(folder, version, false); }},
      {"temporary", [](const std::string& folder, int version) { WriteClusters(folder, version, true); }},
      ofSession("notes",
                [](Session& session, World&, int) {
                  // Notes that were not read here could not be replaced without a question.
                  const std::filesystem::path path = NotesFilePath(session);
                  if (FileUtility::FileExists(path)) session.NotesFile = ReadText(path);
                  WriteNotes(session);
                }),
      ofSession("defaults",
                [](Session& session, World&, int version) {
                  Defaults defaults;
                  defaults.PosFile = std::to_string(version);
                  WriteDefaults(session, defaults, session.DataDirectory / "Defaults");
                }),
      ofSession("scales", [](Session& session, World&, int) { WriteAxesScaleFile(session); }),
      ofSession("center",
                [](Session& session, World& world, int version) {
                  WriteCenterFile(session, world, kCenterFileName, {static_cast<float>(version), 2});
                }),
      {"results", WriteResults},
      {"picture",
       [](const std::string& folder, int version) {
         QImage image(10 * version, 10, QImage::Format_RGB32);
         image.fill(Qt::white);
         SavePictureBytes(PngOf(image), folder + "/TT1/rate map.png");
       }},
      {"import", [](const std::string& folder, int version) { ImportTetrode(folder, "TT1", version); }},
      {"sample",
       [](const std::string& folder, int version) {
         std::ostringstream said;
         ProgressBar progress(said, false);
         MakeSample({folder + "/sample", 100, static_cast<uint64_t>(version), 1}, progress);
       },
       false},
  };
}

}  // namespace pallomir
