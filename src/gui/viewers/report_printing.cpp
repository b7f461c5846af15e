#include "gui/viewers/report_printing.h"

#include <qcustomplot.h>

#include <QPdfWriter>
#include <QPrinter>
#include <QtWidgets>
#include <algorithm>

#include "gui/controls/chosen_path.h"
#include "gui/controls/save_image.h"
#include "pallomir/files/error.h"
#include "pallomir/files/pdf_bookmarks.h"

namespace pallomir {

namespace {

void Require(bool done, int page) {
  if (!done)
    throw CommandError(ErrorKind::NotWritten, "Page " + std::to_string(page) + " of the report could not be printed.");
}

void PaintWords(QCPPainter& painter, const QWidget& sheet, const QLabel& label) {
  QFont font = label.font();
  font.setPixelSize(QFontInfo(font).pixelSize());
  painter.setFont(font);
  painter.setPen(label.palette().color(QPalette::WindowText));
  const int flags = static_cast<int>(label.alignment()) | (label.wordWrap() ? Qt::TextWordWrap : 0);
  painter.drawText(QRect(label.mapTo(&sheet, QPoint()), label.size()), flags, label.text());
}

/// Draws the sheet as large as fits `page`.
void PaintSheet(QCPPainter& painter, const QWidget& sheet, QSize page) {
  const double scale =
      std::min(static_cast<double>(page.width()) / sheet.width(), static_cast<double>(page.height()) / sheet.height());
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  for (const QLabel* label : sheet.findChildren<QLabel*>()) {
    painter.save();
    PaintWords(painter, sheet, *label);
    painter.restore();
  }
  for (QCustomPlot* plot : sheet.findChildren<QCustomPlot*>()) {
    painter.save();
    painter.translate(plot->mapTo(&sheet, QPoint()));
    plot->toPainter(&painter, plot->width(), plot->height());
    painter.restore();
  }
}

/// `Device` is a QPagedPaintDevice with a resolution.
template <class Device>
void PaintPages(Device& device, const QWidget& sheet, int copies) {
  QCPPainter painter;
  Require(painter.begin(&device), 1);
  for (int copy = 1; copy <= copies; ++copy) {
    Require(copy == 1 || device.newPage(), copy);
    painter.save();
    PaintSheet(painter, sheet, device.pageLayout().paintRectPixels(device.resolution()).size());
    painter.restore();
  }
  Require(painter.end(), copies);
}

}  // namespace

QImage SheetImage(const QWidget& sheet, int scale) {
  QImage image = MakeImage(scale * sheet.size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QCPPainter painter;
  Require(painter.begin(&image), 1);
  PaintSheet(painter, sheet, image.size());
  return image;
}

QPageLayout SavedPage() {
  return {QPageSize(QPageSize::A4), QPageLayout::Landscape, {8, 8, 8, 8}, QPageLayout::Millimeter};
}

QByteArray SheetPdf(const QWidget& sheet, const QString& title, const QPageLayout& page, int resolution, int copies) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(page);
  writer.setResolution(resolution);
  writer.setTitle(title);
  PaintPages(writer, sheet, copies);
  return bytes;
}

struct SheetBook::Document {
  QByteArray Bytes;
  QBuffer Buffer{&Bytes};
  QPdfWriter Writer{&Buffer};
  QCPPainter Painter;
};

SheetBook::SheetBook(const QString& title) : document_(std::make_unique<Document>()) {
  document_->Buffer.open(QIODevice::WriteOnly);
  document_->Writer.setPageLayout(SavedPage());
  document_->Writer.setResolution(kSavedDotsPerInch);
  document_->Writer.setTitle(title);
}

SheetBook::~SheetBook() = default;

void SheetBook::Add(const QWidget& sheet, const QString& bookmark) {
  auto& [bytes, buffer, writer, painter] = *document_;
  bookmarks_.push_back(bookmark.toStdString());
  const int page = static_cast<int>(bookmarks_.size());
  Require(page == 1 ? painter.begin(&writer) : writer.newPage(), page);
  painter.save();
  PaintSheet(painter, sheet, writer.pageLayout().paintRectPixels(writer.resolution()).size());
  painter.restore();
}

QByteArray SheetBook::Finish() {
  Require(document_->Painter.end(), static_cast<int>(bookmarks_.size()));
  const QByteArray& plain = document_->Bytes;
  const auto marked = WithBookmarks({plain.constData(), static_cast<size_t>(plain.size())}, bookmarks_);
  return marked ? QByteArray::fromStdString(*marked) : plain;
}

void PrintSheet(const QWidget& sheet, const QString& title, QPrinter& printer, int copies) {
  // Copies are printed here, as separate pages.
  printer.setCopyCount(1);
  if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
    const QByteArray pdf = SheetPdf(sheet, title, printer.pageLayout(), printer.resolution(), copies);
    SavePictureBytes(pdf, PathOf(printer.outputFileName()));
    return;
  }
  printer.setDocName(title);
  PaintPages(printer, sheet, copies);
  Require(printer.printerState() != QPrinter::Error && printer.printerState() != QPrinter::Aborted, copies);
}

}  // namespace pallomir
