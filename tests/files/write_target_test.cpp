// What the user is asked before a file is written.

#include "pallomir/files/write_target.h"
#include "pallomir/files/platform.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temporary_folder.h"

namespace pallomir {
namespace {

TEST(WriteTarget, IsRecognisedAsOutsideHoweverItIsNamed) {
  const TemporaryFolder folder;
  folder.Put("home/sub/x", "");
  folder.Put("homework/x", "");
  std::filesystem::create_directory_symlink(folder / "homework", folder / "home/link");
  std::filesystem::create_symlink(folder / "homework/x", folder / "home/file");
  const std::string home = folder / "home";
  for (const char* inside : {"\\x.txt", "\\sub\\x", "\\new\\x", "\\sub\\..\\x", "\\\\x", "\\..\\home\\x"})
    EXPECT_EQ(PlaceOutside(home, PlatformPath(home + inside)), "") << inside;
  const std::string real = std::filesystem::canonical(folder / ".").string();
  const std::pair<const char*, const char*> cases[] = {
      {"\\..\\x.txt", "/x.txt"},  {"\\..\\homework\\x", "/homework/x"},
      {"\\sub\\..\\..\\x", "/x"}, {"\\link\\y", "/homework/y"},
      {"\\file", "/homework/x"},
  };
  for (const auto& [name, place] : cases) EXPECT_EQ(PlaceOutside(home, PlatformPath(home + name)), real + place);
}

TEST(WriteTarget, IsWriteProtectedIfNobodyMayWriteIt) {
  const TemporaryFolder folder;
  const std::string file = folder.Put("x", "");
  EXPECT_FALSE(IsWriteProtected(file));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_TRUE(IsWriteProtected(file));
  EXPECT_FALSE(IsWriteProtected(folder / "none"));
}

}  // namespace
}  // namespace pallomir
