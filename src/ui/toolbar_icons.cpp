#include "ui/toolbar_icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace sched {
namespace {

const QColor kInk(0x33, 0x3d, 0x4a);
const QColor kPaper(0xfb, 0xfc, 0xfe);
const QColor kBlue(0x2f, 0x6f, 0xc0);
const QColor kGreen(0x2e, 0x8b, 0x57);
const QColor kRed(0xc0, 0x39, 0x2b);
const QColor kFolder(0xe8, 0xb0, 0x3c);

// Pictures are drawn on a 24 x 24 grid and scaled.
void DrawPage(QPainter& p) {
  QPainterPath page;
  page.moveTo(5, 2.5);
  page.lineTo(14.5, 2.5);
  page.lineTo(19.5, 7.5);
  page.lineTo(19.5, 21.5);
  page.lineTo(5, 21.5);
  page.closeSubpath();
  p.setBrush(kPaper);
  p.drawPath(page);
  p.drawLine(QPointF(14.5, 2.5), QPointF(14.5, 7.5));
  p.drawLine(QPointF(14.5, 7.5), QPointF(19.5, 7.5));
}

void DrawFolder(QPainter& p) {
  QPainterPath back;
  back.moveTo(2.5, 6);
  back.lineTo(9, 6);
  back.lineTo(11, 8);
  back.lineTo(20.5, 8);
  back.lineTo(20.5, 19.5);
  back.lineTo(2.5, 19.5);
  back.closeSubpath();
  p.setBrush(kFolder.darker(115));
  p.drawPath(back);
  QPainterPath front;
  front.moveTo(4.5, 11);
  front.lineTo(22.5, 11);
  front.lineTo(20.5, 19.5);
  front.lineTo(2.5, 19.5);
  front.closeSubpath();
  p.setBrush(kFolder);
  p.drawPath(front);
}

void DrawDisk(QPainter& p) {
  p.setBrush(kBlue);
  p.drawRoundedRect(QRectF(3.5, 3.5, 17, 17), 2, 2);
  p.setBrush(kPaper);
  p.drawRect(QRectF(7, 3.5, 10, 6.5));
  p.setBrush(kBlue.lighter(160));
  p.drawRect(QRectF(6.5, 13, 11, 7.5));
}

// The organiser on the wrist: a band and a square face.
void DrawDevice(QPainter& p) {
  p.setBrush(kInk.lighter(170));
  p.drawRect(QRectF(8, 1.5, 8, 21));
  p.setBrush(kInk);
  p.drawRoundedRect(QRectF(4.5, 5.5, 15, 13), 3, 3);
  p.setBrush(QColor(0xd6, 0xe9, 0xf7));
  p.drawRoundedRect(QRectF(7, 8, 10, 8), 1.5, 1.5);
}

void DrawArrow(QPainter& p, bool down, const QColor& color) {
  QPainterPath arrow;
  const qreal tip = down ? 22.5 : 12.5;
  const qreal base = down ? 17 : 18;
  arrow.moveTo(18, tip);
  arrow.lineTo(23, base);
  arrow.lineTo(20, base);
  arrow.lineTo(20, down ? 12.5 : 22.5);
  arrow.lineTo(16, down ? 12.5 : 22.5);
  arrow.lineTo(16, base);
  arrow.lineTo(13, base);
  arrow.closeSubpath();
  p.setPen(QPen(Qt::white, 1));
  p.setBrush(color);
  p.drawPath(arrow);
}

void DrawPlus(QPainter& p) {
  DrawPage(p);
  p.setPen(QPen(kGreen, 3, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(12.25, 10), QPointF(12.25, 18));
  p.drawLine(QPointF(8.25, 14), QPointF(16.25, 14));
}

void DrawCross(QPainter& p) {
  DrawPage(p);
  p.setPen(QPen(kRed, 3, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(9, 11), QPointF(15.5, 17.5));
  p.drawLine(QPointF(15.5, 11), QPointF(9, 17.5));
}

void DrawBook(QPainter& p) {
  p.setBrush(kGreen);
  p.drawRoundedRect(QRectF(4.5, 2.5, 15, 19), 1.5, 1.5);
  p.setBrush(kPaper);
  p.drawRect(QRectF(7, 5, 10, 3));
  p.setPen(QPen(kPaper, 1.2));
  p.drawLine(QPointF(7.5, 11.5), QPointF(16.5, 11.5));
  p.drawLine(QPointF(7.5, 14.5), QPointF(16.5, 14.5));
  p.drawLine(QPointF(7.5, 17.5), QPointF(13.5, 17.5));
}

void DrawPrinter(QPainter& p) {
  p.setBrush(kPaper);
  p.drawRect(QRectF(7, 2.5, 10, 7));
  p.setBrush(kInk.lighter(150));
  p.drawRoundedRect(QRectF(2.5, 9, 19, 9), 2, 2);
  p.setBrush(kPaper);
  p.drawRect(QRectF(6.5, 14, 11, 7.5));
  p.setBrush(kGreen);
  p.drawEllipse(QPointF(18.5, 12), 1, 1);
}

// A magnifying glass over a line of text.
void DrawMagnifier(QPainter& p) {
  p.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(14.5, 14.5), QPointF(20.5, 20.5));
  p.setPen(QPen(kInk, 1.8));
  p.setBrush(QColor(0xd6, 0xe9, 0xf7));
  p.drawEllipse(QPointF(10, 10), 6.5, 6.5);
}

// A curved arrow that turns back to the left (undo), or its mirror image (redo).
void DrawTurn(QPainter& p, bool back) {
  if (!back) {
    p.translate(24, 0);
    p.scale(-1, 1);
  }
  QPainterPath curve;
  curve.moveTo(7, 9.5);
  curve.cubicTo(QPointF(15, 9.5), QPointF(20.5, 11), QPointF(20.5, 15.5));
  curve.cubicTo(QPointF(20.5, 19), QPointF(17.5, 20.5), QPointF(13, 20.5));
  p.setPen(QPen(kBlue, 3, Qt::SolidLine, Qt::RoundCap));
  p.setBrush(Qt::NoBrush);
  p.drawPath(curve);
  QPainterPath head;
  head.moveTo(2, 9.5);
  head.lineTo(9, 4);
  head.lineTo(9, 15);
  head.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(kBlue);
  p.drawPath(head);
}

class DrawnIconEngine : public QIconEngine {
 public:
  explicit DrawnIconEngine(QString key) : key_(std::move(key)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 24.0, rect.height() / 24.0);
    painter->setPen(QPen(kInk, 1));
    if (mode == QIcon::Disabled) painter->setOpacity(0.35);
    Draw(*painter);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap image(size);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return image;
  }

  QIconEngine* clone() const override { return new DrawnIconEngine(key_); }

 private:
  void Draw(QPainter& p) const {
    if (key_ == "NewF") {
      DrawPage(p);
    } else if (key_ == "OpenF") {
      DrawFolder(p);
    } else if (key_ == "Save") {
      DrawDisk(p);
    } else if (key_ == "Q390Open") {
      DrawDevice(p);
      DrawArrow(p, true, kGreen);
    } else if (key_ == "Q390Save") {
      DrawDevice(p);
      DrawArrow(p, false, kBlue);
    } else if (key_ == "SclAdd") {
      DrawPlus(p);
    } else if (key_ == "SclDel") {
      DrawCross(p);
    } else if (key_ == "Subject") {
      DrawBook(p);
    } else if (key_ == "Print") {
      DrawPrinter(p);
    } else if (key_ == "Find") {
      DrawMagnifier(p);
    } else if (key_ == "Undo" || key_ == "Redo") {
      DrawTurn(p, key_ == "Undo");
    }
  }

  QString key_;
};

}  // namespace

QIcon ToolbarIcon(const QString& key) {
  return QIcon(new DrawnIconEngine(key));
}

}  // namespace sched
