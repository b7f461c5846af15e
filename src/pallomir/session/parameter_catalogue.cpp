#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

std::array<std::string, kParameterSlots> ParameterCatalogue() {
  std::array<std::string, kParameterSlots> names;
  const auto family = [&](int first, const std::string& name) {
    for (int channel = 0; channel < 32; ++channel) names[first + channel] = name + "-" + std::to_string(channel + 1);
  };
  family(kMPeak, "MPeak");
  family(kPreVal, "PreVal");
  names[kSpikeID] = "SpikeID";
  family(kEnergy, "Energy");
  names[kMaxHeight] = "MaxHeight";
  names[kMaxWidth] = "MaxWidth";
  names[kPosX] = "PosX";
  names[kPosY] = "PosY";
  names[kTimestamp] = "Timestamp";
  family(kValley, "Valley");
  return names;
}

}  // namespace pallomir
