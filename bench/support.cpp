#include "support.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <numbers>
#include <random>

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/projection/colours.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/session/point_reader.h"
#include "pallomir/session/start_up.h"

namespace pallomir::bench {

namespace {

constexpr float kCentres[4][4] = {{120, 60, 40, 80}, {60, 140, 90, 30}, {40, 50, 150, 120}, {40, 40, 40, 40}};

void WriteRows(const std::string& path, Channels channels) {
  std::mt19937 generator(1);
  std::normal_distribution<float> normal;
  SaveFile file(path);
  std::array<unsigned char, kRowBytes> row{};
  const auto set = [&](int p, float value) { StoreLittleEndian(row.data() + 8 + 4 * p, value); };
  if (channels == Channels::All)
    for (int p = 0; p < kParameters; ++p) set(p, static_cast<float>(p + 1));
  for (int64_t r = 0; r < Spikes(); ++r) {
    const auto& centre = kCentres[generator() % 4];
    StoreLittleEndian(row.data(), static_cast<uint64_t>(kFirstStamp + 1000 * r));
    for (int c = 0; c < 4; ++c) {
      const float peak = centre[c] * (1 + 0.1F * normal(generator)) + 8 * normal(generator);
      set(kMPeak + c, peak);
      set(kPreVal + c, -20 + 5 * normal(generator));
      set(kEnergy + c, peak * 0.4F);
      set(kValley + c, peak * -0.6F);
    }
    for (const int p : {kRecordSlot, kSpikeID, kTimestamp}) set(p, static_cast<float>(r));
    for (const int p : {kMaxHeight, kMaxWidth, kPosX, kPosY}) set(p, 100 + normal(generator));
    file.Write(row.data(), row.size());
  }
  file.Commit();
}

/// Removed when the program ends.
struct Folder {
  std::filesystem::path Path =
      std::filesystem::temp_directory_path() / ("pallomir-bench-" + std::to_string(std::random_device{}()));
  Folder() { std::filesystem::create_directories(Path / "TT1"); }
  ~Folder() {
    std::error_code error;
    std::filesystem::remove_all(Path, error);
  }
};

}  // namespace

int64_t Spikes() {
  const char* wanted = std::getenv("PALLOMIR_BENCH_SPIKES");
  static const int64_t spikes = wanted ? std::atoll(wanted) : 1'000'000;
  return spikes;
}

const std::string& RecordingFolder(Channels channels) {
  static const Folder folders[2];
  static std::string data[2];
  const auto which = static_cast<size_t>(channels);
  if (data[which].empty()) {
    const std::string path = PathText(folders[which].Path / "TT1");
    WriteRows(path + "/TT1.Ntt.parms", channels);
    SaveFile rate(path + "/../VideoSampling");
    rate.Write("30\r\n");
    rate.Commit();
    data[which] = path;
  }
  return data[which];
}

std::string ParameterFilePath(Channels channels) {
  return RecordingFolder(channels) + "/TT1.Ntt.parms";
}

const std::string& SpikeFilePath() {
  static const std::string path = [] {
    const std::string name = RecordingFolder() + "/bench.Ntt";
    SaveFile file(name);
    std::mt19937 generator(1);
    std::array<unsigned char, kTetrodeLayout.RecordBytes> record{};
    for (int64_t r = 0; r < Spikes(); ++r) {
      StoreLittleEndian(record.data(), static_cast<uint64_t>(kFirstStamp + 1000 * r));
      const int height = r % kOneIn == 0 ? 6000 : 1500 + static_cast<int>(generator() % 1500);
      for (int i = 0; i < kWaveformSamples * kWires; ++i) {
        const int t = i / kWires - 8;
        const auto shape = static_cast<int>(height * std::exp(-t * t / 12.0) / (1 + i % kWires));
        StoreLittleEndian(record.data() + kSpikeSamples + 2 * i,
                          static_cast<int16_t>(shape + static_cast<int>(generator() % 600) - 300));
      }
      file.Write(record.data(), record.size());
    }
    file.Commit();
    return name;
  }();
  return path;
}

Session OpenSession(Channels channels) {
  Session session;
  session.DataDirectory = RecordingFolder(channels);
  OpenParameterFile(session, ParameterFilePath(channels));
  InitialiseSession(session);
  BuildColourTable(session);
  return session;
}

Session& LoadedSession() {
  static Session session = [] {
    Session loaded = OpenSession();
    QuietWorld world;
    ReadPoints(loaded, world, 0, static_cast<int32_t>(Spikes() - 1));
    return loaded;
  }();
  return session;
}

Boundary Polygon(int vertices, bool star) {
  Boundary boundary;
  boundary.XParameter = 0;
  boundary.YParameter = 1;
  boundary.VertexCount = static_cast<int16_t>(vertices);
  for (int k = 0; k < vertices; ++k) {
    const double angle = 2 * std::numbers::pi * k / vertices;
    const double radius = star && k % 2 ? 15 : 30;
    boundary.Vertices[k] = {static_cast<float>(120 + radius * std::cos(angle)),
                            static_cast<float>(60 + radius * std::sin(angle))};
  }
  return boundary;
}

}  // namespace pallomir::bench
