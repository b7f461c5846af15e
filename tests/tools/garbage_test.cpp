#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "raw_files.h"
#include "support/refusal.h"
#include "tools/import/import_recording.h"
#include "tools/info/describe_file.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

/// A file with bytes changed, cut off or inserted, or one of random bytes only.
std::string Damaged(std::string bytes, std::mt19937_64& random) {
  const auto below = [&](size_t limit) { return limit == 0 ? 0 : static_cast<size_t>(random() % limit); };
  for (size_t change = below(40); change > 0 && !bytes.empty(); --change)
    bytes[below(bytes.size())] = static_cast<char>(random());
  if (below(3) == 0) bytes.resize(below(bytes.size()));
  if (below(4) == 0) bytes.insert(below(bytes.size()), std::string(below(900), static_cast<char>(random())));
  if (below(10) == 0)
    for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

TEST(DamagedFiles, GiveAnErrorMessageOrAResultAndNeverCrash) {
  const TemporaryFolder folder;
  std::ostringstream said;
  ProgressBar progress(said, false);
  const std::string spikes =
      AcquisitionHeader({{"RecordSize", "304"}, {"ADBitVolts", "1e-8 1e-8"}}) + Spike(1, 2) + Spike(3, 4);
  const std::vector<std::pair<std::string, std::string>> files = {
      {"TT1.Ntt", spikes},
      {"SE1.Nse", AcquisitionHeader() + Spike(1, 2, kSingleElectrodeLayout)},
      {"VT1.Nvt", VideoFrame(1, 2, 3) + VideoFrame(4, 5, 6)},
      {"Events.Nev", AcquisitionHeader() + EventRecord(1, "start")},
      {"a.parms", TextHeader("Parameters") + std::string(kRowBytes * 2, '\1')},
      {"a.waveforms", std::string(5000, '\1')},
      {"Pos.p", TextHeader("PosFile") + "PixelsPerCm,4\r\n1,2,3,4\r\n"},
      {"VideoSampling", "30"},
      {"other", TextHeader("CBFile") + "1,2"},
  };
  std::mt19937_64 random(5);
  for (int round = 0; round < 120; ++round) {
    for (const auto& [name, bytes] : files) {
      const std::string path = folder.Put(name, Damaged(bytes, random));
      Refusal([&] { EXPECT_FALSE(DescribeFile(path, progress).empty()); });
    }
    if (round % 6 != 0) continue;  // each import waits for the disk
    const ImportRequest request{.Spikes = folder / (round % 4 ? "TT1.Ntt" : "SE1.Nse"),
                                .Video = folder / "VT1.Nvt",
                                .Events = folder / "Events.Nev",
                                .Out = folder / "out",
                                .Replace = round % 12 == 0};
    Refusal([&] { EXPECT_FALSE(ImportRecording(request, progress).Lines().empty()); });
  }
}

}  // namespace
}  // namespace pallomir
