#pragma once

#include <functional>
#include <string>

#include "pallomir/components/components.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// What the analysis commands work with.
struct AnalysisTools {
  World& Outside;
  Components& Parts;
  /// The command that writes cluster files; in the temporary mode, the current cluster's.
  std::function<void()> WriteClusterFiles;
};

// The commands that look at the chosen cluster. Each raises the temporary mode, has the cluster's spikes written to
// "cl-tmp" and "ttmp", and hands these to a component, which computes into a file of the data directory and shows it.
// The temporary mode ends only when that has gone well; a command that ends early leaves it on, for the writer to see.
//
// They throw CommandError when no cluster is chosen (nothing is written then), when `positionName`, a file of the
// folder above the data, is empty or not there, and whatever the writer and the components throw.

/// `colours` is "Color" or "Gray".
void ShowRateMap(Session& session, const AnalysisTools& tools, const std::string& positionName,
                 const std::string& colours);

/// Of the whole time range; no cluster needs to be chosen.
void ShowOccupancyMap(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// The rate map is made anew for it.
void ShowSpatialAutoCorr(Session& session, const AnalysisTools& tools, const std::string& positionName,
                         const std::string& colours);

void ShowAutoCorr(Session& session, const AnalysisTools& tools);
void ShowLogISI(Session& session, const AnalysisTools& tools);
void ShowDirection(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// The report needs the spike file that the parameter file was made of, and always looks for "CenterCoords".
void ShowReport(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// Ends after its checks: it shows no average waveforms.
void ShowAvgWaveforms(Session& session, const AnalysisTools& tools);

/// The spike file behind a parameter file: the name without ".parms", or the name itself with another extension.
std::string SpikeFilePath(const std::string& parameterFile);

}  // namespace pallomir
