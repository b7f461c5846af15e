#pragma once

#include "pallomir/session/world.h"

namespace pallomir {

/// A world that nobody watches, for work on the command line and in measurements.
class QuietWorld : public World {
 public:
  void ShowMessage(std::string_view, std::string_view) override {}
  void AppendMessage(std::string_view) override {}
  void ShowProgress(double) override {}
  void HideProgress() override {}
  bool PumpEvents() override { return true; }
};

}  // namespace pallomir
