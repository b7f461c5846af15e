#include "gui/controls/titles.h"

#include "gui/controls/toolkit_values.h"
#include "pallomir/files/platform.h"

namespace pallomir {

QString TetrodeOf(const Session& session) {
  const QString name = FromText(NameText(session.File.Path));
  constexpr QLatin1String ending(".Ntt.parms");
  return name.endsWith(ending, Qt::CaseInsensitive) ? name.chopped(ending.size()) : name;
}

QString TitleWithTetrode(const QString& caption, const QString& tetrode, int c) {
  QStringList shown;
  if (!tetrode.isEmpty()) shown << tetrode;
  if (c != 0) shown << QString("cluster %1").arg(c);
  return shown.isEmpty() ? caption : caption + QString::fromUtf8(" \u2014 ") + shown.join(", ");
}

QString FileNameWithTetrode(const QString& tetrode, const QStringList& what) {
  QStringList words;
  if (!tetrode.isEmpty()) words << tetrode;
  for (const QString& part : what) words << part.left(1).toLower() + part.mid(1);
  return words.join(" ");
}

}  // namespace pallomir
