#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "pallomir/analyses/report.h"
#include "pallomir/output/cluster_files.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The clusters that have a boundary, in order.
std::vector<int> DefinedClusters(const Session& session);

/// Throws CommandError if no points are loaded, or no cluster has a boundary.
void RequireDefinedClusters(const Session& session);

/// Makes the report of each of these clusters, as ShowReport does for the current one, and passes it to `use` with the
/// world in which that shows its progress. Every spike is in one cluster throughout: one that lies in several is drawn
/// once. The clusters' spikes go through two files in `folder`, which the caller removes; temporary mode, "cl-tmp" and
/// "ttmp" are left alone. Throws CommandError as ShowReport does, Interrupted when the user stops it.
void MakeReports(const Session& session, World& world, const ClusterFileTexts& texts, const std::string& positionName,
                 const std::vector<int>& clusters, const std::filesystem::path& folder,
                 const std::function<void(int c, const Report& report, World& part)>& use);

}  // namespace pallomir
