#pragma once

#include <functional>
#include <memory>

#include "gui/controls/dialogs.h"
#include "pallomir/components/components.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

class QWidget;

namespace pallomir {

/// The components of the desktop application: each result is shown in its own window, which stays open until the user
/// closes it or `parent` is destroyed.
class DesktopComponents : public Components {
 public:
  using SpikeSourceMaker = std::function<std::unique_ptr<SpikeSource>()>;

  /// `dialogs` must outlive the windows, `session` and `world` the components.
  DesktopComponents(const Session& session, World& world, Dialogs& dialogs, QWidget* parent,
                    SpikeSourceMaker makeSpikeSource)
      : session_(session),
        world_(world),
        dialogs_(dialogs),
        parent_(parent),
        makeSpikeSource_(std::move(makeSpikeSource)) {}

  std::unique_ptr<MapEngine> MakeMapEngine() override;
  std::unique_ptr<TrainPlot> MakeTrainPlot() override;
  std::unique_ptr<DirectionPlot> MakeDirectionPlot() override;
  std::unique_ptr<SpikeSource> MakeSpikeSource() override { return makeSpikeSource_(); }

 private:
  const Session& session_;
  World& world_;
  Dialogs& dialogs_;
  QWidget* parent_;
  SpikeSourceMaker makeSpikeSource_;
};

}  // namespace pallomir
