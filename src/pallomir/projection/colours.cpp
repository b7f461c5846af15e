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

// The first seven are the set of Okabe and Ito (2008, "Color universal design") without black. Each further one is the
// colour of a grid, neither near white nor near black, whose smallest distance in CIE L*a*b* from those before, as seen
// with normal vision, without red and without green receptors (Machado, Oliveira and Fernandes 2009), is the largest.
constexpr ByCluster<Colour> kSafeColours = {
    kWhite,                                            //
    0x009FE6, 0xE9B456, 0x739E00, 0x42E4F0, 0xB27200,  // 1..5
    0x005ED5, 0xA779CC, 0xFF0000, 0x99EECC, 0x112288,  // 6..10
    0xFF6677, 0x553366, 0xAA3322, 0x5511EE, 0xAADD55,  // 11..15
    0x55AACC, 0x771177, 0xFF9966, 0xFFDDCC, 0xCC2211,  // 16..20
    0x77EEEE, 0x331188, 0x2244BB, 0xCC6622, 0x885588,  // 21..25
    0xCCDD66, 0xCCBB33, 0x77BB33, 0xFF4466, 0x778811,  // 26..30
};

}  // namespace

void BuildColourTable(Session& session) {
  session.ReferenceColours = session.Colours = session.SafeColours ? kSafeColours : kClusterColours;
  session.Colours[0] = session.WhiteBackground ? kBlack : kWhite;
  for (int c = 1; c <= kClusters; ++c)
    if (session.DisplayAsZero[c]) session.Colours[c] = session.Colours[0];
}

void ShowClusters(Session& session) {
  for (int c = 1; c <= kClusters; ++c)
    session.Display[c] = !session.DisplayDisabled[c] && (session.Display[0] || !session.DisplayAsZero[c]);
}

}  // namespace pallomir
