#pragma once

#include "pallomir/session/world.h"

namespace pallomir {

/// A world without a user interface, for the command line and benchmarks.
class QuietWorld : public World {
 public:
  void ShowMessage(std::string_view, std::string_view) override {}
  void AppendMessage(std::string_view) override {}
  void ShowProgress(double) override {}
  void HideProgress() override {}
  bool PumpEvents() override { return true; }
};

}  // namespace pallomir
