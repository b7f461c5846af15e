#include "pallomir/notes/cluster_notes.h"

#include <cmath>
#include <utility>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/set_aside.h"
#include "pallomir/files/text_lines.h"
#include "pallomir/files/write_target.h"

namespace pallomir {

namespace {

/// Reads notes line by line. A text without quotes extends to the next comma.
class NoteReader {
 public:
  NoteReader(std::string_view text, const std::filesystem::path& file) : lines_(WithoutMark(text)), file_(file) {}

  /// Reads the note of cluster c from the next line.
  ClusterNote Read(int c) {
    line_.Number = lines_.NextNumber();
    if (!lines_.Take(line_)) Fault("the file ends before the note of cluster " + std::to_string(c) + " is due");
    fields_ = TextFields(line_.Text);
    ClusterNote note;
    note.Number = Number();
    note.Rating = Text("rating");
    note.Remarks = Text("remarks");
    if (fields_.More()) Fault("there are more fields than number, rating and remarks");
    return note;
  }

  /// The remaining lines.
  std::string_view Rest() const { return lines_.Rest(); }

 private:
  /// Without the byte order mark that some editors write.
  static std::string_view WithoutMark(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
  }

  int16_t Number() {
    const std::string_view field = Trimmed(fields_.Take());
    const auto number = NumberFromText(field);
    if (!number) Fault(Quoted(field) + " is not a number");
    // A number other than the line's own cluster is accepted as it is.
    if (*number < 0 || *number > kClusters || *number != std::floor(*number))
      Fault("there is no cluster " + DoubleText(*number));
    return static_cast<int16_t>(*number);
  }

  std::string Text(const std::string& what) {
    if (!fields_.More()) Fault("there is no field for the " + what);
    if (!fields_.AtQuotes()) {
      const std::string_view field = Trimmed(fields_.Take());
      if (field.find('"') != std::string_view::npos) Fault("there is a double quote inside the " + what);
      return std::string(field);
    }
    const auto text = fields_.TakeQuoted();
    if (!text) Fault("the quotes round the " + what + " are not closed");
    if (!Trimmed(fields_.Take()).empty()) Fault("there is a double quote inside the " + what);
    return std::string(*text);
  }

  [[noreturn]] void Fault(const std::string& what) const {
    throw FaultAt(ErrorKind::Broken, file_, FilePlace::AtLine(line_.Number), what);
  }

  TextLines lines_;
  TextLine line_;
  TextFields fields_{""};
  const std::filesystem::path& file_;
};

struct NotesText {
  ByCluster<ClusterNote> Notes;
  /// The text after the notes in the file, which stays unchanged.
  std::string_view Rest;
};

NotesText NotesFrom(std::string_view text, const std::filesystem::path& file) {
  NotesText notes;
  NoteReader reader(text, file);
  for (int c = 0; c <= kClusters; ++c) notes.Notes[c] = reader.Read(c);
  notes.Rest = reader.Rest();
  return notes;
}

/// True if the notes of a file can be read and at least one cluster has a grade or remarks.
bool HoldNotes(std::string_view text) {
  try {
    const ByCluster<ClusterNote> none;
    return NotesFrom(text, {}).Notes != none;
  } catch (const CommandError&) {
    return false;
  }
}

void SafeguardWherePossible(const std::filesystem::path& path) {
  try {
    FileUtility::SafeguardFile(path, HoldNotes);
  } catch (const CommandError&) {
    // Notes in a folder without write permission can still be read.
  }
}

}  // namespace

std::filesystem::path NotesFilePath(const Session& session) {
  return PathIn(session.DataDirectory, "ClNotes");
}

void CheckRemarks(int c, std::string_view remarks) {
  const auto refuse = [c](const std::string& what) {
    throw CommandError(ErrorKind::Refused, "The remarks of cluster " + std::to_string(c) + " contain a " + what +
                                               ", which the notes file cannot store; nothing was saved.");
  };
  if (remarks.find('"') != std::string_view::npos) refuse("double quote");
  if (remarks.find_first_of("\r\n") != std::string_view::npos) refuse("line break");
}

ByCluster<ClusterNote> NotesIn(const std::filesystem::path& path) {
  if (!FileUtility::FileExists(path)) return {};
  return NotesFrom(ReadText(path), path).Notes;
}

bool ReadNotes(Session& session) {
  const std::filesystem::path path = NotesFilePath(session);
  if (!FileUtility::FileExists(path)) return false;
  SafeguardWherePossible(path);
  std::string text = ReadText(path);
  session.Notes = NotesFrom(text, path).Notes;
  session.NotesFile = std::move(text);
  return true;
}

bool NotesAreSaved(const Session& session) {
  const auto saved = session.NotesFile ? NotesFrom(*session.NotesFile, {}).Notes : ByCluster<ClusterNote>();
  return session.Notes == saved;
}

std::string DoubtAboutNotesFile(const Session& session) {
  const std::filesystem::path path = NotesFilePath(session);
  if (!FileUtility::FileExists(path)) return {};
  if (IsWriteProtected(path)) return PathText(path) + " is write-protected.";
  try {
    const std::string text = ReadText(path);
    if (text == session.NotesFile) return {};
    NotesFrom(text, path);
  } catch (const CommandError& error) {
    return error.what();
  }
  return PathText(path) + " has been changed by another program since it was read here.";
}

void WriteNotes(Session& session, InDoubt inDoubt) {
  for (int c = 0; c < kClusterSlots; ++c) CheckRemarks(c, session.Notes[c].Remarks);
  const std::filesystem::path path = NotesFilePath(session);
  const std::string doubt = DoubtAboutNotesFile(session);
  if (!doubt.empty() && inDoubt == InDoubt::Refuse)
    throw CommandError(ErrorKind::NotWritten, doubt + " Nothing was saved.", path);
  std::string text;
  for (const ClusterNote& note : session.Notes)
    text += std::to_string(note.Number) + ",\"" + note.Rating + "\",\"" + note.Remarks + "\"\r\n";
  if (doubt.empty() && FileUtility::FileExists(path)) {
    FileUtility::SafeguardFile(path, HoldNotes);
    text += NotesFrom(*session.NotesFile, {}).Rest;
  }
  SaveFile file(path);
  file.Write(text);
  file.Finish();
  if (!doubt.empty()) SetAside(path);
  file.Commit();
  session.NotesFile = std::move(text);
}

}  // namespace pallomir
