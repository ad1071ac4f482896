// Message boxes, file dialogs and the screen.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <filesystem>

#include "qt/window_person.h"
#include "support/sample_form.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using MessageWindows = Windows;

// The box's captions and what the key answers.
std::string Asked(UserInterface& windows, const Message& message, Qt::Key key, std::function<void(QMessageBox&)> look) {
  std::string captions;
  QTimer::singleShot(0, qApp, [&, key] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (const auto name : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
      if (const QAbstractButton* button = box->button(name)) captions.append(button->text().toStdString()).append(" ");
    }
    look(*box);
    QTest::keyClick(box, key);
  });
  const MessageAnswer answer = windows.Show(message);
  return captions + std::to_string(static_cast<int>(answer));
}

TEST_F(MessageWindows, QuestionsAreAskedInCzechOverTheForm) {
  SampleForm form;
  Show(form, [&] {
    QWidget* owner = TopWindow();
    const Message question{.text = u"<b>Uložit</b>\r\nzměny?", .icon = MessageIcon::kQuestion};
    struct Row {
      MessageButtons buttons;
      Qt::Key key;
      const char* result;
    };
    const Row rows[] = {
        {MessageButtons::kOk, Qt::Key_Escape, "&OK 1"},
        {MessageButtons::kOkCancel, Qt::Key_Return, "&OK &Storno 1"},
        {MessageButtons::kOkCancel, Qt::Key_Escape, "&OK &Storno 2"},
        {MessageButtons::kYesNo, Qt::Key_Return, "&Ano &Ne 6"},
        {MessageButtons::kYesNo, Qt::Key_Escape, "&Ano &Ne 7"},
        {MessageButtons::kYesNoCancel, Qt::Key_Escape, "&Ano &Ne &Storno 2"},
    };
    for (const Row& row : rows) {
      Message message = question;
      message.buttons = row.buttons;
      const std::string result = Asked(windows(), message, row.key, [&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), owner);
        EXPECT_EQ(box.text(), "<b>Uložit</b>\nzměny?");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), owner->windowTitle()) << "a box without a title of its own";
        EXPECT_EQ(box.icon(), QMessageBox::Question);
      });
      EXPECT_EQ(result, row.result);
    }
    EXPECT_TRUE(form.visible());
  });
}

// What a dialog says in English: the texts of its labels and buttons and their hints that have words of that language.
std::string WordsOf(const QWidget& window) {
  static const QRegularExpression english(
      "\\b(Look|in|File|Files|of|type|name|Open|Cancel|Choose|Directory|Back|Forward|Parent|Create|New|Folder|View|Go|"
      "Change|List|Detail|Computer|Date|Size|Kind|Modified)\\b");
  std::string words;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    QStringList texts = {widget->toolTip()};
    if (const auto* label = qobject_cast<const QLabel*>(widget)) texts += label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) texts += button->text();
    if (const auto* view = qobject_cast<const QHeaderView*>(widget)) {
      for (int section = 0; section < view->count(); ++section) {
        texts += view->model()->headerData(section, view->orientation()).toString();
      }
    }
    for (QString text : texts) {
      if (english.match(text.remove(QChar('&'))).hasMatch()) words += text.toStdString() + "; ";
    }
  }
  return words;
}

TEST_F(MessageWindows, FileDialogsTakeFiltersAndReturnFullPaths) {
  TemporaryFolder folder;
  folder.Write("vzor.dot", "");
  folder.Write("jiný.txt", "");
  const FileDialog dialog{.filter = u"Šablony Word (*.dot)|*.dot|Vše|*.*;*.x",
                          .folder = folder.TextPath("není\\tam"),
                          .fileName = u"vzor.dot",
                          .fileMustExist = true};
  Later([&] {
    auto* window = qobject_cast<QFileDialog*>(TopWindow());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->nameFilters(), QStringList({"Šablony Word (*.dot)", "Vše (* *.x)"}));
    EXPECT_EQ(window->directory().path().toStdString(), folder.path()) << "the nearest folder that exists";
    EXPECT_EQ(window->labelText(QFileDialog::Accept), "Otevřít");
    EXPECT_EQ(WordsOf(*window), "");
    window->selectFile("vzor.dot");
    QTest::keyClick(window->findChild<QLineEdit*>(), Qt::Key_Return);
  });
  EXPECT_EQ(Shown(windows().ChooseFile(dialog)), folder.Path("vzor.dot"));
  Later([&] { QTest::keyClick(TopWindow(), Qt::Key_Escape); });
  EXPECT_EQ(Shown(windows().ChooseFile(dialog)), "");
  Later([&] {
    EXPECT_EQ(TopWindow()->windowTitle(), "Kam?");
    QTest::keyClick(TopWindow()->findChild<QLineEdit*>(), Qt::Key_Return);
  });
  const Text chosen = windows().ChooseFolder(u"Kam?", folder.TextPath("není"));
  EXPECT_TRUE(std::filesystem::equivalent(ToUtf8(chosen), folder.path())) << Shown(chosen);
}

TEST_F(MessageWindows, TheScreenIsMeasuredLikeTheForms) {
  const WorkingArea area = windows().GetWorkingArea();
  EXPECT_GT(area.width, 100);
  EXPECT_LE(area.twipsPerPixelX, 15);
  SampleForm form;
  Show(form, [&] { EXPECT_NEAR(static_cast<float>(TopWindow()->width()) * area.twipsPerPixelX, 6000, 15); });
  windows().SetMousePointer(MousePointer::kHourglass);
  windows().SetMousePointer(MousePointer::kHourglass);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  windows().SetMousePointer(MousePointer::kDefault);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace zorkanca::testing
