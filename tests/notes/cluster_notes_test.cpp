// The notes file: what was saved is read back, and a damaged file changes nothing.

#include "pallomir/notes/cluster_notes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <vector>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "support/injected_fault.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

struct Desk {
  TemporaryFolder Folder;
  Session Shared;

  Desk() { Shared.DataDirectory = Folder / "."; }
  std::string Saved() const { return ReadText(Folder / "ClNotes"); }
  /// The files that were kept under another name.
  std::vector<std::string> Aside() const {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(Folder / "."))
      if (entry.path().filename().string().starts_with("ClNotes.2")) files.push_back(ReadText(entry.path().string()));
    return files;
  }
};

/// A notes file of `lines` lines in which nothing is noted but what the given lines (from 1) hold.
std::string FileWith(const std::map<int, std::string>& given, int lines = kClusterSlots) {
  std::string file;
  for (int k = 1; k <= lines; ++k) file += (given.contains(k) ? given.at(k) : "0,\"\",\"\"") + "\r\n";
  return file;
}
std::string FileWith(int line, const std::string& text) {
  return FileWith({{line, text}});
}

TEST(ClusterNotes, AreWrittenLineByLineAndReadBack) {
  Desk desk;
  EXPECT_FALSE(ReadNotes(desk.Shared));
  desk.Shared.Notes[0].Remarks = " ";                             // remarks without a cluster
  desk.Shared.Notes[4] = {4, "Pretty Good", "ok, \xc3\xa9 'x'"};  // graded
  desk.Shared.Notes[9].Remarks = "never graded";
  desk.Shared.Notes[30] = {30, "", ""};  // cleared
  WriteNotes(desk.Shared);
  EXPECT_FALSE(std::filesystem::exists(desk.Folder / "ClNotes.bak"));
  EXPECT_EQ(desk.Saved(), FileWith({{1, "0,\"\",\" \""},
                                    {5, "4,\"Pretty Good\",\"ok, \xc3\xa9 'x'\""},
                                    {10, "0,\"\",\"never graded\""},
                                    {31, "30,\"\",\"\""}}));

  Session other;
  other.DataDirectory = desk.Shared.DataDirectory;
  other.Notes[12] = {12, "Poor", "gone"};
  ASSERT_TRUE(ReadNotes(other));
  EXPECT_EQ(other.Notes, desk.Shared.Notes);
}

TEST(ClusterNotes, AreReadIfWrittenByOtherPrograms) {
  Desk desk;
  const std::string lines[] = {"7 , \"Fair\" ,\t\"a, b\"  ", "7,Fair,\"a, b\"", "7.0,\"Fair\",\"a, b\""};
  for (const std::string& line : lines) {
    std::string file = FileWith(8, line);
    std::erase(file, '\r');
    for (const char* end : {"", "\n\n \n"}) {
      desk.Shared.Notes = {};
      desk.Folder.Put("ClNotes", file.substr(0, file.size() - 1) + end);
      ASSERT_TRUE(ReadNotes(desk.Shared));
      EXPECT_EQ(desk.Shared.Notes[7], (ClusterNote{7, "Fair", "a, b"}));
    }
  }
  desk.Folder.Put("ClNotes", FileWith(8, "7,\"Splendid\",\"\""));
  ASSERT_TRUE(ReadNotes(desk.Shared));
  EXPECT_EQ(desk.Shared.Notes[7].Rating, "Splendid");
}

TEST(ClusterNotes, NameFaultsAndThenChangeNothing) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "line 1: the file ends before the note of cluster 0 is due."},
      {FileWith({}, 30), "line 31: the file ends before the note of cluster 30 is due."},
      {FileWith(3, ""), "line 3: \"\" is not a number."},
      {FileWith(3, "two,\"Good\",\"\""), "line 3: \"two\" is not a number."},
      {FileWith(3, "31,\"Good\",\"\""), "line 3: there is no cluster 31."},
      {FileWith(3, "-1,\"Good\",\"\""), "line 3: there is no cluster -1."},
      {FileWith(3, "1e99,\"Good\",\"\""), "line 3: there is no cluster 1E+99."},
      {FileWith(3, "2"), "line 3: there is no field for the rating."},
      {FileWith(3, "2,\"Good\""), "line 3: there is no field for the remarks."},
      {FileWith(3, "2,\"Good\",\"a"), "line 3: the quotes round the remarks are not closed."},
      {FileWith(3, "2,\"Good\",\"he said \"no\" to it\""), "line 3: there is a double quote inside the remarks."},
      {FileWith(3, "2,Go\"od,\"\""), "line 3: there is a double quote inside the rating."},
      {FileWith(3, "2,\"Good\",\"a\",\"b\""), "line 3: there are more fields than number, rating and remarks."},
  };
  for (const auto& [file, fault] : cases) {
    Desk desk;
    desk.Shared.Notes[5] = {5, "Good", "mine"};
    const auto before = desk.Shared.Notes;
    desk.Folder.Put("ClNotes", file);
    EXPECT_EQ(Refusal([&] { ReadNotes(desk.Shared); }), "ClNotes, " + fault);
    EXPECT_EQ(desk.Shared.Notes, before);
    // However often it is tried, the file stays until the user wants it replaced; then it is kept under another name.
    for (int attempt = 0; attempt < 2; ++attempt) {
      EXPECT_EQ(Refusal([&] { WriteNotes(desk.Shared); }), "ClNotes, " + fault + " Nothing was saved.");
      EXPECT_NE(Refusal([&] { ReadNotes(desk.Shared); }), "");
      EXPECT_EQ(desk.Saved(), file);
    }
    WriteNotes(desk.Shared, InDoubt::SetAside);
    EXPECT_EQ(desk.Aside(), std::vector<std::string>{file});
    EXPECT_TRUE(ReadNotes(desk.Shared));
    EXPECT_EQ(desk.Shared.Notes, before);
    WriteNotes(desk.Shared);
    EXPECT_EQ(desk.Aside().size(), size_t{1});
  }
}

TEST(ClusterNotes, KeepTheLinesAfterThem) {
  for (const std::string tail : {"0,\"\",\"a 32nd\"\r\n", "\n\n \n", "\"anything \0else"}) {
    Desk desk;
    desk.Folder.Put("ClNotes", "\xEF\xBB\xBF" + FileWith(8, "7,\"Fair\",\"x\"") + tail);
    ASSERT_TRUE(ReadNotes(desk.Shared));
    EXPECT_EQ(desk.Shared.Notes[7], (ClusterNote{7, "Fair", "x"}));
    for (const std::string remarks : {"y", "z"}) {
      desk.Shared.Notes[7].Remarks = remarks;
      WriteNotes(desk.Shared);
      EXPECT_EQ(desk.Saved(), FileWith(8, "7,\"Fair\",\"" + remarks + '"') + tail);
    }
  }
}

TEST(ClusterNotes, OfTwoProgramsNeverReplaceEachOtherWithoutAsking) {
  Desk desk;
  WriteNotes(desk.Shared);
  Session other;
  other.DataDirectory = desk.Shared.DataDirectory;
  ASSERT_TRUE(ReadNotes(other));
  desk.Shared.Notes[4] = {4, "Good", "mine"};
  WriteNotes(desk.Shared);
  const std::string mine = desk.Saved();
  EXPECT_TRUE(NotesAreSaved(other));
  other.Notes[4] = {4, "Poor", "theirs"};
  EXPECT_FALSE(NotesAreSaved(other));
  const std::string doubt =
      PathText(NotesFilePath(other)) + " has been changed by another program since it was read here.";
  EXPECT_EQ(DoubtAboutNotesFile(other), doubt);
  EXPECT_EQ(Refusal([&] { WriteNotes(other); }), doubt + " Nothing was saved.");
  EXPECT_EQ(desk.Saved(), mine);
  WriteNotes(other, InDoubt::SetAside);
  EXPECT_EQ(desk.Aside(), std::vector<std::string>{mine});
  EXPECT_TRUE(NotesAreSaved(other));
  EXPECT_EQ(DoubtAboutNotesFile(other), "");

  // A file that was not read here also counts as another program's; one that disappeared is no obstacle.
  Session third;
  third.DataDirectory = desk.Shared.DataDirectory;
  EXPECT_EQ(DoubtAboutNotesFile(third), doubt);
  std::filesystem::remove(desk.Folder / "ClNotes");
  WriteNotes(desk.Shared);
  EXPECT_EQ(desk.Saved(), mine);
  std::filesystem::permissions(desk.Folder / "ClNotes", std::filesystem::perms::owner_read);
  EXPECT_EQ(DoubtAboutNotesFile(desk.Shared), PathText(NotesFilePath(desk.Shared)) + " is write-protected.");
}

TEST(ClusterNotes, RefuseRemarksThatTheFileCannotStore) {
  for (const auto& [remarks, what] :
       {std::pair("a \"b\"", "a double quote"), {"a\nb", "a line break"}, {"\r", "a line break"}}) {
    Desk desk;
    desk.Folder.Put("ClNotes", "as it was");
    desk.Shared.Notes[12].Remarks = remarks;
    EXPECT_EQ(Refusal([&] { WriteNotes(desk.Shared); }), "The remarks of cluster 12 contain " + std::string(what) +
                                                             ", which the notes file cannot store; nothing was saved.");
    EXPECT_EQ(desk.Saved(), "as it was");
    EXPECT_FALSE(std::filesystem::exists(desk.Folder / "ClNotes.bak"));
  }
}

TEST(ClusterNotes, SurviveAReadOnlyFolder) {
  Desk desk;
  desk.Folder.Put("ClNotes", FileWith(8, "7,\"Fair\",\"x\""));
  const std::string before = desk.Saved();
  std::filesystem::create_directory(desk.Folder / "ClNotes.bak");  // no safeguard copy can be made
  ASSERT_TRUE(ReadNotes(desk.Shared));
  EXPECT_EQ(desk.Shared.Notes[7].Remarks, "x");
  desk.Shared.Notes = {};
  EXPECT_NE(Refusal([&] { WriteNotes(desk.Shared); }), "");
  EXPECT_EQ(desk.Saved(), before);
  std::filesystem::remove(desk.Folder / "ClNotes.bak");
  const InjectedFault full(2, FileCall::Flush);
  EXPECT_NE(Refusal([&] { WriteNotes(desk.Shared); }).find("No space left on device"), std::string::npos);
  EXPECT_EQ(desk.Saved(), before);
}

}  // namespace
}  // namespace pallomir
