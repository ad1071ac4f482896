// Forms in real windows: what a person does reaches the form, what the form's logic does is seen.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "qt/window_person.h"
#include "support/sample_form.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class FormWindow : public Windows {
 protected:
  SampleForm form_;
};

TEST_F(FormWindow, TabWalksThroughTheTabStopsInTheirOrder) {
  form_.note.SetEnabled(false);
  Show(form_, [&] {
    std::string walked = Focused();
    for (int step = 0; step < 9; ++step) {
      Press(Qt::Key_Tab);
      walked.append(" ").append(Focused());
      EXPECT_EQ(ToUtf8(form_.activeControl()->name()), Focused());
    }
    EXPECT_EQ(walked, "lstRows cmdUp cmdDown txtCode chkFlag cmdOk cmdCancel lstRows cmdUp cmdDown");
    form_.note.SetEnabled(true);
    form_.note.SetFocus();
    EXPECT_EQ(Focused(), "txtNote");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), "txtCode");
  });
}

TEST_F(FormWindow, AccessKeysGoToTheNamedControlOrPress) {
  Show(form_, [&] {
    EXPECT_EQ(Find<QLabel>(form_.codeLabel)->text(), "&Kód:");
    form_.Heard();
    Press(Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtCode");
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtNote");
    Press(Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(Until([&] { return form_.flag.checked(); }));
    EXPECT_TRUE(Find<QCheckBox>(form_.flag)->isChecked());
    EXPECT_EQ(form_.activeControl(), &form_.flag);
    EXPECT_EQ(form_.Heard(), "checked");
    Press(Qt::Key_Z, Qt::AltModifier);
    EXPECT_TRUE(Until([&] { return !form_.visible(); }));
    EXPECT_EQ(form_.Heard(), "cancel; close?");
  });
}

TEST_F(FormWindow, EnterAndEscReachTheFormBeforeItsControls) {
  Show(form_, [&] {
    EXPECT_TRUE(Find<QPushButton>(form_.ok)->isDefault());
    form_.Heard();
    QTest::keyRelease(TopWindow(), Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "") << "pressed in another window";
    form_.ok.SetEnabled(false);
    Press(Qt::Key_Enter);
    EXPECT_EQ(form_.Heard(), "down 13; up 13");
    Press(Qt::Key_F5);
    EXPECT_EQ(form_.Heard(), "down 116; up 116");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(form_.Heard(), "down 13; up 13");
    form_.up.SetFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "down 13; up; up 13");
    form_.enterGoesTo = &form_.browse;
    form_.note.SetFocus();
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "down 13; up 13") << "neither the button that got the focus nor the default one";
    EXPECT_EQ(Focused(), "cmdBrowse");
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "down 13; browse; up 13");
    form_.enterGoesTo = nullptr;
    form_.refusesToClose = true;
    Press(Qt::Key_Escape);
    EXPECT_EQ(form_.Heard(), "down 27; cancel; close?; up 27");
    EXPECT_TRUE(TopWindow()->isVisible());
    form_.ok.SetEnabled(true);
    form_.code.SetFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "down 13; ok");
    EXPECT_FALSE(form_.visible());
  });
  EXPECT_TRUE(form_.loaded()) << "hidden only";
}

TEST_F(FormWindow, ListsShowAndSelectRows) {
  form_.rows.SelectRow(1);
  Show(form_, [&] {
    auto* list = Find<QListWidget>(form_.rows);
    EXPECT_EQ(list->currentRow(), 1);
    form_.Heard();
    Press(Qt::Key_Down);
    EXPECT_EQ(form_.Heard(), "row 2");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(form_.Heard(), "row 0");
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(form_.Heard(), "double 0");

    form_.rows.SetRows({u"x", u"y & z"});
    EXPECT_EQ(form_.Heard(), "row -1");
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(1)->text(), "y & z");
    EXPECT_TRUE(list->selectedItems().isEmpty());
    form_.ok.SetFocus();
    form_.rows.SetFocus();
    EXPECT_EQ(form_.Heard(), "") << "the focus alone selects nothing";
    form_.rows.SelectRow(1);
    EXPECT_EQ(list->selectedItems().value(0), list->item(1));
    form_.rows.SetEnabled(false);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_EQ(form_.rows.selectedRow(), 1);
  });
}

TEST_F(FormWindow, TypedTextPassesTheFilterOfTheBox) {
  Show(form_, [&] {
    auto* line = Find<QLineEdit>(form_.code);
    form_.code.SetFocus();
    form_.Heard();
    QTest::keyClicks(line, "1a2");
    EXPECT_EQ(form_.Heard(), "code 1; code 12");
    EXPECT_EQ(line->text(), "12");
    line->setCursorPosition(1);
    QTest::keyClicks(line, "x9");
    EXPECT_EQ(line->text(), "192");
    EXPECT_EQ(line->cursorPosition(), 2);
    QGuiApplication::clipboard()->setText("4-5-6");
    line->setSelection(0, 2);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shown(form_.code.text()), "4562");
    EXPECT_EQ(line->text(), "4562");
    EXPECT_EQ(line->cursorPosition(), 3);
    form_.code.SelectAll();
    EXPECT_EQ(line->selectedText(), "4562");
    QTest::keyClicks(line, "7");
    EXPECT_EQ(line->text(), "7");

    auto* note = Find<QLineEdit>(form_.note);
    form_.note.SetText(u"aa");
    form_.note.SetFocus();
    note->setCursorPosition(0);
    QTest::keyClicks(note, "a");
    QInputMethodEvent composed;
    composed.setCommitString("ž");
    QApplication::sendEvent(note, &composed);
    EXPECT_EQ(Shown(form_.note.text()), "ažaa");
    EXPECT_EQ(note->cursorPosition(), 2);
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Shown(form_.note.text()), "aa");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(form_.note.text()), note->text().toStdString()) << "undone in both";
    EXPECT_NE(Shown(form_.note.text()), "aa");
  });
}

TEST_F(FormWindow, WhatTheLogicChangesIsSeen) {
  Show(form_, [&] {
    EXPECT_EQ(TopWindow()->windowTitle(), "Ukázka & zkouška");
    EXPECT_EQ(Find<QCheckBox>(form_.flag)->text(), "Po&užívat && šetřit");
    auto* down = Find<QPushButton>(form_.down);
    const QSize size(16, 16);
    const QImage disabled = down->icon().pixmap(size).toImage();
    EXPECT_NE(disabled, Find<QPushButton>(form_.up)->icon().pixmap(size).toImage());
    form_.down.SetImage(ButtonImage::kEnabledDown);
    EXPECT_NE(disabled, down->icon().pixmap(size).toImage());
    form_.down.SetEnabled(false);
    EXPECT_FALSE(down->isEnabled());
    form_.ok.SetCaption(u"&Uložit");
    EXPECT_EQ(Find<QPushButton>(form_.ok)->text(), "&Uložit");
    form_.browse.SetVisible(false);
    EXPECT_FALSE(Find<QPushButton>(form_.browse)->isVisible());
    form_.note.SetBackColor(BackColor::kDisabled);
    const QPalette palette = Find<QLineEdit>(form_.note)->palette();
    EXPECT_EQ(palette.color(QPalette::Base), palette.color(QPalette::Disabled, QPalette::Window));
    form_.note.SetBackColor(BackColor::kWindow);
    EXPECT_EQ(Find<QLineEdit>(form_.note)->palette().color(QPalette::Base),
              Find<QLineEdit>(form_.code)->palette().color(QPalette::Base));
    form_.SetCaption(u"Jiná");
    EXPECT_EQ(TopWindow()->windowTitle(), "Jiná");
    form_.flag.SetChecked(true);
    EXPECT_TRUE(Find<QCheckBox>(form_.flag)->isChecked());
  });
}

TEST_F(FormWindow, TheFormLaysOutWhatThePersonResizes) {
  int told = 0;
  form_.AddResizeListener([&] { ++told; });
  Show(form_, [&] {
    const QSize before = TopWindow()->size();
    auto* list = Find<QListWidget>(form_.rows);
    auto* code = Find<QLineEdit>(form_.code);
    const QSize listBefore = list->size();
    const int gapBefore = code->y() - list->geometry().bottom();
    const Bounds bounds = form_.bounds();
    TopWindow()->resize(before + QSize(150, 90));
    TopWindow()->move(40, 30);
    EXPECT_TRUE(Until([&] { return list->size() == listBefore + QSize(150, 90); }));
    EXPECT_NEAR(code->y() - list->geometry().bottom(), gapBefore, 1);
    const float twipsPerPixel = windows().GetWorkingArea().twipsPerPixelX;
    EXPECT_TRUE(Until([&] { return std::abs(form_.bounds().left - 40 * twipsPerPixel) < 1; }));
    EXPECT_NEAR(form_.bounds().width, bounds.width + 150 * twipsPerPixel, 1);
    EXPECT_NEAR(form_.bounds().height, bounds.height + 90 * twipsPerPixel, 1);
    EXPECT_GT(told, 0);
    TopWindow()->resize(10, 10);
    EXPECT_EQ(TopWindow()->size(), before) << "no smaller than designed";
    form_.SetBounds({.left = 1500, .top = 3000, .width = 9000, .height = 6000});
    EXPECT_EQ(TopWindow()->x(), qRound(1500 / twipsPerPixel));
    EXPECT_EQ(TopWindow()->width(), qRound(9000 / twipsPerPixel));
    TopWindow()->showMaximized();
    EXPECT_TRUE(Until([&] { return form_.windowState() == WindowState::kMaximized; }));
  });
  const Bounds kept = form_.bounds();
  form_.SetWindowState(WindowState::kNormal);
  Show(form_, [&] { EXPECT_EQ(form_.bounds(), kept) << "back where it was"; });

  SampleForm fixed(BorderStyle::kFixedDialog);
  fixed.SetBounds({.left = 600, .top = 600, .width = 100, .height = 100});
  Show(fixed, [&] {
    EXPECT_EQ(TopWindow()->minimumSize(), TopWindow()->maximumSize());
    EXPECT_NEAR(fixed.bounds().width, 6000, 15) << "the design size";
  });
}

TEST_F(FormWindow, ClosingAsksTheForm) {
  Show(form_, [&] {
    form_.refusesToClose = true;
    form_.Heard();
    TopWindow()->close();
    EXPECT_EQ(form_.Heard(), "close?");
    EXPECT_TRUE(form_.visible() && TopWindow()->isVisible());
    form_.refusesToClose = false;
    TopWindow()->close();
    EXPECT_FALSE(form_.visible());
  });
  EXPECT_FALSE(form_.loaded());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FormWindow, FormsLieOverTheirOwner) {
  SampleForm upper;
  form_.up.onClick = [&] {
    Later([&] {
      EXPECT_EQ(TopWindow()->parentWidget()->windowTitle(), "Ukázka & zkouška");
      EXPECT_EQ(ErrorOf([&] { windows().ShowModal(upper, nullptr); }).number(), 5) << "shown already";
      QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return);
    });
    windows().ShowModal(upper, &form_);
    form_.Hear("upper closed");
  };
  Show(form_, [&] {
    form_.Heard();
    form_.up.SetFocus();
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(upper.Heard(), "activate; down 13; ok");
    EXPECT_TRUE(Until([] { return TopWindow()->isActiveWindow(); }));
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form_.Heard(), "down 13; activate; upper closed") << "the release belongs to the upper window";
  });
}

TEST_F(FormWindow, AnErrorOfTheLogicEndsTheDialog) {
  form_.up.onClick = [] { Raise(RuntimeError::kPermissionDenied, u"no"); };
  const Error error = ErrorOf([&] { Show(form_, [&] { Find<QPushButton>(form_.up)->click(); }); });
  EXPECT_EQ(error.number(), 70);
  EXPECT_EQ(Shown(error.description()), "no");
  EXPECT_FALSE(form_.visible());
  Show(form_, [&] { EXPECT_TRUE(TopWindow()->isVisible()) << "and can be shown again"; });
}

}  // namespace
}  // namespace zorkanca::testing
