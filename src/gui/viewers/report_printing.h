#pragma once

#include <QImage>
#include <QPageLayout>

class QPrinter;
class QWidget;

namespace pallomir {

// The report sheet, a widget of labels and plots, on paper and in files: words as letters, plots as lines. All throw
// CommandError when there is no memory, or a page could not be made.

/// `scale` times as large as on the screen.
QImage SheetImage(const QWidget& sheet, int scale);

/// A PDF file's bytes: as many pages as copies are wanted, the sheet as large on each as there is room for.
QByteArray SheetPdf(const QWidget& sheet, const QString& title, const QPageLayout& page, int resolution,
                    int copies = 1);

/// Prints the sheet. A printer that prints to a file gets it whole or not at all, as every file that is saved.
void PrintSheet(const QWidget& sheet, const QString& title, QPrinter& printer, int copies);

}  // namespace pallomir
