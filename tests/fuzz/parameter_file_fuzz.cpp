#include <cmath>
#include <cstring>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/projection/draw_points.h"
#include "pallomir/session/start_up.h"
#include "pallomir/timesel/load_points.h"
#include "pallomir/timesel/record_range.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

/// The loaded points are rows first..last of the file, byte for byte, followed by zeros.
void CheckPoints(const Session& session, const std::string& file, int32_t first) {
  const size_t rows = session.Points.Rows();
  for (size_t i = 0; i <= rows; ++i) {
    const size_t offset = static_cast<size_t>(session.File.HeaderLength) + (static_cast<size_t>(first) + i) * kRowBytes;
    std::string expected = i < rows && offset < file.size() ? file.substr(offset, kRowBytes) : "";
    expected.resize(kRowBytes, '\0');
    const PointRecord record = session.Points.Record(i);
    REQUIRE(std::memcmp(&record.Stamp, expected.data(), kStampBytes) == 0);
    REQUIRE(std::memcmp(record.Parameters.data(), expected.data() + kStampBytes, kRowBytes - kStampBytes) == 0);
    for (int p = 0; p < kParameters; ++p)
      if (std::isfinite(record.Parameters[p]))
        REQUIRE(session.DataMinimum[p] <= record.Parameters[p] && record.Parameters[p] <= session.DataMaximum[p]);
  }
}

}  // namespace

/// Two signed 16-bit numbers, the range to load, then the parameter file.
FUZZ_TARGET(FuzzParameterFile) {
  if (size < 4) return 0;
  int16_t range[2];
  std::memcpy(range, data, 4);
  const std::string bytes(reinterpret_cast<const char*>(data) + 4, size - 4);
  static const TemporaryFolder folder;
  static RecordingWorld world;
  Session session;
  InitialiseSession(session);
  folder.Put("VideoSampling", "30");
  session.DataDirectory = folder / "TT1";
  if (!Refusal([&] { OpenParameterFile(session, folder.Put("TT1/x.parms", bytes)); }).empty()) return 0;
  REQUIRE(session.File.HeaderLength >= 0 && static_cast<size_t>(session.File.HeaderLength) <= bytes.size());
  REQUIRE(session.File.RecordCount >= 0);

  AddBoundary(session, 1, RectangleOf(-1, -1, 1e3F, 1e30F));
  AddBoundary(session, 2, PolygonOf({{0, 0}, {1e-30F, 5}, {7, 1e38F}}));
  const bool loaded = Refusal([&] { LoadPoints(session, world, range[0], range[1]); }).empty();
  REQUIRE(loaded == PointsLoaded(session));
  if (loaded) {
    REQUIRE(session.Points.Rows() == static_cast<size_t>(range[1] - range[0] + 1));
    CheckPoints(session, bytes, range[0]);
    for (size_t i = 0; i < session.Points.Rows(); ++i) ListOf(session, i);
    for (const double radius : {0.0, 7.5}) {
      Raster raster(20, 10, radius, 1);
      UniformNumbers random(1);
      session.RandomX = radius > 0;
      const size_t drawn = DrawPoints(session, ViewOf(session, 20, 10), {}, 0, SIZE_MAX, random, raster);
      REQUIRE(drawn <= session.Points.Rows());
    }
  }
  Refusal([&] {
    const auto at = RecordAtStart(session, world, 1e6);
    REQUIRE(at && at->Time >= 1e6 && at->Record < session.File.RecordCount);
  });
  Refusal([&] { RecordAtEnd(session, world, 1e6); });
  Refusal([&] { TimeOfRecord(session, range[0]); });
  world = {};
  return 0;
}

}  // namespace pallomir
