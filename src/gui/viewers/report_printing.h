#pragma once

#include <QImage>
#include <QPageLayout>
#include <memory>
#include <string>
#include <vector>

class QPrinter;
class QWidget;

namespace pallomir {

// Prints and saves the report sheet, a widget of labels and plots, with text as text and plots as vectors. All throw
// CommandError if there is not enough memory or a page could not be made.

/// The page and resolution of saved reports: A4 landscape.
QPageLayout SavedPage();
inline constexpr int kSavedDotsPerInch = 1200;

/// An image at `scale` times the size on the screen.
QImage SheetImage(const QWidget& sheet, int scale);

/// The bytes of a PDF file: one page per copy, with the sheet as large as fits the page.
QByteArray SheetPdf(const QWidget& sheet, const QString& title, const QPageLayout& page, int resolution,
                    int copies = 1);

/// A PDF document of many sheets, which need not exist at the same time: a page for each, with a bookmark.
class SheetBook {
 public:
  explicit SheetBook(const QString& title);
  ~SheetBook();

  void Add(const QWidget& sheet, const QString& bookmark);
  /// The bytes of the finished document.
  QByteArray Finish();

 private:
  struct Document;
  std::unique_ptr<Document> document_;
  std::vector<std::string> bookmarks_;
};

/// Prints the sheet. Printing to a file is all or nothing, as for every saved file.
void PrintSheet(const QWidget& sheet, const QString& title, QPrinter& printer, int copies);

}  // namespace pallomir
