#include <gtest/gtest.h>

#include <filesystem>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/file_reader.h"

namespace pallomir {

FUZZ_TARGET(FuzzBoundariesFile);
FUZZ_TARGET(FuzzEventsFile);
FUZZ_TARGET(FuzzNotesFile);
FUZZ_TARGET(FuzzParameterFile);
FUZZ_TARGET(FuzzPositionFile);
FUZZ_TARGET(FuzzResultFile);
FUZZ_TARGET(FuzzSettings);
FUZZ_TARGET(FuzzSpikeFile);
FUZZ_TARGET(FuzzTextItems);
FUZZ_TARGET(FuzzWaveformFile);

namespace {

/// Runs every file of the corpus that fuzzing has collected through its target; a target that finds a fault ends the
/// program.
void RunCorpus(const char* name, int (*target)(const uint8_t*, size_t)) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(std::string(PALLOMIR_CORPUS "/") + name)) {
    const std::string bytes = ReadText(entry.path().string());
    target(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    ++files;
  }
  EXPECT_GT(files, 0);
}

TEST(Corpus, BoundariesFiles) {
  RunCorpus("boundaries_file", FuzzBoundariesFile);
}

TEST(Corpus, EventsFiles) {
  RunCorpus("events_file", FuzzEventsFile);
}

TEST(Corpus, NotesFiles) {
  RunCorpus("notes_file", FuzzNotesFile);
}

TEST(Corpus, Settings) {
  RunCorpus("settings", FuzzSettings);
}

TEST(Corpus, ParameterFiles) {
  RunCorpus("parameter_file", FuzzParameterFile);
}

TEST(Corpus, PositionFiles) {
  RunCorpus("position_file", FuzzPositionFile);
}

TEST(Corpus, ResultFiles) {
  RunCorpus("result_file", FuzzResultFile);
}

TEST(Corpus, SpikeFiles) {
  RunCorpus("spike_file", FuzzSpikeFile);
}

TEST(Corpus, WaveformFiles) {
  RunCorpus("waveform_file", FuzzWaveformFile);
}

TEST(Corpus, TextItems) {
  RunCorpus("text_items", FuzzTextItems);
}

}  // namespace
}  // namespace pallomir
