#include "pallomir/session/start_up.h"

#include <gtest/gtest.h>

#include "pallomir/files/parameter_header.h"
#include "support/parameter_files.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(ParameterFileName, IsJudgedByItsLastExtensionOnly) {
  for (const char* name : {"TT1.Ntt.parms", "x.parms", ".parms", "a.b/../x.parms"})
    EXPECT_TRUE(IsParameterFileName(name)) << name;
  for (const char* name :
       {"", "TT1.Ntt", "TT1.parms.Ntt", "parms", "x.PARMS", "x.parms ", "x.parms.", "x.Ntt.parms2"}) {
    Session session;
    EXPECT_EQ(Refusal([&] { OpenParameterFile(session, name); }),
              "END File name must end in a .Ntt.parms extension. Exiting program.")
        << name;
  }
}

TEST(OpenParameterFile, LeavesTheSessionUnchangedIfItDoesNotRecogniseTheFile) {
  const TemporaryFolder folder;
  Session session = SessionOn(folder, BytesOf(NumberedRows(7)));
  EXPECT_EQ(Refusal([&] { OpenParameterFile(session, folder.Put("picture.parms", "\x89PNG\r\n\x1a\n")); }),
            "picture.parms is not recognised as a parameter file: no spikes were found after a Pallomir header, "
            "an acquisition-system header or a few lines of text, nor at the start of the file.");
  EXPECT_EQ(session.File.Path, folder / "TT1/TT1.Ntt.parms");
  EXPECT_EQ(session.File.RecordCount, 7);
}

TEST(RecordingAt, IsTheParameterFileOrTheOnlyOneInAFolder) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.Put("TT1/TT1.Ntt.parms", "");
  folder.Put("TT1/TT1.Ntt", "");
  folder.Put("TT1/old.Ntt.parms.bak", "");
  std::filesystem::create_directories(folder / "TT1/TT9.Ntt.parms");  // a folder of that name
  EXPECT_EQ(RecordingAt(file), file);
  EXPECT_EQ(RecordingAt(folder / "TT1"), file);
  EXPECT_EQ(Refusal([&] { RecordingAt(folder / "TT1/TT1.Ntt"); }),
            "TT1.Ntt is not a recording: the name of a parameter file ends in .Ntt.parms.");
  EXPECT_EQ(Refusal([&] { RecordingAt(folder / "TT2.Ntt.parms"); }), folder / "TT2.Ntt.parms" + " is not present");
  EXPECT_EQ(Refusal([&] { RecordingAt(folder / ""); }),
            folder / "" + " holds no recording (a parameter file, .Ntt.parms).");
  folder.Put("TT1/TT2.Ntt.parms", "");
  EXPECT_EQ(Refusal([&] { RecordingAt(folder / "TT1"); }),
            folder / "TT1" + " holds 2 recordings: choose one of its .Ntt.parms files.");
}

TEST(ParameterCatalogue, NamesAreAtTheirColumns) {
  const std::pair<int, const char*> names[] = {
      {0, "MPeak-1"},   {31, "MPeak-32"},   {32, "PreVal-1"},  {63, "PreVal-32"},  {64, "SpikeID"},
      {65, "Energy-1"}, {96, "Energy-32"},  {97, "MaxHeight"}, {98, "MaxWidth"},   {99, "PosX"},
      {100, "PosY"},    {101, "Timestamp"}, {102, "Valley-1"}, {133, "Valley-32"}, {134, ""},
  };
  for (const auto& [index, name] : names) EXPECT_EQ(ParameterCatalogue()[index], name);
}

}  // namespace
}  // namespace pallomir
