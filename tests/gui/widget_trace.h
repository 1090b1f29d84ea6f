#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QWidget>
#include <string>

#include "tests/support/trace.h"

namespace sched {

// The widget of a window by its object name, or the button by its text; "window" for the
// window itself.
inline QWidget* Named(QWidget* window, const std::string& name) {
  if (name == "window") return window;
  const QString text = QString::fromStdString(name);
  if (QWidget* widget = window->findChild<QWidget*>(text)) return widget;
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
    if (button->text() == text) return button;
  }
  ADD_FAILURE() << "no widget " << name;
  return window;
}

// Steps on the widgets of a window, named by their object names, as a user does them, for a
// trace whose state gives its window as Window():
//   click NAME | right-click NAME | focus NAME | type NAME TEXT | key NAME KEYS (as "Ctrl+A",
//   "Down") type-over NAME TEXT     the box's text selected, typed over, and the box left by Tab
//   paste NAME TEXT [TIMES] text put in as a paste does
//   choose LIST TEXT        the entry of a list whose text holds TEXT made the current one
//   set NAME PROPERTY VALUE a property set as the program would
// and "is NAME.PROPERTY VALUE", any Qt property of a widget as text ("true" or "false" for a
// flag, yyyy-MM-dd for a date), "is length:NAME.PROPERTY LENGTH" and "is selection:NAME TEXT".
template <class State>
void AddWidgetWords(testing::Trace<State>& t) {
  using R = const testing::CaseRow&;
  const auto widget = [](State& s, R r) { return Named(s.Window(), r[1]); };
  t.steps["click"] = [widget](State& s, R r) { QTest::mouseClick(widget(s, r), Qt::LeftButton); };
  t.steps["right-click"] = [widget](State& s, R r) {
    QTest::mouseClick(widget(s, r), Qt::RightButton);
  };
  t.steps["focus"] = [widget](State& s, R r) { widget(s, r)->setFocus(); };
  t.steps["type"] = [widget](State& s, R r) {
    QTest::keyClicks(widget(s, r), QString::fromStdString(r[2]));
  };
  t.steps["key"] = [widget](State& s, R r) {
    const QKeyCombination key = QKeySequence(QString::fromStdString(r[2]))[0];
    QTest::keyClick(widget(s, r), key.key(), key.keyboardModifiers());
  };
  t.steps["type-over"] = [widget](State& s, R r) {
    QWidget* box = widget(s, r);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QString::fromStdString(r[2]));
    QTest::keyClick(box, Qt::Key_Tab);
  };
  t.steps["enter"] = [widget](State& s, R r) {
    QWidget* box = widget(s, r);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QString::fromStdString(r[2]));
    QTest::keyClick(box, Qt::Key_Return);
  };
  t.steps["paste"] = [widget](State& s, R r) {
    QString text;
    for (int i = 0; i < (r[3].empty() ? 1 : r.Int(3)); ++i) text += QString::fromStdString(r[2]);
    QMetaObject::invokeMethod(widget(s, r), "insertPlainText", Q_ARG(QString, text));
  };
  // The entry of a list whose text holds TEXT made the current one.
  t.steps["choose"] = [widget](State& s, R r) {
    auto* list = qobject_cast<QListWidget*>(widget(s, r));
    const auto found = list->findItems(QString::fromStdString(r[2]), Qt::MatchContains);
    ASSERT_FALSE(found.isEmpty()) << r.where;
    list->setCurrentItem(found.front());
  };
  t.steps["set"] = [widget](State& s, R r) {
    widget(s, r)->setProperty(r[2].c_str(), QString::fromStdString(r[3]));
  };
  const auto property = [](State& s, const std::string& look) {
    const std::size_t dot = look.rfind('.');
    const QVariant value =
        Named(s.Window(), look.substr(0, dot))->property(look.substr(dot + 1).c_str());
    EXPECT_TRUE(value.isValid()) << "no property " << look;
    return value.toString().toStdString();
  };
  t.otherLook = property;
  // The selected text of a box, or of the line edit within it.
  t.looks["selection"] = [](State& s, auto& name) {
    QWidget* box = Named(s.Window(), name);
    auto* line = qobject_cast<QLineEdit*>(box) ? qobject_cast<QLineEdit*>(box)
                                               : box->findChild<QLineEdit*>();
    return line->selectedText().toStdString();
  };
  t.looks["length"] = [property](State& s, auto& look) {
    return std::to_string(QString::fromStdString(property(s, look)).size());
  };
}

}  // namespace sched
