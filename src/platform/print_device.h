#pragma once

#include <string>

namespace sched {

// How a document ended: handed over whole, or lost because its file could not be written or the
// printer failed.
enum class DocumentEnd { Printed, FileNotWritten, PrinterFailed };

// A printed document, page by page. Lengths are twips (1/1440 inch) of the page's printable
// area, whose top left corner is (0, 0); Y grows downward. Texts are UTF-8.
class PrintDevice {
 public:
  virtual ~PrintDevice() = default;
  // The size of the font every text is printed in, in points.
  virtual void SetFontSize(int points) = 0;
  // How far a text reaches across, and how high one line of text is.
  virtual int TextWidth(const std::string& text) const = 0;
  virtual int TextHeight(const std::string& text) const = 0;
  // The printable area of a page.
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  // Where the next text goes: its left end and the top of its line.
  virtual int CurrentX() const = 0;
  virtual int CurrentY() const = 0;
  virtual void SetCurrentX(int x) = 0;
  virtual void SetCurrentY(int y) = 0;
  // Prints the text at the current place; the current X moves to the text's right end.
  virtual void Print(const std::string& text) = 0;
  virtual void Line(int x1, int y1, int x2, int y2) = 0;
  // Ends the page and starts the next, with the current place at (0, 0).
  virtual void NewPage() = 0;
  // Hands the document over whole; what fails leaves nothing of it behind.
  [[nodiscard]] virtual DocumentEnd EndDoc() = 0;
  // Throws away what was printed: nothing of the document is left.
  virtual void KillDoc() = 0;
};

}  // namespace sched
