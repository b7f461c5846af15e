#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "support/injected_fault.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

namespace fs = std::filesystem;

TEST(FileReader, SaysWhatIsWrongAndWhere) {
  const TemporaryFolder folder;
  const std::string path = folder.Put("ten", "0123456789");
  EXPECT_EQ(Refusal([&] { FileReader(folder / "none"); }), folder / "none" + " does not exist.");
  EXPECT_EQ(Refusal([&] { FileReader(folder / ""); }), folder / "" + " is a folder, not a file.");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(Refusal([&] { FileReader(folder / "pipe"); }), folder / "pipe" + " is not a regular file.");
  FileReader file(path);
  char bytes[12] = {};
  EXPECT_EQ(file.ReadUpTo(7, bytes, 12), 3);
  EXPECT_EQ(std::string(bytes), "789");
  EXPECT_EQ(file.ReadUpTo(UINT64_MAX, bytes, 12), 0);
  EXPECT_EQ(Refusal([&] { file.Read(7, bytes, 4); }), "ten ended early, at byte 10.");
  file.Read(0, bytes, 10);
  EXPECT_EQ(std::string(bytes), "0123456789");
}

TEST(FileReader, ReportsAFailedSeekInsteadOfTheEndOfTheFile) {
  const TemporaryFolder folder;
  FileReader file(folder.Put("ten", "0123456789"));
  // Closes the descriptor that it opened last.
  const int next = open("/dev/null", O_RDONLY);
  close(next);
  close(next - 1);
  char byte = 0;
  EXPECT_EQ(Refusal([&] { file.ReadUpTo(4, &byte, 1); }), "Reading ten failed at byte 4.");
}

TEST(FileReader, OpensPathsInThePlatformsNotation) {
  const TemporaryFolder folder;
  folder.Put("Defaults", "above");
  folder.Put("TT1 ä/Defaults", "here");
  EXPECT_EQ(ReadText(PathIn(folder / "TT1 ä", "..\\Defaults")), "above");
  EXPECT_EQ(ReadText(PathIn(folder / "TT1 ä", "Defaults"), 2), "he");
  EXPECT_TRUE(FileUtility::FileExists(PathIn(folder / "TT1 ä", "..\\Defaults")));
  EXPECT_FALSE(FileUtility::FileExists(folder / "TT1 ä"));
}

TEST(Paths, OfAnyNameConvertBackToTheFile) {
  const TemporaryFolder folder;
  for (const std::string name : {"a\\b", "\\", "caf\xE9", "\xC1\x9C", "\xC1\xC1\x81", "\xC1", "tést"}) {
    const fs::path native = fs::path(folder / "") / name;
    fs::create_directory(native);
    std::ofstream(native / "Defaults") << name;
    const std::string directory = PathText(native);
    EXPECT_EQ(PlatformPath(directory), native);
    EXPECT_EQ(ReadText(PlatformPath(directory + "\\Defaults")), name);
    EXPECT_EQ(ReadText(PathIn(native, "..\\" + PathText(name) + "\\Defaults")), name);
  }
  for (const char* text : {"/W\\..\\Pos.p", "/W/x\\y", "W\\x/y.txt"}) EXPECT_EQ(PathText(PlatformPath(text)), text);
  EXPECT_EQ(PathIn("/W", "..\\x/Pos.p"), "/W/../x/Pos.p");
  EXPECT_EQ(PathText(PathIn("/W", "..\\x/Pos.p")), "/W\\..\\x/Pos.p");
  EXPECT_EQ(ReadablePath("W" + PathText("\\x") + "\\Defaults is empty."), "W\\x\\Defaults is empty.");
}

TEST(FileUtilities, RemoveExtensionKeepsFolders) {
  const std::pair<std::string, std::string> cases[] = {
      {"W\\tmp.rmap", "W\\tmp"},
      {"W\\a.b.c", "W\\a.b"},
      {"W\\..\\Pos.p", "W\\..\\Pos"},
      {"W.x\\ttmp", "W.x\\ttmp"},
      {"W\\..\\Pos", "W\\..\\Pos"},
      {"/a.b/c", "/a.b/c"},
      {"W.x/y\\t.rmap", "W.x/y\\t"},
      {"W.x\\", "W.x\\"},
      {"x", "x"},
      {"", ""},
  };
  for (const auto& [path, without] : cases)
    EXPECT_EQ(PathText(FileUtility::RemoveExtension(PlatformPath(path))), without);
}

struct SavedFile : ::testing::Test {
  const TemporaryFolder folder;
  const std::string path = folder.Put("cbfile.txt", "old");

  void Save(const std::string& to, const std::string& text) {
    SaveFile file(to);
    file.Write(text);
    file.Commit();
  }
  /// True if the folder contains only the file itself.
  bool Tidy() const { return std::distance(fs::directory_iterator(fs::path(path).parent_path()), {}) == 1; }
};

TEST_F(SavedFile, ReplacesTheOldFileOnlyWhenItIsWhole) {
  {
    SaveFile abandoned(path);
    abandoned.Write("half of the n");
    EXPECT_EQ(ReadText(path), "old");
  }
  EXPECT_EQ(ReadText(path), "old");
  EXPECT_TRUE(Tidy());
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  Save(path, "new");
  EXPECT_EQ(ReadText(path), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_TRUE(Tidy());
}

TEST_F(SavedFile, KeepsTheOldFileIfTheDiskIsFull) {
  const std::string sentence =
      path + " could not be written completely (No space left on device); the earlier file, if any, is unchanged.";
  for (const size_t count : {5, 1'000'000}) {  // noticed at the end, or while writing
    const InjectedFault full(1, count == 5 ? FileCall::Flush : FileCall::Write);
    EXPECT_EQ(Refusal([&] { Save(path, std::string(count, 'x')); }), sentence);
  }
  EXPECT_EQ(ReadText(path), "old");
  EXPECT_TRUE(Tidy());
}

TEST_F(SavedFile, IsRefusedWhereNoFileCanBe) {
  EXPECT_EQ(
      Refusal([&] { Save(folder / "no/x", "new"); }),
      folder / "no/x" + " cannot be written (No such file or directory); the earlier file, if any, is unchanged.");
  EXPECT_EQ(Refusal([&] { Save(folder / "", "new"); }), folder / "" + " is a folder; nothing was written.");
}

TEST_F(SavedFile, IsRenamed) {
  const std::string other = folder.Put("other", "new");
  EXPECT_TRUE(FileUtility::RenameFile(other, path));
  EXPECT_FALSE(FileUtility::RenameFile(other, path));
  EXPECT_EQ(ReadText(path), "new");
  EXPECT_TRUE(Tidy());
  EXPECT_EQ(Refusal([&] { FileUtility::RenameFile(path, folder / "no/x"); }),
            path + " cannot be renamed to " + folder / "no/x" + " (No such file or directory).");
}

TEST_F(SavedFile, ReplacesALinkAndLeavesItsTargetAlone) {
  fs::create_symlink("cbfile.txt", folder / "link");
  fs::create_symlink("nothing", folder / "dangling");
  for (const char* name : {"link", "dangling"}) {
    Save(folder / name, "new");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder / name))) << name;
    EXPECT_EQ(ReadText(folder / name), "new");
  }
  EXPECT_EQ(ReadText(path), "old");
  EXPECT_FALSE(fs::exists(folder / "nothing"));
}

TEST_F(SavedFile, ReplacesOnlyRegularFiles) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(Refusal([&] { Save(folder / "pipe", "new"); }),
            folder / "pipe" + " is not a regular file; nothing was written.");
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(SavedFile, CanBeWrittenByTwoAtOnce) {
  SaveFile one(path), other(path);
  one.Write("one");
  other.Write("the other");
  one.Commit();
  EXPECT_EQ(ReadText(path), "one");
  other.Commit();
  EXPECT_EQ(ReadText(path), "the other");
  EXPECT_TRUE(Tidy());
}

TEST_F(SavedFile, RemovesLeftoversOfKilledProgramsOnly) {
  folder.Put("cl-maze1.3.0123456789abcdef.saving~", "half of a cl");
  folder.Put("elsewhere/victim", "a stranger's");
  fs::create_symlink("elsewhere/victim", folder / "x.saving~");
  ASSERT_EQ(mkfifo((folder / "pipe.saving~").c_str(), 0600), 0);
  SaveFile running(path), finished(folder / "other");
  finished.Finish();
  RemoveLeftovers(folder / "");
  EXPECT_FALSE(fs::exists(folder / "cl-maze1.3.0123456789abcdef.saving~"));
  EXPECT_EQ(ReadText(folder / "elsewhere/victim"), "a stranger's");
  running.Write("new");
  running.Commit();
  finished.Commit();
  EXPECT_EQ(ReadText(path), "new");
}

TEST_F(SavedFile, IsBackedUpOnlyIfItCanBeReadAndIsNotEmpty) {
  const auto worth = [](std::string_view content) { return content != "broken"; };
  const std::string copy = path + ".bak";
  for (const auto& [content, kept] :
       std::initializer_list<std::pair<const char*, const char*>>{{"broken", "broken"},  // there was no copy yet
                                                                  {"good", "good"},
                                                                  {"broken", "good"},
                                                                  {"better", "better"}}) {
    folder.Put("cbfile.txt", content);
    FileUtility::SafeguardFile(path, worth);
    EXPECT_EQ(ReadText(copy), kept);
    EXPECT_EQ(ReadText(path), content);
  }
  // The copy is not written through a link, and no copy is made of a link's target.
  fs::remove(copy);
  folder.Put("victim", "a stranger's");
  fs::create_symlink("victim", copy);
  FileUtility::SafeguardFile(path, worth);
  EXPECT_EQ(ReadText(folder / "victim"), "a stranger's");
  EXPECT_EQ(ReadText(copy), "better");
  fs::create_symlink("victim", folder / "link");
  FileUtility::SafeguardFile(folder / "link", worth);
  EXPECT_FALSE(fs::exists(folder / "link.bak"));
}

}  // namespace
}  // namespace pallomir
