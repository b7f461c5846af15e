#include "pallomir/projection/draw_points.h"

#include <algorithm>
#include <array>

namespace pallomir {

namespace {

constexpr size_t kBlock = 2048;
using Codes = std::array<uint8_t, kBlock>;
using Numbers = std::array<float, kBlock>;

/// Colour code by cluster; 0 for hidden clusters.
ByCluster<uint8_t> DisplayCodes(const Session& session) {
  ByCluster<uint8_t> codes;
  for (int c = 0; c < kClusterSlots; ++c) codes[c] = static_cast<uint8_t>(session.Display[c] ? ColourCode(c) : 0);
  return codes;
}

void CodesOfPoints(const PointTable& points, const ByCluster<uint8_t>& display, size_t begin, size_t count,
                   UniformNumbers& random, Codes& codes) {
  if (points.SlotsInUse() == 0) {
    std::fill_n(codes.begin(), count, display[0]);
    return;
  }
  const int16_t* first = points.Slot(0).data() + begin;
  if (std::find(display.begin(), display.end(), 0) == display.end()) {
    // All are displayed: compute the codes without a table, so that the loop is vectorised.
    for (size_t i = 0; i < count; ++i) codes[i] = static_cast<uint8_t>(ColourCode(first[i]));
  } else {
    for (size_t i = 0; i < count; ++i) codes[i] = display[first[i]];
  }
  if (points.SlotsInUse() == 1) return;
  const int16_t* second = points.Slot(1).data() + begin;
  for (size_t i = 0; i < count; ++i) {
    if (second[i] == 0) continue;
    const int members = points.Memberships(begin + i);
    const int j = static_cast<int>(static_cast<float>(members) * random.Next());
    codes[i] = display[points.Slot(j)[begin + i]];
  }
}

void Downsample(float fraction, UniformNumbers& random, Numbers& numbers, size_t count, Codes& codes) {
  random.Fill(numbers.data(), count);
  for (size_t i = 0; i < count; ++i) codes[i] = fraction > numbers[i] ? codes[i] : uint8_t{0};
}

void Restrict(const std::vector<std::pair<float, float>>& ranges, const float* records, size_t count, Codes& codes) {
  std::array<uint8_t, kBlock> within{};
  for (const auto& [low, high] : ranges)
    for (size_t i = 0; i < count; ++i) within[i] |= static_cast<uint8_t>((records[i] >= low) & (records[i] <= high));
  for (size_t i = 0; i < count; ++i) codes[i] = within[i] ? codes[i] : uint8_t{0};
}

/// `values` with random jitter of up to half a unit either way, or unchanged.
const float* Spread(const float* values, bool spread, UniformNumbers& random, size_t count, Numbers& into) {
  if (!spread) return values;
  random.Fill(into.data(), count);
  for (size_t i = 0; i < count; ++i) into[i] = values[i] + (into[i] - 0.5F);
  return into.data();
}

/// Draws the points on a raster of either kind.
template <class AnyRaster>
size_t DrawOn(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings, size_t begin,
              size_t end, UniformNumbers& random, AnyRaster& raster) {
  const PointTable& points = session.Points;
  const ByCluster<uint8_t> display = DisplayCodes(session);
  const float* x = points.Column(pair.X).data();
  const float* y = points.Column(pair.Y).data();
  const float* records = points.Column(kRecordSlot).data();
  end = std::min(end, points.Rows());
  Codes codes;
  Numbers spreadX, spreadY;
  size_t drawn = 0;
  for (; begin < end; begin += kBlock) {
    const size_t count = std::min(kBlock, end - begin);
    CodesOfPoints(points, display, begin, count, random, codes);
    if (settings.DownsampleFraction) Downsample(*settings.DownsampleFraction, random, spreadX, count, codes);
    if (settings.RecordRanges) Restrict(*settings.RecordRanges, records + begin, count, codes);
    drawn += raster.Draw(view, Spread(x + begin, session.RandomX, random, count, spreadX),
                         Spread(y + begin, session.RandomY, random, count, spreadY), codes.data(), count);
  }
  return drawn;
}

}  // namespace

double PointRadius(float pointSize, int width) {
  return pointSize < 1 ? 0 : static_cast<double>(width) * pointSize / 1000;
}

size_t DrawPoints(const Session& session, const View& view, const DrawSettings& settings, size_t begin, size_t end,
                  UniformNumbers& random, Raster& raster) {
  return DrawOn(session, {session.XParameter, session.YParameter}, view, settings, begin, end, random, raster);
}

size_t DrawPoints(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings,
                  size_t begin, size_t end, UniformNumbers& random, Raster& raster) {
  return DrawOn(session, pair, view, settings, begin, end, random, raster);
}

size_t DrawDensity(const Session& session, ParameterPair pair, const View& view, const DrawSettings& settings,
                   size_t begin, size_t end, UniformNumbers& random, DensityRaster& raster) {
  return DrawOn(session, pair, view, settings, begin, end, random, raster);
}

}  // namespace pallomir
