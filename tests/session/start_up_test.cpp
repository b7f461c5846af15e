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
