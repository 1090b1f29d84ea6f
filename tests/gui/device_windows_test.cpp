#include <QAbstractButton>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QTimer>
#include <QUrl>
#include <fstream>

#include "tests/gui/gui_fixture.h"
#include "ui/schmain.h"

namespace sched {
namespace {

// Takes the links that the program hands to the desktop, in place of the file manager.
class DesktopLinks : public QObject {
  Q_OBJECT

 public:
  explicit DesktopLinks(const QString& scheme) : scheme_(scheme) {
    QDesktopServices::setUrlHandler(scheme_, this, "Open");
  }
  ~DesktopLinks() override { QDesktopServices::unsetUrlHandler(scheme_); }
  QList<QUrl> opened;

 public slots:
  void Open(const QUrl& url) { opened << url; }

 private:
  QString scheme_;
};

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST_F(GuiTest, DisconnectionSetupNamesTheFolderThatStandsForTheTarvex) {
  ASSERT_FALSE(Start().has_value());
  const QString cache = QString::fromStdString(install + "/xferbay/cache");
  DesktopLinks links("file");
  QString shownFolder;
  QString title;
  OnNextDialog([&](QWidget* dialog) {
    title = dialog->windowTitle();
    shownFolder = dialog->findChild<QLabel*>("DeviceFolder")->text();
    dialog->findChild<QAbstractButton*>("OpenFolder")->click();
    dialog->grab().save(QDir::temp().filePath("disconnection_setup.png"));
    dialog->findChild<QAbstractButton*>("CloseButton")->click();
  });
  app->Window()->Action("Disconnect_Setup")->trigger();
  EXPECT_EQ(title, "Disconnection Setup");
  EXPECT_EQ(shownFolder, QDir::toNativeSeparators(cache));
  EXPECT_EQ(links.opened, QList<QUrl>{QUrl::fromLocalFile(cache)});
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GuiTest, SaveAsOnTarvexAsksBeforeReplacingADeviceFile) {
  ASSERT_FALSE(Start({QString::fromStdString(Sample())}).has_value());
  const std::string week = install + "/xferbay/cache/PIM/Week.scl";
  std::ofstream(week, std::ios::binary) << "kept";
  QAction* saveAs = app->Window()->Action("q390SaveName_Menu");

  // No goes back to the dialog with the name; a cancel there leaves the file.
  chooser.answers = {"Week", std::nullopt};
  messages.QueueAnswer(MsgAnswer::No);
  saveAs->trigger();
  ASSERT_EQ(messages.Shown().size(), 1u);
  const MessageRequest& question = messages.Shown()[0];
  EXPECT_EQ(question.text, "Week.scl already exists.\nDo you want to replace it?");
  EXPECT_EQ(question.title, "Save file on Tarvex");
  EXPECT_EQ(question.icon, MsgIcon::Exclamation);
  EXPECT_EQ(question.buttons, MsgButtons::YesNo);
  ASSERT_EQ(chooser.asked.size(), 2u);
  EXPECT_EQ(chooser.asked[1].proposal, "Week.scl");
  EXPECT_EQ(ReadAll(week), "kept");
  EXPECT_EQ(Title().toStdString(), "Scheduler - PC:Sample.scl");

  // Yes replaces it with the schedule.
  chooser.answers = {"Week"};
  messages.QueueAnswer(MsgAnswer::Yes);
  saveAs->trigger();
  EXPECT_EQ(messages.Shown().size(), 2u);
  EXPECT_EQ(ReadAll(week).substr(0, 4), ReadAll(Sample()).substr(0, 4));
  EXPECT_EQ(Title().toStdString(), "Scheduler - Tarvex:Week.scl");
}

}  // namespace
}  // namespace sched

#include "device_windows_test.moc"
