#include "pallomir/projection/counted_part.h"

#include <gtest/gtest.h>

#include "pallomir/clusters/keep_inside.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(CountedPart, NamesTheCornersAtFault) {
  using Corners = std::vector<int>;
  const struct {
    const char* What;
    std::vector<Vertex> Polygon;
    Corners Inward, Repeated;
    bool Crossing;
  } cases[] = {
      {"square", {{0, 0}, {9, 0}, {9, 9}, {0, 9}}, {}, {}, false},
      {"square, the other way", {{0, 9}, {9, 9}, {9, 0}, {0, 0}}, {}, {}, false},
      {"square with a corner along an edge", {{0, 0}, {4, 0}, {9, 0}, {9, 9}, {0, 9}}, {}, {}, false},
      {"dart", {{0, 0}, {9, 0}, {3, 3}, {0, 9}}, {2}, {}, false},
      {"dart, the other way", {{0, 9}, {3, 3}, {9, 0}, {0, 0}}, {1}, {}, false},
      {"L, from its inner corner", {{4, 4}, {4, 9}, {0, 9}, {0, 0}, {9, 0}, {9, 4}}, {0}, {}, false},
      {"there and back", {{0, 0}, {9, 0}, {9, 9}, {9, 4}, {0, 4}}, {2, 3}, {}, false},
      {"figure of eight", {{0, 0}, {9, 9}, {9, 0}, {0, 9}}, {1, 2}, {}, false},
      {"star", {{5, 9}, {8, 0}, {0, 6}, {9, 6}, {2, 0}}, {}, {}, true},
      {"clicked twice", {{0, 0}, {9, 0}, {9, 0}, {9, 9}}, {}, {2}, false},
      {"closed where the last click was", {{0, 0}, {9, 0}, {9, 9}, {9, 9}}, {}, {3}, false},
      {"begun twice, closed where it began", {{0, 0}, {0, 0}, {9, 0}, {9, 9}, {0, 0}}, {}, {}, false},
      {"triangle, two corners of it", {{0, 0}, {9, 0}}, {}, {}, false},
  };
  for (const auto& c : cases) {
    const PolygonFaults faults = FaultsOf(PolygonOf(c.Polygon));
    EXPECT_EQ(faults.Inward, c.Inward) << c.What;
    EXPECT_EQ(faults.Repeated, c.Repeated) << c.What;
    EXPECT_EQ(faults.Crossing, c.Crossing) << c.What;
    EXPECT_EQ(faults.Sentence().empty(), !faults.Any()) << c.What;
  }
}

TEST(CountedPart, IsWhatTheInsideTestAccepts) {
  const View view{0, 99, 99, 0, 100, 100};
  std::vector<Vertex> repeated(kVerticesPerBoundary, {20.3F, 20.6F});
  repeated[10] = {80.2F, 19.6F};
  repeated[20] = {79.4F, 80.1F};
  for (const Boundary& boundary :
       {PolygonOf(repeated), PolygonOf({{10.3F, 9.7F}, {89.6F, 10.4F}, {30.7F, 31.1F}, {9.2F, 90.3F}}),
        PolygonOf({{20.3F, 20.6F}, {80.2F, 19.6F}, {80.2F, 19.6F}, {79.4F, 80.1F}}),
        PolygonOf({{50.3F, 90.1F}, {80.7F, 5.2F}, {5.4F, 60.3F}, {90.2F, 59.6F}, {20.1F, 4.7F}})}) {
    std::vector<uint32_t> pixels(10000, 0xFF000000);
    ShadeCountedPart({pixels.data(), 100, 100, 100}, view, boundary);
    for (int y = 0; y < 100; ++y)
      for (int x = 0; x < 100; ++x)
        ASSERT_EQ(pixels[y * 100 + x] != 0xFF000000,
                  PointInBoundary(static_cast<float>(x), static_cast<float>(99 - y), boundary) == 1)
            << x << ", " << y;
  }
}

}  // namespace
}  // namespace pallomir
