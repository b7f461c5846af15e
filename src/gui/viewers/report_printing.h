#pragma once

#include <QImage>
#include <QPageLayout>

class QPrinter;
class QWidget;

namespace pallomir {

// Prints and saves the report sheet, a widget of labels and plots, with text as text and plots as vectors. All throw
// CommandError if there is not enough memory or a page could not be made.

/// An image at `scale` times the size on the screen.
QImage SheetImage(const QWidget& sheet, int scale);

/// The bytes of a PDF file: one page per copy, with the sheet as large as fits the page.
QByteArray SheetPdf(const QWidget& sheet, const QString& title, const QPageLayout& page, int resolution,
                    int copies = 1);

/// Prints the sheet. Printing to a file is all or nothing, as for every saved file.
void PrintSheet(const QWidget& sheet, const QString& title, QPrinter& printer, int copies);

}  // namespace pallomir
