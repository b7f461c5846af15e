#pragma once

#include "gui/controls/dialogs.h"
#include "pallomir/components/components.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

class QWidget;

namespace pallomir {

/// Makes the report of cluster `c` and shows it in its own sheet.
class ReportSource : public SpikeSource {
 public:
  ReportSource(const Session& session, World& world, Dialogs& dialogs, QWidget* parent, int c)
      : session_(session), world_(world), dialogs_(dialogs), parent_(parent), cluster_(c) {}

  void ShowReport(const ReportFiles& files, const std::string& mode, bool option, double number) override;

 private:
  const Session& session_;
  World& world_;
  Dialogs& dialogs_;
  QWidget* parent_;
  int cluster_;
};

}  // namespace pallomir
