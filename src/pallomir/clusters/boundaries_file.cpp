#include "pallomir/clusters/boundaries_file.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/editing.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/text_items.h"

namespace pallomir {

namespace {

/// The longest allowed parameter name, in bytes.
constexpr size_t kLongestName = 255;

std::string RecordText(const Session& session, int c, const Boundary& boundary) {
  const auto line = [](const std::string& text) { return text + "\r\n"; };
  std::string text =
      line(std::to_string(c)) + line(std::to_string(boundary.XParameter)) + line(std::to_string(boundary.YParameter)) +
      line('"' + session.ParameterNames[boundary.XParameter] + '"') +
      line('"' + session.ParameterNames[boundary.YParameter] + '"') + line(std::to_string(boundary.VertexCount));
  for (int k = 0; k < boundary.VertexCount; ++k)
    text += line(SingleText(boundary.Vertices[k].X) + "," + SingleText(boundary.Vertices[k].Y));
  return text + "\r\n";
}

/// Reads the records of a file into the boundary table.
class RecordReader {
 public:
  RecordReader(Session& session, std::string_view body, const std::filesystem::path& file, int firstLine)
      : session_(session), items_(body, file, firstLine) {}

  bool AtEnd() const { return items_.AtEnd(); }

  int ClusterNumber() { return WholeWithin("cluster", 0, kClusters); }

  /// The cluster of the next record if it is wanted; empty for any other number.
  std::optional<int> ClusterAmong(const ByCluster<bool>& wanted) {
    const double number = std::nearbyint(items_.Number());
    if (!(number >= 0 && number <= kClusters) || !wanted[static_cast<size_t>(number)]) return {};
    return static_cast<int>(number);
  }

  /// Resets cluster c to one boundary and marks it as defined.
  int StartCluster(int c) {
    ++session_.DefinitionCounter;
    session_.Clusters[c] = {};
    session_.Clusters[c].BoundaryCount = 1;
    if (c > 0) session_.ClusterDefined[c] = true;
    return 0;
  }

  int NextBoundary(int c) {
    Cluster& cluster = session_.Clusters[c];
    if (cluster.BoundaryCount == kBoundariesPerCluster)
      items_.Fault("cluster " + std::to_string(c) + " has a 22nd boundary");
    return cluster.BoundaryCount++;
  }

  /// Reads a record after its cluster number. If reading fails, the boundary keeps the values read so far; the names
  /// are only stored once the record is complete.
  void ReadBoundary(Boundary& boundary) {
    boundary = {};
    boundary.XParameter = static_cast<int16_t>(WholeWithin("parameter", 0, kParameters));
    boundary.YParameter = static_cast<int16_t>(WholeWithin("parameter", 0, kParameters));
    std::string xName = Name(), yName = Name();
    const int count = WholeWithin("vertex count", 0, kVerticesPerBoundary);
    for (int k = 0; k < count; ++k) {
      const float x = items_.Single();
      boundary.Vertices[k] = {x, items_.Single()};
      ++boundary.VertexCount;
    }
    items_.SkipLine();
    session_.ParameterNames[boundary.XParameter] = std::move(xName);
    session_.ParameterNames[boundary.YParameter] = std::move(yName);
  }

  /// Skips a record whose cluster is not wanted.
  void SkipBoundary() {
    for (int item = 0; item < 4; ++item) items_.Text();
    const int64_t count = std::llrint(std::clamp(items_.Number(), 0.0, 1e15));
    for (int64_t k = 0; k < 2 * count; ++k) items_.Text();
    items_.SkipLine();
  }

 private:
  int WholeWithin(const char* what, int low, int high) {
    const double number = std::nearbyint(items_.Number());
    if (!(number >= low && number <= high))
      items_.Fault(std::string(what) + " " + DoubleText(number) + " is not within " + std::to_string(low) + " to " +
                   std::to_string(high));
    return static_cast<int>(number);
  }

  /// A parameter name, which must be writable in this format.
  std::string Name() {
    std::string name = items_.Text();
    if (name.size() > kLongestName)
      items_.Fault("a parameter name is longer than " + std::to_string(kLongestName) + " characters");
    const auto unfit = [](char c) { return c == '"' || (c >= 0 && c < ' ') || c == 0x7F; };
    if (std::any_of(name.begin(), name.end(), unfit)) items_.Fault(Quoted(name) + " is not a parameter name");
    return name;
  }

  Session& session_;
  TextItems items_;
};

/// Deletes clusters with `forget`, then calls `read` for each record, and classifies. Returns false if there is no file
/// with a header. If reading fails, the records read so far are kept, and Undo restores the earlier cut.
template <class Forget, class Read>
bool ReadThenClassify(Session& session, const std::filesystem::path& path, const Progress& progress, Forget forget,
                      Read read) {
  const UndoSnapshot before{session.Clusters, session.DefinitionCounter};
  try {
    const bool usable = FileUtility::GetHeaderLength(path) >= 0;
    const std::string text = usable ? ReadText(path) : "";
    forget();
    const auto body = BodyBehindHeader(text);
    if (!body) {
      session.Undo = before;
      return false;
    }
    RecordReader reader(session, std::string_view(text).substr(body->Begin), path, body->FirstLine);
    while (!reader.AtEnd()) read(reader);
  } catch (const CommandError& error) {
    session.Undo = before;
    throw error.With(
        "\n\nThe boundaries before that are kept but not applied to the points; Undo restores the earlier cut.");
  }
  ClassifyClusters(session, session.ClusterDefined, progress);
  return true;
}

/// True if the whole file can be read and has at least one boundary.
bool HoldsBoundaries(std::string_view text) {
  const auto body = BodyBehindHeader(text);
  if (!body) return false;
  const auto scratch = std::make_unique<Session>();
  RecordReader reader(*scratch, text.substr(body->Begin), {}, body->FirstLine);
  Boundary boundary;
  bool any = false;
  try {
    for (; !reader.AtEnd(); any = true) {
      reader.ClusterNumber();
      reader.ReadBoundary(boundary);
    }
  } catch (const CommandError&) {
    return false;
  }
  return any;
}

}  // namespace

std::filesystem::path BoundariesFilePath(const Session& session, std::string_view name) {
  return PathIn(session.DataDirectory, std::string(name) + ".txt");
}

void WriteCBFile(const Session& session, World& world, const std::filesystem::path& path) {
  if (FileUtility::FileExists(path)) FileUtility::SafeguardFile(path, HoldsBoundaries);
  SaveFile file(path);
  file.Write(TextHeader("CBFile"));
  for (int c = 1; c <= kClusters; ++c) {
    if (!session.ClusterDefined[c]) continue;
    const Cluster& cluster = session.Clusters[c];
    for (int b = 0; b < cluster.BoundaryCount; ++b) file.Write(RecordText(session, c, cluster.Boundaries[b]));
  }
  file.Commit();
  world.AppendMessage("Wrote CBFile " + PathText(path));
}

bool ReadCBFile(Session& session, const std::filesystem::path& path, const Progress& progress) {
  int previous = 0;
  return ReadThenClassify(
      session, path, progress, [&] { DeleteAllClusters(session); },
      [&](RecordReader& reader) {
        const int c = reader.ClusterNumber();
        const int b = c != previous ? reader.StartCluster(c) : reader.NextBoundary(c);
        previous = c;
        reader.ReadBoundary(session.Clusters[c].Boundaries[b]);
      });
}

bool ReadSelectedClusters(Session& session, const std::filesystem::path& path, const ByCluster<bool>& selected,
                          const Progress& progress) {
  return ReadThenClassify(
      session, path, progress,
      [&] {
        for (int c = 1; c <= kClusters; ++c)
          if (selected[c] && session.ClusterDefined[c]) DeleteCluster(session, c, progress);
      },
      [&](RecordReader& reader) {
        const auto c = reader.ClusterAmong(selected);
        if (!c) return reader.SkipBoundary();
        const int b = session.ClusterDefined[*c] ? reader.NextBoundary(*c) : reader.StartCluster(*c);
        reader.ReadBoundary(session.Clusters[*c].Boundaries[b]);
      });
}

}  // namespace pallomir
