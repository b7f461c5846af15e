#include "pallomir/output/cluster_files.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "pallomir/files/error.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"
#include "pallomir/output/assignment.h"
#include "pallomir/output/spike_lines.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

/// Share of the work done once all lines are written; the rest is flushing them to the disk.
constexpr double kShareWritten = 0.85;

/// A file of lines, written to a temporary file beside its target.
class LineFile {
 public:
  LineFile(const std::filesystem::path& path, std::string_view beginning) : file_(path) { file_.Write(beginning); }

  /// A buffer position with room for SpikeLines::kRoom characters.
  char* Room() {
    if (buffer_.size() - used_ < SpikeLines::kRoom) Empty();
    return buffer_.data() + used_;
  }
  /// Records a line written there, which ends at `end`.
  void Added(const char* end) {
    used_ = static_cast<size_t>(end - buffer_.data());
    ++Lines;
  }

  void Finish() {
    Empty();
    file_.Finish();
    buffer_ = {};
  }
  void Commit() { file_.Commit(); }

  int64_t Lines = 0;

 private:
  void Empty() {
    file_.Write(buffer_.data(), used_);
    used_ = 0;
  }

  SaveFile file_;
  std::vector<char> buffer_ = std::vector<char>(size_t{1} << 16);
  size_t used_ = 0;
};

/// The files of one run, by cluster; null for a cluster that is not defined.
using LineFiles = ByCluster<std::unique_ptr<LineFile>>;
using ClusterSet = ByCluster<bool>;

/// The clusters that get a file; 0 stands for the unclassified spikes.
ClusterSet Wanted(const Session& session) {
  ClusterSet wanted = session.ClusterDefined;
  wanted[0] = true;
  return wanted;
}

/// "clusters 1, 2, 7 and the unclassified spikes".
std::string Named(const ClusterSet& set) {
  std::string names;
  const char* const first = std::count(set.begin() + 1, set.end(), true) == 1 ? "cluster " : "clusters ";
  for (int c = 1; c <= kClusters; ++c)
    if (set[c]) names += (names.empty() ? first : ", ") + std::to_string(c);
  if (set[0]) names += names.empty() ? "the unclassified spikes" : " and the unclassified spikes";
  return names.empty() ? "nothing" : names;
}

double TimeFrom(const std::string& text, const char* which) {
  const auto number = NumberFromText(text);
  if (!number)
    throw CommandError(ErrorKind::Refused, std::string("The ") + which + " time " + Quoted(text) +
                                               " is not a number; no cluster file was written.");
  return *number;
}

/// The header of a cluster file and the two lines of its time range.
std::string BeginningFor(const ClusterFileTexts& texts) {
  return TextHeader("Cl-File") + DoubleText(TimeFrom(texts.StartTime, "start")) + "\r\n" +
         DoubleText(TimeFrom(texts.EndTime, "end")) + "\r\n";
}

/// Calls put(i) for every point.
template <class Put>
void ForEveryPoint(size_t rows, const Progress& progress, Put put) {
  constexpr size_t kBlock = 1024;
  for (size_t i = 0; i < rows;) {
    for (const size_t end = std::min(rows, i + kBlock); i < end; ++i) put(i);
    progress.Reached(kShareWritten * static_cast<double>(i) / static_cast<double>(rows));
  }
}

Assignment AssignInTheOpen(const Session& session, World& world) {
  WorkPace pace(world);
  return AssignClusters(session.Points, pace);
}

void WriteSpikes(const Session& session, World& world, const std::string& beginning,
                 const std::vector<uint8_t>& assigned, int c, const SpikesOfCluster& files) {
  LineFile spikes(files.Spikes, beginning);
  LineFile times(files.Times, TextHeader("TFile"));
  const SpikeLines lines(session.Points);
  {
    WorkPace pace(world);
    ForEveryPoint(session.Points.Rows(), pace, [&](size_t i) {
      if (assigned[i] != c) return;
      spikes.Added(lines.PutSpike(spikes.Room(), i));
      times.Added(lines.PutStamp(times.Room(), i));
    });
    spikes.Finish();
    times.Finish();
  }
  spikes.Commit();
  times.Commit();
}

void ReportOverlaps(World& world, const Assignment& assignment) {
  if (!assignment.AnyOverlap) return;
  world.ShowMessage("Clusters Overlap", "ERROR");
  for (int a = 1; a < kClusters; ++a)
    for (int b = a + 1; b <= kClusters; ++b)
      if (const int64_t count = assignment.Overlaps[b][a]; count > 0)
        world.AppendMessage("Cluster " + std::to_string(a) + " overlaps with " + std::to_string(b) + ": " +
                            std::to_string(count) + " points");
}

/// Writes every temporary file and flushes it to the disk. Makes one pass over the points, whatever the number of
/// clusters: 30 buffers take less of the cache than 30 passes over the columns.
void WriteBeside(const Session& session, World& world, const std::string& name, const std::string& beginning,
                 const std::vector<uint8_t>& cluster, LineFiles& files) {
  const ClusterSet wanted = Wanted(session);
  for (int c = 0; c <= kClusters; ++c)
    if (wanted[c])
      files[c] = std::make_unique<LineFile>(
          c == 0 ? UnclassifiedFilePath(session, name) : ClusterFilePath(session, name, c), beginning);
  const SpikeLines lines(session.Points);
  WorkPace pace(world);
  ForEveryPoint(session.Points.Rows(), pace, [&](size_t i) {
    LineFile* const file = files[cluster[i]].get();
    if (file) file->Added(lines.PutSpike(file->Room(), i));
  });
  for (int c = 0; c <= kClusters; ++c) {
    if (files[c]) files[c]->Finish();
    pace.Reached(kShareWritten + (1 - kShareWritten) * c / kClusters);
  }
}

/// Renames cluster c's file, if any, to its OLD name. True if this replaced an older OLD file.
bool KeepAsOld(const Session& session, const std::string& name, int c) {
  const std::filesystem::path path = ClusterFilePath(session, name, c), old = OldClusterFilePath(session, name, c);
  if (!FileUtility::FileExists(path)) return false;
  const bool older = FileUtility::FileExists(old);
  return FileUtility::RenameFile(path, old) && older;
}

void ReportWritten(World& world, const LineFiles& files, const ClusterSet& placed) {
  const auto line = [&](const std::string& name, int c) {
    if (placed[c]) world.AppendMessage("Wrote Cluster " + name + ": " + std::to_string(files[c]->Lines) + " points");
  };
  for (int c = 1; c <= kClusters; ++c) line(std::to_string(c), c);
  line("0 (Undefined points)", 0);
}

/// Renames the files to their targets, one cluster after the other, so that if the program is killed here each cluster
/// still has its own file, the new or the earlier one; for at most one cluster only the OLD file exists.
void PutInPlace(const Session& session, World& world, const std::string& name, const LineFiles& files) {
  ClusterSet placed{}, missing = Wanted(session);
  const auto place = [&](int c) {
    files[c]->Commit();
    placed[c] = true;
    missing[c] = false;
  };
  bool olderGone = false;
  try {
    for (int c = 1; c <= kClusters; ++c) {
      if (KeepAsOld(session, name, c)) olderGone = true;
      if (files[c]) place(c);
    }
    place(0);
  } catch (const CommandError& error) {
    ReportWritten(world, files, placed);
    throw error.With("\n\nWritten: " + Named(placed) + ".\nNot written: " + Named(missing) +
                     ".\nNo earlier file is lost: each has its own name or its OLD name.");
  }
  if (olderGone) world.ShowMessage("Pre-existing cluster files have been renamed as OLD");
  ReportWritten(world, files, placed);
}

void WriteAllFiles(const Session& session, World& world, const ClusterFileTexts& texts, const std::string& beginning) {
  if (texts.ClustFile.empty())
    throw CommandError(ErrorKind::Refused, "The cluster files need a name; nothing was written.");
  const Assignment assignment = AssignInTheOpen(session, world);
  ReportOverlaps(world, assignment);
  LineFiles files;
  try {
    WriteBeside(session, world, texts.ClustFile, beginning, assignment.Cluster, files);
  } catch (const CommandError& error) {
    throw error.With("\n\nWritten: nothing.\nNot written: " + Named(Wanted(session)) +
                     ".\nAll earlier files are unchanged.");
  }
  PutInPlace(session, world, texts.ClustFile, files);
}

}  // namespace

std::filesystem::path ClusterFilePath(const Session& session, std::string_view name, int c) {
  return PathIn(session.DataDirectory, std::string(name) + "." + std::to_string(c));
}

std::filesystem::path OldClusterFilePath(const Session& session, std::string_view name, int c) {
  return ClusterFilePath(session, "OLD" + std::string(name), c);
}

std::filesystem::path UnclassifiedFilePath(const Session& session, std::string_view name) {
  return PathIn(session.DataDirectory, "Undefined_" + std::string(name));
}

std::vector<std::filesystem::path> ClusterFilePaths(const Session& session, std::string_view name) {
  std::vector<std::filesystem::path> paths = {UnclassifiedFilePath(session, name)};
  for (int c = 1; c <= kClusters; ++c) {
    paths.push_back(ClusterFilePath(session, name, c));
    paths.push_back(OldClusterFilePath(session, name, c));
  }
  return paths;
}

std::filesystem::path TemporaryClusterFilePath(const Session& session) {
  return PathIn(session.DataDirectory, "cl-tmp");
}

std::filesystem::path TemporaryTimeFilePath(const Session& session) {
  return PathIn(session.DataDirectory, "ttmp");
}

void WriteClusterFiles(const Session& session, World& world, const ClusterFileTexts& texts) {
  const std::string beginning = BeginningFor(texts);
  if (session.TemporaryMode)
    WriteSpikes(session, world, beginning, AssignInTheOpen(session, world).Cluster, session.CurrentCluster,
                {TemporaryClusterFilePath(session), TemporaryTimeFilePath(session)});
  else
    WriteAllFiles(session, world, texts, beginning);
  world.AppendMessage("Done Writing CLFiles");
}

void WriteSpikesOf(const Session& session, World& world, const ClusterFileTexts& texts,
                   const std::vector<uint8_t>& assigned, int c, const SpikesOfCluster& files) {
  WriteSpikes(session, world, BeginningFor(texts), assigned, c, files);
}

}  // namespace pallomir
