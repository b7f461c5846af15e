#include "gui/viewers/report_source.h"

#include "gui/controls/titles.h"
#include "gui/viewers/report_form.h"
#include "gui/viewers/report_sheet.h"
#include "pallomir/analyses/report.h"

namespace pallomir {

void ReportSource::ShowReport(const ReportFiles& files, const std::string&, bool, double) {
  const Report report = MakeReport(world_, files, cluster_);
  auto form = std::make_unique<ReportForm>(world_, dialogs_, parent_, TetrodeOf(session_), cluster_);
  form->Show(report, ReportTitle(cluster_, files.SpikeFile));
  static_cast<void>(form.release());  // the form owns itself: it is destroyed when closed, or with its parent
}

}  // namespace pallomir
