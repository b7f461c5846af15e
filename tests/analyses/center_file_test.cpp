// The center of the maze, written by a click and read by the report.

#include "pallomir/analyses/center_file.h"

#include <gtest/gtest.h>

#include "pallomir/files/file_reader.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

struct CenterFile : ::testing::Test {
  TemporaryFolder folder;
  RecordingWorld world;
  Session session;

  CenterFile() {
    folder.Put("TT1/TT1.Ntt.parms", "");
    session.DataDirectory = folder / "TT1";
  }
};

TEST_F(CenterFile, IsWrittenNextToThePositionFileUnderTheNameTyped) {
  WriteCenterFile(session, world, "CenterCoords", {312.5F, 1.0F / 3});
  EXPECT_EQ(ReadText(folder / "CenterCoords"), "312.5,0.3333333\r\n");
  WriteCenterFile(session, world, "other", {-1, 1.5e7F});
  EXPECT_EQ(ReadText(folder / "other"), "-1,1.5E+07\r\n");
  EXPECT_EQ(ReadText(folder / "CenterCoords"), "312.5,0.3333333\r\n");
  EXPECT_EQ(world.Log, (std::vector<std::string>{"Done writing center file X=312.5 Y=0.3333333",
                                                 "Done writing center file X=-1 Y=1.5E+07"}));
  const auto read = ReadCenterFile(CenterFilePath(session));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->X, 312.5F);
  EXPECT_FLOAT_EQ(read->Y, 1.0F / 3);
}

TEST_F(CenterFile, IsNotWrittenWithoutANameOrAFolder) {
  EXPECT_EQ(Refusal([&] { WriteCenterFile(session, world, "", {3, 4}); }), "Error: Need to specify Center File Name");
  EXPECT_NE(Refusal([&] { WriteCenterFile(session, world, "no\\CenterCoords", {5, 6}); }), "");
  EXPECT_TRUE(world.Log.empty());
}

TEST_F(CenterFile, IsReadInFullOrRefused) {
  const std::filesystem::path path = CenterFilePath(session);
  EXPECT_FALSE(ReadCenterFile(path));
  folder.Put("CenterCoords", " 3 , 4\n\n");
  EXPECT_EQ(ReadCenterFile(path)->Y, 4);
  const std::pair<std::string, std::string> cases[] = {
      {"", "CenterCoords ended early, at line 1."},
      {"3\r\n", "CenterCoords ended early, at line 2."},
      {"3,y\r\n", "CenterCoords, line 1: \"y\" is not a number."},
      {"3,1e99", "CenterCoords, line 1: 1E+99 is too large for single precision."},
      {"3,4,5\r\n", "CenterCoords, line 1: there are more values than X and Y."},
  };
  for (const auto& [text, refusal] : cases) {
    folder.Put("CenterCoords", text);
    EXPECT_EQ(Refusal([&] { ReadCenterFile(path); }), refusal);
  }
}

}  // namespace
}  // namespace pallomir
