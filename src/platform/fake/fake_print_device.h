#pragma once

#include <string>
#include <vector>

#include "platform/print_device.h"

namespace sched {

struct PrintedText {
  int x = 0;
  int y = 0;
  std::string text;
};
struct PrintedRule {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
};
struct PrintedPage {
  std::vector<PrintedText> texts;
  std::vector<PrintedRule> rules;
};

// A page of a set size that keeps what was printed on each page. Every character is
// kCharWidth across and a line kLineHeight high.
class FakePrintDevice : public PrintDevice {
 public:
  static constexpr int kCharWidth = 100;
  static constexpr int kLineHeight = 240;

  FakePrintDevice(int width, int height) : width_(width), height_(height) {}

  // The pages printed on, none before the first text or rule.
  const std::vector<PrintedPage>& Pages() const { return pages_; }
  // How the document ended: "end", "kill", or "none" while it is open.
  const std::string& Ending() const { return ending_; }
  int FontSize() const { return fontSize_; }
  // EndDoc fails, as a file that cannot be written does.
  void FailEnd() { endFails_ = true; }

  void SetFontSize(int points) override { fontSize_ = points; }
  int TextWidth(const std::string& text) const override {
    int characters = 0;
    for (const char c : text) characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return characters * kCharWidth;
  }
  int TextHeight(const std::string&) const override { return kLineHeight; }
  int Width() const override { return width_; }
  int Height() const override { return height_; }
  int CurrentX() const override { return x_; }
  int CurrentY() const override { return y_; }
  void SetCurrentX(int x) override { x_ = x; }
  void SetCurrentY(int y) override { y_ = y; }
  void Print(const std::string& text) override {
    Page().texts.push_back({x_, y_, text});
    x_ += TextWidth(text);
  }
  void Line(int x1, int y1, int x2, int y2) override { Page().rules.push_back({x1, y1, x2, y2}); }
  void NewPage() override {
    Page();
    pages_.emplace_back();
    x_ = y_ = 0;
  }
  DocumentEnd EndDoc() override {
    ending_ = "end";
    return endFails_ ? DocumentEnd::FileNotWritten : DocumentEnd::Printed;
  }
  void KillDoc() override { ending_ = "kill"; }

 private:
  PrintedPage& Page() {
    if (pages_.empty()) pages_.emplace_back();
    return pages_.back();
  }

  int width_;
  int height_;
  int fontSize_ = 0;
  int x_ = 0;
  int y_ = 0;
  bool endFails_ = false;
  std::string ending_ = "none";
  std::vector<PrintedPage> pages_;
};

}  // namespace sched
