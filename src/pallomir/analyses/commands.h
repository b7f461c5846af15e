#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "pallomir/components/components.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// What the analysis commands need from the application.
struct AnalysisTools {
  World& Outside;
  Components& Parts;
  /// The command that writes cluster files; in temporary mode, those of the current cluster only.
  std::function<void()> WriteClusterFiles;
};

// Commands that analyse the current cluster. Each turns temporary mode on, has the cluster's spikes written to "cl-tmp"
// and "ttmp", and passes these to a component, which writes its result to a file in the data directory and shows it.
// Temporary mode is turned off only on success; a command that fails leaves it on, which the cluster file writer then
// obeys.
//
// They throw CommandError if no cluster is chosen (before writing anything) or if `positionName`, a file in the parent
// of the data directory, is empty or does not exist, and whatever the writer and the components throw.

/// `colours` is "Color" or "Gray".
void ShowRateMap(Session& session, const AnalysisTools& tools, const std::string& positionName,
                 const std::string& colours);

/// For the whole time range; needs no current cluster.
void ShowOccupancyMap(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// Computes the rate map again.
void ShowSpatialAutoCorr(Session& session, const AnalysisTools& tools, const std::string& positionName,
                         const std::string& colours);

void ShowAutoCorr(Session& session, const AnalysisTools& tools);
void ShowLogISI(Session& session, const AnalysisTools& tools);
void ShowDirection(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// Needs the spike file from which the parameter file was made; always looks for "CenterCoords".
void ShowReport(Session& session, const AnalysisTools& tools, const std::string& positionName);

/// The files for the report of a cluster whose spikes are in these two. Throws CommandError as ShowReport does.
ReportFiles ReportFilesOf(const Session& session, const std::string& positionName,
                          const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile);

/// Only performs its checks: it shows no average waveforms.
void ShowAvgWaveforms(Session& session, const AnalysisTools& tools);

/// The spike file of a parameter file: the name without ".parms", or the name itself if it has another extension.
std::filesystem::path SpikeFilePath(const std::filesystem::path& parameterFile);

}  // namespace pallomir
