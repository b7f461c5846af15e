#include "pallomir/files/folder_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "pallomir/files/file_reader.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

namespace fs = std::filesystem;

struct LockedFolder : ::testing::Test {
  const TemporaryFolder folder;
  const std::string file = folder / FolderLock::kFileName;
  FolderLock Lock() const { return FolderLock(folder / ""); }
};

TEST_F(LockedFolder, IsHeldByOneProgramAtATime) {
  {
    FolderLock first = Lock();
    EXPECT_FALSE(first.Taken());
    const FolderLock second = Lock();
    EXPECT_TRUE(second.Taken());
    EXPECT_TRUE(second.Holder().starts_with("process " + std::to_string(getpid()) + " on ")) << second.Holder();
    EXPECT_NE(second.Holder().find(" since 20"), std::string::npos) << second.Holder();
    first = FolderLock();
    EXPECT_FALSE(Lock().Taken());
  }
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(LockedFolder, IsFreeOnceItsProgramWasKilled) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const FolderLock lock = Lock();
    if (write(ready[1], "x", 1) == 1) pause();
    _exit(1);
  }
  char got;
  ASSERT_EQ(read(ready[0], &got, 1), 1);
  EXPECT_TRUE(Lock().Taken());
  EXPECT_TRUE(Lock().Holder().starts_with("process " + std::to_string(child)));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(fs::exists(file));
  EXPECT_FALSE(Lock().Taken());
}

TEST_F(LockedFolder, LeavesForeignFilesUnderTheLocksNameAlone) {
  folder.Put("victim", "a stranger's");
  fs::create_symlink("victim", file);
  EXPECT_FALSE(Lock().Taken());
  fs::remove(file);
  fs::create_hard_link(folder / "victim", file);
  EXPECT_FALSE(Lock().Taken());
  EXPECT_EQ(ReadText(folder / "victim"), "a stranger's");
  fs::remove(file);
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_FALSE(Lock().Taken());
}

TEST_F(LockedFolder, NamesItsHolderInPlainText) {
  const FolderLock lock = Lock();
  for (const auto& [text, holder] : std::initializer_list<std::pair<std::string, std::string>>{
           {"process 1 on \x1b[2Ja\nb since now", "process 1 on [2Jab since now"}, {"<b>", "another program"}}) {
    folder.Put(FolderLock::kFileName, text);
    EXPECT_EQ(Lock().Holder(), holder);
  }
}

TEST_F(LockedFolder, NeedsNoLockIfNoFileCanBeWritten) {
  EXPECT_FALSE(FolderLock(folder / "no/such").Taken());
}

}  // namespace
}  // namespace pallomir
