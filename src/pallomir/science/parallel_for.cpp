#include "pallomir/science/parallel_for.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace pallomir {

void ParallelFor(size_t count, const Progress& progress, const std::function<void(size_t)>& body) {
  std::atomic<size_t> next = 0;
  std::mutex guard;
  std::exception_ptr failure;
  const auto work = [&](bool report) {
    try {
      for (size_t i = next++; i < count; i = next++) {
        body(i);
        if (report) progress.Reached(static_cast<double>(i + 1) / static_cast<double>(count));
      }
    } catch (...) {
      const std::lock_guard lock(guard);
      if (!failure) failure = std::current_exception();
      next = count;
    }
  };
  const size_t threads = std::clamp<size_t>(std::thread::hardware_concurrency(), 1, std::max<size_t>(count, 1));
  {
    std::vector<std::jthread> others;
    for (size_t t = 1; t < threads; ++t) others.emplace_back(work, false);
    work(true);
  }
  if (failure) std::rethrow_exception(failure);
  // The others may have done all the work before the calling thread reported anything.
  progress.Reached(1);
}

}  // namespace pallomir
