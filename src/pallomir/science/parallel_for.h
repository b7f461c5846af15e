#pragma once

#include <cstddef>
#include <functional>

#include "pallomir/files/progress.h"

namespace pallomir {

/// Calls body(i) for i = 0 to count - 1 on as many threads as the machine has, in any order. `progress` is told from
/// the calling thread only. The first exception, from a body or from `progress`, ends the work and is thrown again once
/// all threads have ended.
void ParallelFor(size_t count, const Progress& progress, const std::function<void(size_t)>& body);

}  // namespace pallomir
