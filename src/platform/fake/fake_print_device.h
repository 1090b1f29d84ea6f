#pragma once

#include <string>
#include <vector>

#include "platform/print_device.h"

namespace sched {

// A page of a set size that records what was printed on it, a line each: "text X Y TEXT",
// "line X1 Y1 X2 Y2", "page", "end", "kill". Every character is kCharWidth across and a line
// kLineHeight high.
class FakePrintDevice : public PrintDevice {
 public:
  static constexpr int kCharWidth = 100;
  static constexpr int kLineHeight = 240;

  FakePrintDevice(int width, int height) : width_(width), height_(height) {}

  const std::vector<std::string>& Drawn() const { return drawn_; }
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
    drawn_.push_back("text " + std::to_string(x_) + " " + std::to_string(y_) + " " + text);
    x_ += TextWidth(text);
  }
  void Line(int x1, int y1, int x2, int y2) override {
    drawn_.push_back("line " + std::to_string(x1) + " " + std::to_string(y1) + " " +
                     std::to_string(x2) + " " + std::to_string(y2));
  }
  void NewPage() override {
    drawn_.push_back("page");
    x_ = y_ = 0;
  }
  bool EndDoc() override {
    drawn_.push_back("end");
    return !endFails_;
  }
  void KillDoc() override { drawn_.push_back("kill"); }

 private:
  int width_;
  int height_;
  int fontSize_ = 0;
  int x_ = 0;
  int y_ = 0;
  bool endFails_ = false;
  std::vector<std::string> drawn_;
};

}  // namespace sched
