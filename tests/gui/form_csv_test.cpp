#include "ui/form_csv.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <fstream>

#include "platform/fake/fake_file_dialogs.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_settings_store.h"
#include "tests/gui/picture_path.h"
#include "tests/support/recording_document_view.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

// The mapping dialog over fakes, with its real timer.
struct FormCsvFixture {
  TempDir dir;
  FakeMessages messages;
  FakeFileDialogs dialogs;
  RecordingNotices notices;
  FakeSettingsStore settings;
  FormCsvTimer timer;
  FormCsvModel model{{messages, dialogs, notices, settings, timer, CodePage::kWestern, ""}};
  std::unique_ptr<FormCsv> form;

  FormCsvFixture() {
    model.Form_Load();
    form = std::make_unique<FormCsv>(model, timer);
    form->show();
  }
  QString Row(int index) const { return form->CsvList()->item(index)->text(); }
};

// Holding a move button moves the row at once, again after half a second, then quickly, and
// the reference beside it follows the selection.
TEST(FormCsvForm, MoveButtonsRepeatWhileHeldAndTheListsFollowEachOther) {
  FormCsvFixture f;
  std::ofstream(f.dir.File("ref.csv")) << "a,b,c,d,e,f,g,h,i,j,k,l\r\n";
  f.dialogs.QueueAnswer(f.dir.File("ref.csv"));
  f.form->Button("CbtRead")->click();
  ASSERT_EQ(f.form->FileField()->count(), 12);

  f.form->CsvList()->setCurrentRow(9);
  EXPECT_EQ(f.form->FileField()->currentRow(), 9);
  QPushButton* up = f.form->findChild<QPushButton*>("CbtUp");
  QTest::mousePress(up, Qt::LeftButton);
  EXPECT_EQ(f.Row(8), "Place");
  QTest::qWait(400);
  EXPECT_EQ(f.Row(8), "Place") << "no second move before 500 ms";
  QTest::qWait(300);
  QTest::mouseRelease(up, Qt::LeftButton);
  const int at = f.form->CsvList()->currentRow();
  EXPECT_LE(at, 6) << "moved again at 500 ms and every 50 ms after";
  EXPECT_EQ(f.Row(at), "Place");
  EXPECT_EQ(f.form->FileField()->currentRow(), at);
  QTest::qWait(200);
  EXPECT_EQ(f.form->CsvList()->currentRow(), at) << "released: no more moves";

  f.form->FieldList()->setCurrentRow(12);
  f.form->Button("cbtAdd")->click();
  EXPECT_EQ(f.Row(at), "Not Used");
  EXPECT_EQ(f.form->FileField()->count(), 13);
  f.form->Button("cbtDelete")->click();
  EXPECT_EQ(f.Row(at), "Place");
  f.form->grab().save(PicturePath(f.dir, "form_csv_moved.png"));
}

}  // namespace
}  // namespace sched
