#include "pallomir/projection/colours.h"

namespace pallomir {

namespace {

constexpr Colour kBlack = 0x000000;
constexpr Colour kWhite = 0xFFFFFF;

// Clusters 17 and 25 share one colour.
constexpr ByCluster<Colour> kClusterColours = {
    kWhite,                                            //
    0x0000FF, 0x00FF00, 0xFF8080, 0x00FFFF, 0xFFFF00,  // 1..5
    0xFF00FF, 0x0080FF, 0x8080FF, 0xFFC0FF, 0xFFFFC0,  // 6..10
    0xC0FFC0, 0xC0FFFF, 0xC0C0FF, 0xC000C0, 0xFFC0C0,  // 11..15
    0x0064C8, 0x64C800, 0x00C8C8, 0x6400C8, 0xC8C800,  // 16..20
    0x0096C8, 0x96C800, 0x00C864, 0xC89600, 0x64C800,  // 21..25
    0xC800C8, 0x64C864, 0xC8C864, 0x00C896, 0x9600C8,  // 26..30
};

}  // namespace

void BuildColourTable(Session& session) {
  session.ReferenceColours = session.Colours = kClusterColours;
  session.Colours[0] = session.WhiteBackground ? kBlack : kWhite;
  for (int c = 1; c <= kClusters; ++c)
    if (session.DisplayAsZero[c]) session.Colours[c] = session.Colours[0];
}

void ShowClusters(Session& session) {
  for (int c = 1; c <= kClusters; ++c)
    session.Display[c] = !session.DisplayDisabled[c] && (session.Display[0] || !session.DisplayAsZero[c]);
}

}  // namespace pallomir
