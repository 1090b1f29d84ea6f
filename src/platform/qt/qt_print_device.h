#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <memory>
#include <optional>

#include "platform/print_device.h"

namespace sched {

// Prints through Qt on the printer a print dialog set up. When the printer prints to a PDF file,
// the file is written whole at the end of the document or not at all: the pages go to a
// temporary file beside it, which takes its name only once it is complete. Nothing is begun
// before the first text or line, so that a document killed before it leaves nothing behind.
class QtPrintDevice : public PrintDevice {
 public:
  explicit QtPrintDevice(QPrinter& printer);
  ~QtPrintDevice() override;

  void SetFontSize(int points) override;
  int TextWidth(const std::string& text) const override;
  int TextHeight(const std::string& text) const override;
  int Width() const override;
  int Height() const override;
  int CurrentX() const override;
  int CurrentY() const override { return y_; }
  void SetCurrentX(int x) override {
    x_ = x;
    unmeasured_.clear();
  }
  void SetCurrentY(int y) override { y_ = y; }
  void Print(const std::string& text) override;
  void Line(int x1, int y1, int x2, int y2) override;
  void NewPage() override;
  DocumentEnd EndDoc() override;
  void KillDoc() override;

 private:
  // Starts painting; false when the document cannot be begun.
  bool Begin();
  double Pixels(int twips) const;
  int Twips(double pixels) const;

  QPrinter& printer_;
  std::unique_ptr<QSaveFile> file_;
  std::unique_ptr<QPdfWriter> pdf_;
  QPagedPaintDevice* device_ = nullptr;  // the printer, or the PDF writer of its file
  QPainter painter_;
  QFont font_;
  std::optional<QFontMetricsF> metrics_;  // of the font on the device
  double dpi_ = 0;
  bool begun_ = false;
  bool failed_ = false;
  // The last text printed moves the current X on by its width, which is measured only when the
  // current X is asked for: the job places nearly every text itself.
  mutable int x_ = 0;
  mutable std::string unmeasured_;
  int y_ = 0;
};

}  // namespace sched
