// The main window's side of the calendar views: the two tabs, the schedule list dialog, the
// popup menus, and the menu entries the views enable.
#include <QCursor>
#include <QEvent>
#include <QFontMetricsF>
#include <QMoveEvent>
#include <QScreen>
#include <algorithm>

#include "commands/undo_commands.h"
#include "ui/day_tab.h"
#include "ui/find_panel.h"
#include "ui/month_tab.h"
#include "ui/sch_dt.h"
#include "ui/schmain.h"
#include "ui/screen_place.h"
#include "ui/tab_corner.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

// The places that the layout leaves fixed, for a tab page that starts under the tab buttons.
DesignPlaces PageDesign() {
  DesignPlaces d;
  d.tabLeft = 0;
  d.tabTop = 0;
  d.tabStripHeight = 0;
  d.head0Left = d.cell0Left = 185;
  d.head0Top = 60;
  d.hourLabelTop = 330;
  d.hourLabelHeight = 240;
  d.hourLabelWidth = 400;
  d.pictLeft = 240;
  return d;
}

// The height of the font the fixed text boxes were drawn for, in pixels at 96 dpi.
constexpr double kDesignFontHeight = 12.5;
// The width of the day number's box, in twips.
constexpr double kDayNumberWidth = 220;

}  // namespace

void SchMain::BuildPopups() {
  for (const MenuDefinition& definition : PopupTable()) {
    PopupMenu popup{new QMenu(this), {}};
    popup.menu->setObjectName(QString::fromStdString(definition.name));
    AddEntries(popup.menu, definition, CommandPlace::Popup, popup.entries);
    popups_.insert(QString::fromStdString(definition.name), popup);
  }
  schDT_ = new SchDT(
      s_.views, s_.messages, [this](const ViewAction& action) { RunViewAction(action); },
      [this](const PopupItems& items) { ShowPopup("Pop4CTRL", items); }, this);
}

void SchMain::ShowMenus() {
  const MenuState& m = s_.views.Menus();
  for (const CommandAction& c : commandActions_) {
    c.action->setEnabled(s_.commands.Enabled(c.id, c.place, m));
  }
  DelCTRL->setEnabled(DelCTRLEnabled(m));
  if (store_ != nullptr) {
    ActionOf(CommandId::Undo)->setText(QString::fromStdString(UndoMenuText(store_->History())));
    ActionOf(CommandId::Redo)->setText(QString::fromStdString(RedoMenuText(store_->History())));
  }
}

void SchMain::ShowPopup(const QString& name, const PopupItems& items) {
  const PopupMenu popup = popups_.value(name);
  for (const CommandAction& c : popup.entries) {
    c.action->setEnabled(s_.commands.Enabled(c.id, c.place, s_.views.Menus(), items));
  }
  popup.menu->popup(QCursor::pos());
}

void SchMain::ShowViews() {
  const bool onMonth = s_.views.Tab == 0;
  if (onMonth) monthTab_->ShowModel();
  dayTab_->ShowModel();
  monthBar_->setVisible(onMonth);
  label6_->setText(QString::fromStdString(s_.views.DateLabel));
  corner_->Place();
  UpdateListFrame();
  ShowScheduleListDialog();
  ShowMenus();
  if (findPanel_ != nullptr) findPanel_->Refresh();
}

void SchMain::ShowFindPanel() {
  if (findPanel_ == nullptr) {
    findPanel_ = new FindPanel(
        *doc_, s_.dates, [this](const FindResult& result) { GoToFound(result); }, this);
    addDockWidget(Qt::BottomDockWidgetArea, findPanel_);
    // A third of the window, the rest left to the tabs.
    resizeDocks({findPanel_}, {height() / 3}, Qt::Vertical);
  }
  findPanel_->Open();
}

void SchMain::GoToFound(const FindResult& result) {
  HideScheduleList();
  if (SSTab1->currentIndex() != 1) SSTab1->setCurrentIndex(1);
  s_.views.ShowDate(DateOfCode(result.dateCode));
  s_.views.SelectDayRow(result.row);
  ShowViews();
  dayTab_->List1()->setFocus();
}

void SchMain::ShowScheduleListDialog() {
  const double twips = TwipsPerPixel(ViewDpi());
  schDT_->ShowModel(twips);
  // The window system's frame around the dialog is known once it shows: the first showing
  // places it again with the frame's size.
  const ScheduleListFrame& f = s_.views.ListFrame;
  const QSize frame = schDT_->frameGeometry().size();
  if (schDT_->isVisible() && (Pixels(f.dialogWidth, twips) != frame.width() ||
                              Pixels(f.dialogHeight, twips) != frame.height())) {
    UpdateListFrame();
    s_.views.PlaceList();
    schDT_->ShowModel(twips);
  }
}

void SchMain::RunViewAction(const ViewAction& action) {
  ShowViews();
  switch (action.command) {
    case ViewCommand::ShowPopupMenu2: ShowPopup("PopMenuCTRL2", action.popup); break;
    case ViewCommand::ShowPopupMenu3: ShowPopup("PopMenuCTRL3", action.popup); break;
    case ViewCommand::FocusScheduleList:
      schDT_->activateWindow();
      schDT_->List1()->setFocus();
      break;
    case ViewCommand::AddSchedule: s_.commands.Run(CommandId::Add); break;
    case ViewCommand::ModifySchedule: s_.commands.Run(CommandId::Modify); break;
    case ViewCommand::DeleteSchedule: s_.commands.Run(CommandId::Delete); break;
    case ViewCommand::None: break;
  }
}

void SchMain::SSTab1_Click(int tab) {
  if (s_.views.SSTab1_Click(tab)) LayoutViews();
  ShowViews();
  ApplyFocus();
}

void SchMain::GoToday() {
  s_.views.GoToday();
  ShowViews();
  ApplyFocus();
}

void SchMain::ApplyFocus() {
  switch (s_.views.Focus) {
    case FocusTarget::Text1: monthTab_->Text1()->setFocus(); break;
    case FocusTarget::List1: dayTab_->List1()->setFocus(); break;
    case FocusTarget::CSCal4: dayTab_->CSCal4()->setFocus(); break;
  }
}

double SchMain::ViewDpi() const {
  const QScreen* shown = screen();
  const double dpi = shown != nullptr ? shown->logicalDotsPerInch() : 96.0;
  // The fixed boxes of the layout were drawn for a smaller font; a larger one widens them as
  // the system's large-font setting would, so that no day number is cut.
  QFont bold = font();
  bold.setBold(true);
  const double numberWidth = QFontMetricsF(bold).horizontalAdvance("28") + 3;
  return std::max({dpi, 96.0 * fontMetrics().height() / kDesignFontHeight,
                   1440.0 * numberWidth / kDayNumberWidth});
}

void SchMain::LayoutViews() {
  const double twips = TwipsPerPixel(ViewDpi());
  const QSize page = SSTab1->currentWidget()->size();
  // The window's size that gives the tab exactly the size of its pages.
  FormLayout& layout = s_.views.ListFrame.layout;
  layout = LayoutTwips(page.width() * twips + 240, page.height() * twips + 1680, PageDesign(),
                       PageDesign().comYYWidth);
  const FormLayout pixels = layout.Scaled(1 / twips);
  HideScheduleList();
  if (s_.views.Tab == 0) {
    monthTab_->ApplyLayout(pixels);
  } else {
    dayTab_->ApplyLayout(pixels);
  }
  // The hidden tab follows when it is shown.
  s_.views.MarkLayoutPending();
  UpdateListFrame();
}

void SchMain::UpdateListFrame() {
  const double twips = TwipsPerPixel(ViewDpi());
  ScheduleListFrame& f = s_.views.ListFrame;
  f.design = PageDesign();
  // The dialog hangs from the cell's bottom edge: the page's corner on the screen stands in for
  // the window, tab and heads that the placing counts from.
  const QPoint page = monthTab_->mapToGlobal(QPoint(0, 0));
  f.formLeft = page.x() * twips - f.layout.SSTab1.left;
  f.formTop =
      page.y() * twips - f.layout.SSTab1.top - f.design.tabStripHeight - f.layout.Label8[0].height;
  const QRect dialog = schDT_->frameGeometry();
  f.dialogWidth = dialog.width() * twips;
  f.dialogHeight = dialog.height() * twips;
  const QRect area = AvailableArea(this);
  f.screen = {area.x() * twips, area.y() * twips, area.width() * twips, area.height() * twips};
}

void SchMain::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (schDT_ != nullptr) UpdateListFrame();
}

}  // namespace sched
