#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "platform/controls/message_dialog.h"
#include "platform/loop/event_loop.h"
#include "steps.h"

namespace dunvey {
namespace {

QMessageBox* Box() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

TEST(FreshWindow, TakesNoAnswerBeforeItCanHaveBeenSeen) {
    EventLoop loop;
    MessageDialog dialog;
    dialog.CancelButton->Visible = true;
    test::Steps steps;
    int ignored = 0;
    steps.When([] { return Box() != nullptr; },
               [&] {
                   const auto isIgnored = [&] { ignored += Box() != nullptr ? 1 : 0; };
                   QApplication::setDoubleClickInterval(600'000);
                   for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
                       QTest::keyClick(Box()->defaultButton(), key);
                       isIgnored();
                   }
                   QTest::mouseClick(Box()->defaultButton(), Qt::LeftButton);
                   isIgnored();
                   QApplication::setDoubleClickInterval(0);
                   QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
                   QApplication::sendEvent(Box()->defaultButton(), &held);
                   isIgnored();
                   QTest::keyClick(Box(), Qt::Key_Escape);
               });
    EXPECT_EQ(dialog.ShowModal(), dialog.CancelButton);
    EXPECT_EQ(ignored, 5);
}

}  // namespace
}  // namespace dunvey
