#include "platform/qt/qt_print_device.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPen>
#include <cmath>

namespace sched {
namespace {

constexpr double kTwipsPerInch = 1440;
// The rules' width: a hairline that stays visible on paper.
constexpr double kRuleTwips = 10;

}  // namespace

QtPrintDevice::QtPrintDevice(QPrinter& printer) : printer_(printer) {
  if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
    file_ = std::make_unique<QSaveFile>(printer.outputFileName());
    pdf_ = std::make_unique<QPdfWriter>(file_.get());
    pdf_->setResolution(printer.resolution());
    pdf_->setPageLayout(printer.pageLayout());
    pdf_->setCreator(QGuiApplication::applicationDisplayName());
    pdf_->setTitle(printer.docName());
    device_ = pdf_.get();
  } else {
    device_ = &printer;
  }
  dpi_ = device_->logicalDpiY();
  // The program's own font, at the size the job sets.
  font_ = QGuiApplication::font();
  metrics_.emplace(font_, device_);
}

QtPrintDevice::~QtPrintDevice() {
  if (begun_) KillDoc();
}

void QtPrintDevice::SetFontSize(int points) {
  font_.setPointSize(points);
  metrics_.emplace(font_, device_);
  if (begun_) painter_.setFont(font_);
}

int QtPrintDevice::TextWidth(const std::string& text) const {
  return Twips(metrics_->horizontalAdvance(QString::fromStdString(text)));
}

int QtPrintDevice::TextHeight(const std::string&) const {
  return Twips(metrics_->lineSpacing());
}

int QtPrintDevice::Width() const {
  return Twips(device_->pageLayout().paintRectPixels(static_cast<int>(dpi_)).width());
}

int QtPrintDevice::Height() const {
  return Twips(device_->pageLayout().paintRectPixels(static_cast<int>(dpi_)).height());
}

double QtPrintDevice::Pixels(int twips) const {
  return twips * dpi_ / kTwipsPerInch;
}

int QtPrintDevice::Twips(double pixels) const {
  return static_cast<int>(std::lround(pixels * kTwipsPerInch / dpi_));
}

bool QtPrintDevice::Begin() {
  if (begun_ || failed_) return begun_;
  if (file_ && !file_->open(QIODevice::WriteOnly)) {
    failed_ = true;
    return false;
  }
  if (!painter_.begin(device_)) {
    failed_ = true;
    return false;
  }
  begun_ = true;
  painter_.setFont(font_);
  QPen pen(Qt::black);
  pen.setWidthF(Pixels(static_cast<int>(kRuleTwips)));
  painter_.setPen(pen);
  return true;
}

void QtPrintDevice::Print(const std::string& text) {
  if (!text.empty() && Begin()) {
    painter_.drawText(QPointF(Pixels(CurrentX()), Pixels(y_) + metrics_->ascent()),
                      QString::fromStdString(text));
  }
  CurrentX();
  unmeasured_ = text;
}

int QtPrintDevice::CurrentX() const {
  if (!unmeasured_.empty()) {
    x_ += TextWidth(unmeasured_);
    unmeasured_.clear();
  }
  return x_;
}

void QtPrintDevice::Line(int x1, int y1, int x2, int y2) {
  if (Begin()) painter_.drawLine(QPointF(Pixels(x1), Pixels(y1)), QPointF(Pixels(x2), Pixels(y2)));
}

void QtPrintDevice::NewPage() {
  if (Begin()) device_->newPage();
  SetCurrentX(0);
  y_ = 0;
}

DocumentEnd QtPrintDevice::EndDoc() {
  const DocumentEnd failed = file_ ? DocumentEnd::FileNotWritten : DocumentEnd::PrinterFailed;
  if (!Begin()) return failed;
  begun_ = false;
  const bool painted = painter_.end();
  if (!file_) return painted ? DocumentEnd::Printed : failed;
  // An uncommitted file is removed with its writer.
  if (!painted) file_->cancelWriting();
  return file_->commit() ? DocumentEnd::Printed : failed;
}

void QtPrintDevice::KillDoc() {
  if (!begun_) return;
  begun_ = false;
  if (!file_) printer_.abort();
  painter_.end();
  if (file_) file_->cancelWriting();
}

}  // namespace sched
