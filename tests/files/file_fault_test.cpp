#include "pallomir/files/file_fault.h"

#include <gtest/gtest.h>

#include <functional>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_items.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

TEST(FileFault, IsASentenceThatNamesTheFileAndThePlace) {
  const std::filesystem::path file = PlatformPath("/rat/TT1\\cut.txt");
  const std::pair<CommandError, const char*> faults[] = {
      {FaultAt(ErrorKind::Broken, file, FilePlace::AtLine(3), "wrong"), "cut.txt, line 3: wrong."},
      {FaultAt(ErrorKind::Broken, file, FilePlace::InHeader(), "wrong"), "cut.txt, header: wrong."},
      {FaultAt(ErrorKind::Broken, file, {}, "wrong"), "cut.txt: wrong."},
      {FaultOf(ErrorKind::Foreign, file, "is a picture"), "cut.txt is a picture."},
      {EndedEarly(file, FilePlace::AtRecord(0)), "cut.txt ended early, at record 0."},
      {EndedEarly(file, FilePlace::AtByte(7)), "cut.txt ended early, at byte 7."},
      {FaultOfPath(ErrorKind::Missing, file, "does not exist"), "/rat/TT1\\cut.txt does not exist."},
      {NotPresent(file), "/rat/TT1\\cut.txt is not present"},
  };
  for (const auto& [fault, sentence] : faults) {
    EXPECT_STREQ(fault.what(), sentence);
    EXPECT_EQ(fault.File(), file);
  }
}

struct Fault {
  std::function<void()> Command;
  ErrorKind Kind;
  std::filesystem::path File;
  FilePlace Place;
};

TEST(CommandError, TellsACallerWhatItCanActOn) {
  TemporaryFolder folder;
  const std::string text = folder.Put("cut.txt", "1\r\ntwo");
  const std::filesystem::path file = PlatformPath(text);
  const Fault faults[] = {
      {[&] { FileReader(folder / "none"); }, ErrorKind::Missing, folder / "none", {}},
      {[&] { FileReader(folder / ""); }, ErrorKind::Unreadable, folder / "", {}},
      {[&] { SaveFile(folder / ""); }, ErrorKind::NotWritten, folder / "", {}},
      {[&] {
         char bytes[9];
         FileReader(text).Read(4, bytes, sizeof bytes);
       },
       ErrorKind::Broken, file, FilePlace::AtByte(6)},
      {[&] {
         TextItems items("1\r\ntwo", file);
         items.Number();
         items.Number();
       },
       ErrorKind::Broken, file, FilePlace::AtLine(2)},
  };
  for (const Fault& expected : faults) {
    try {
      expected.Command();
      ADD_FAILURE() << "nothing was wrong with " << expected.File;
    } catch (const CommandError& error) {
      const CommandError more = error.With(" More.");
      EXPECT_EQ(more.what(), std::string(error.what()) + " More.");
      EXPECT_EQ(more.Kind(), expected.Kind) << error.what();
      EXPECT_EQ(more.File(), expected.File) << error.what();
      EXPECT_TRUE(more.Place() == expected.Place) << error.what();
    }
  }
}

}  // namespace
}  // namespace pallomir
