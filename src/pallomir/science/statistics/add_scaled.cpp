#include "pallomir/science/statistics/add_scaled.h"

#include "pallomir/files/platform.h"

namespace pallomir {

PALLOMIR_HOT_LOOP
void AddScaled(const double* from, double weight, double* into, size_t count) {
  for (size_t i = 0; i < count; ++i) into[i] += weight * from[i];
}

}  // namespace pallomir
