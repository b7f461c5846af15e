// The Defaults and axis-scale files.

#include <gtest/gtest.h>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_header.h"
#include "pallomir/session/axis_scale_file.h"
#include "pallomir/session/defaults_file.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

TEST(Defaults, AreKeptWithoutTheParameterFile) {
  const TemporaryFolder folder;
  Session session;
  session.EpochStartRecord[1] = 500;
  session.EpochEndRecord[1] = 999;
  const Defaults written{"cbfile.m2", "cbfile.m1", "cl-maze2", "old.oparms", "Pos.p", {"A: 1 2", "B, \xc3\xa9: 3 4"}};
  WriteDefaults(session, written, folder / "Defaults");
  const std::string text = ReadText(folder / "Defaults");
  EXPECT_EQ(text.substr(static_cast<size_t>(TextHeaderLength(text))),
            "\"cbfilewrite\",\"cbfile.m2\"\r\n\"cbfileread\",\"cbfile.m1\"\r\n\"clustfile\",\"cl-maze2\"\r\n"
            "\"paramfile\",\"\"\r\n\"posfile\",\"Pos.p\"\r\n\"Epoch\",\"A: 1 2\"\r\n\"EpochEventIDs\",\"0,0\"\r\n"
            "\"Epoch\",\"B, \xc3\xa9: 3 4\"\r\n\"EpochEventIDs\",\"500,999\"\r\n");
  Session other;
  Defaults read{"a", "b", "c", "d", "e", {"left over"}};
  ReadDefaults(other, read, folder / "Defaults");
  EXPECT_EQ(read.CBFileWrite, "cbfile.m2");
  EXPECT_EQ(read.ParamFile, "");
  EXPECT_EQ(read.Epochs, written.Epochs);
  EXPECT_EQ(other.EpochEndRecord, session.EpochEndRecord);
  EXPECT_NE(Refusal([&] { WriteDefaults(session, {"a\"b", {}, {}, {}, {}, {}}, folder / "Defaults"); }), "");
  EXPECT_EQ(ReadText(folder / "Defaults"), text);
}

TEST(Defaults, HoldThirtyEpochsAndNoMore) {
  const TemporaryFolder folder;
  Session session, other;
  session.EpochStartRecord[29] = 7;
  Defaults written, read;
  written.Epochs.assign(30, "A: 1 2");
  WriteDefaults(session, written, folder / "Defaults");
  EXPECT_TRUE(ReadDefaults(other, read, folder / "Defaults"));
  EXPECT_EQ(read.Epochs, written.Epochs);
  EXPECT_EQ(other.EpochStartRecord, session.EpochStartRecord);
  written.Epochs.push_back("B: 3 4");
  EXPECT_EQ(Refusal([&] { WriteDefaults(session, written, folder / "Defaults"); }),
            "A Defaults file holds at most 30 epochs. Nothing was written.");
}

TEST(Defaults, ASecondFileOverridesTheFirst) {
  const TemporaryFolder folder;
  Session session;
  Defaults defaults{"cbfile.m1", "cbfile.m1", "cl-maze1", {}, "Pos.p", {"X: 1 2"}};
  ReadDefaults(session, defaults, folder / "missing");
  EXPECT_EQ(defaults.Epochs.size(), size_t{1});
  folder.Put("second", TextHeader("Defaults") + "\"posfile\",\"P2\"\r\n\"Posfile\",\"no\"\r\n\"other\",\"no\"\r\n");
  ReadDefaults(session, defaults, folder / "second");
  EXPECT_EQ(defaults.PosFile, "P2");
  EXPECT_EQ(defaults.ClustFile, "cl-maze1");
  EXPECT_TRUE(defaults.Epochs.empty());
  defaults.Epochs = {"X: 1 2"};
  folder.Put("foreign", "\"posfile\",\"P3\"\r\n");
  EXPECT_TRUE(IsDefaultsFile(folder / "second") && !IsDefaultsFile(folder / "foreign"));
  EXPECT_FALSE(ReadDefaults(session, defaults, folder / "foreign"));
  EXPECT_EQ(defaults.PosFile, "P2");
  EXPECT_TRUE(defaults.Epochs.empty());
}

TEST(Defaults, FaultsAreNamed) {
  const TemporaryFolder folder;
  std::string epochs;
  for (int i = 0; i < 31; ++i) epochs += "\"EpochEventIDs\",\"" + std::to_string(i) + ",9\"\r\n";
  const std::pair<std::string, std::string> cases[] = {
      {epochs, "Defaults, line 36: there are more than 30 epochs."},
      {"\"EpochEventIDs\",\"a,9\"\r\n", "Defaults, line 6: \"a\" is not a record number."},
      {"\"EpochEventIDs\",\"7\"\r\n", "Defaults, line 6: \"\" is not a record number."},
      {"\"EpochEventIDs\",\"1e99,9\"\r\n", "Defaults, line 6: record 1E+99 is too large."},
      {"\"posfile\"", "Defaults ended early, at line 6."},
  };
  for (const auto& [body, refusal] : cases) {
    Session session;
    Defaults defaults;
    folder.Put("Defaults", TextHeader("Defaults") + body);
    EXPECT_EQ(Refusal([&] { ReadDefaults(session, defaults, folder / "Defaults"); }), refusal);
    EXPECT_EQ(session.EpochStartRecord[29], body == epochs ? 29 : 0);
  }
}

TEST(AxesScaleFile, KeepsEveryRangeOrRestoresNone) {
  const TemporaryFolder folder;
  Session session;
  session.DataDirectory = folder / ".";
  EXPECT_EQ(Refusal([&] { ReadAxesScaleFile(session); }), PathText(AxesScaleFilePath(session)) + " is not present");
  for (int p = 0; p < kParameterSlots; ++p) {
    session.AxisMaximum[p] = 1.0F / static_cast<float>(p + 3);
    session.AxisMinimum[p] = -1.5e12F * static_cast<float>(p);
  }
  WriteAxesScaleFile(session);
  EXPECT_EQ(ReadText(folder / "AxesScaleFile").substr(0, 33), "0.3333333,0\r\n0.25,-1.5E+12\r\n0.2,-");
  Session other;
  other.DataDirectory = session.DataDirectory;
  other.AxisMaximum[134] = 7;
  ReadAxesScaleFile(other);
  EXPECT_FLOAT_EQ(other.AxisMaximum[133], 1.0F / 136);
  EXPECT_EQ(other.AxisMinimum[5], session.AxisMinimum[5]);
  EXPECT_EQ(other.AxisMaximum[134], 7);
  folder.Put("AxesScaleFile", "5,1\r\n6,2\r\n");
  EXPECT_EQ(Refusal([&] { ReadAxesScaleFile(other); }), "AxesScaleFile ended early, at line 3.");
  EXPECT_FLOAT_EQ(other.AxisMaximum[0], 1.0F / 3);
}

}  // namespace
}  // namespace pallomir
