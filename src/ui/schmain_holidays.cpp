// The main window's side of the holiday dialogs.
#include <QApplication>

#include "holidays/dlg_select_holiday_model.h"
#include "holidays/sch_week_h_model.h"
#include "holidays/sch_year_h_model.h"
#include "ui/dlg_select_holiday.h"
#include "ui/help_pages.h"
#include "ui/sch_week_h.h"
#include "ui/sch_year_h.h"
#include "ui/schmain.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

// What the holiday dialogs ask of the window.
class WindowHolidayHost : public HolidayDialogHost {
 public:
  WindowHolidayHost(std::function<void()> refill, std::function<void()> help,
                    std::function<void()> end)
      : refill_(std::move(refill)), help_(std::move(help)), end_(std::move(end)) {}

  // The document's modified mark is its Dirty flag, which the dialog has set; nothing on the
  // window shows it beside the save question.
  void SetModifiedMark() override {}
  // The heads follow the weekly holidays with the next fill of the grid.
  void PaintWeekHeads(const WeekFlags&) override { refill_(); }
  void RefillMonthView() override { refill_(); }
  void ShowHelp() override { help_(); }
  void EndProgram() override { end_(); }

 private:
  std::function<void()> refill_;
  std::function<void()> help_;
  std::function<void()> end_;
};

}  // namespace

HolidayDialogHost& SchMain::HolidayHost() {
  if (!holidayHost_) {
    holidayHost_ = std::make_unique<WindowHolidayHost>(
        [this] {
          s_.views.FillMonthGrid();
          s_.views.FillMonthLists();
          s_.views.UpdateDeleteMenus();
          ShowViews();
        },
        [this] { helpKeys_->ShowPageOf(QApplication::activeModalWidget()); },
        [this] {
          s_.state.ExitNoSave = true;
          close();
        });
  }
  return *holidayHost_;
}

void SchMain::AfterHolidayDialog() {
  s_.views.PopupActive = 0;
}

void SchMain::ShowWeekHolidayDialog() {
  if (store_ == nullptr) return;
  if (s_.views.Tab == 0) HideScheduleList();
  SchWeekHModel model(store_->Document(), s_.messages, HolidayHost());
  SchWeekH dialog(model, this);
  ExecHeld(dialog);
  AfterHolidayDialog();
}

void SchMain::ShowDayHolidayDialog() {
  if (store_ == nullptr) return;
  if (s_.views.Tab == 0) HideScheduleList();
  store_->FindOrAddYear(doc_->CurYear);
  SchYearHModel model(*store_, s_.state.Holidays, s_.dates, HolidayHost());
  SchYearH dialog(model, this);
  ExecHeld(dialog);
  if (s_.views.Tab == 0) HolidayHost().RefillMonthView();
  AfterHolidayDialog();
}

void SchMain::SelectHolidayInfo_Click() {
  DlgSelectHolidayModel model(
      {s_.registry, s_.messages, s_.device, s_.holidays, HolidayHost(), s_.pcAppsDir},
      s_.state.Holidays);
  DlgSelectHoliday dialog(model, this);
  ExecHeld(dialog);
  // The named holidays may have changed: the shown tab is filled again, the other one when
  // it is next shown.
  SSTab1_Click(SSTab1->currentIndex());
  s_.views.MarkLayoutPending();
  HolidayHost().RefillMonthView();
}

}  // namespace sched
