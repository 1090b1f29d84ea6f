#pragma once

#include <QBoxLayout>
#include <QColor>
#include <QDialog>
#include <QObject>
#include <QPalette>
#include <QPushButton>
#include <QWidget>
#include <cstdint>
#include <functional>

namespace sched {

// A colour as the forms number it (red in the low byte, high bit for a system colour) in the
// widget's palette.
QColor FormColor(std::uint32_t color, const QPalette& palette);

struct OkCancelButtons {
  QPushButton* ok = nullptr;
  QPushButton* cancel = nullptr;
};

// The OK and Cancel buttons at the right of a dialog's foot, OK the default; each runs its
// handler of the form model and then closes the dialog with its result.
OkCancelButtons AddOkCancel(QDialog* dialog, QBoxLayout* layout, const char* okName,
                            const char* okText, std::function<void()> ok, const char* cancelName,
                            const char* cancelText, std::function<void()> cancel);

// Hands the keys pressed anywhere in a window to its form model first, by their window-system
// key codes (Left 37, Right 39, F1 112); a key that the model uses goes no further.
class KeyDownFilter : public QObject {
 public:
  KeyDownFilter(QWidget* window, std::function<bool(int)> keyDown);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<bool(int)> keyDown_;
};

}  // namespace sched
