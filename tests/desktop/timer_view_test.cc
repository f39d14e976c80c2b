// SPDX-License-Identifier: MIT
#include "desktop/timer_view.h"

#include <QAccessible>
#include <gtest/gtest.h>
#include <memory>

#include "desktop/fonts.h"
#include "desktop/view_builder.h"
#include "tests/desktop/drawn.h"
#include "tests/desktop/fake_brevant.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A window with a timer that was started at kNow, and a clock to set.
class TimerViewTest : public testing::Test {
 protected:
  TimerViewTest() {
    DrawingContext context = drawingContext();
    context.now = [this] { return now_; };
    const TextLook look{{makeFont({}), false, 1, 1}, TextAlignment::kLeading, Qt::black};
    timer_ = new TimerView(TimerStyle::kTimer, kNow, look, context);
    timer_->setParent(&window_);
  }

  double now_ = kNow + 4.99;
  QWidget window_;
  TimerView* timer_;
};

TEST_F(TimerViewTest, AdvancesWhenItsOwnSecondIsFull) {
  window_.show();
  EXPECT_EQ(timer_->text(), u"0:04"_s);
  now_ = kNow + 5.99;
  EXPECT_TRUE(waitUntil([&] { return timer_->text() == u"0:05"_s; }));
  now_ = kNow + 7200.99;  // the machine slept
  EXPECT_TRUE(waitUntil([&] { return timer_->text() == u"2:00:00"_s; }));
  now_ = kNow - 59.01;  // the clock was put back
  EXPECT_TRUE(waitUntil([&] { return timer_->text() == u"1:00"_s; }));
}

TEST_F(TimerViewTest, RestsWhileItIsHiddenAndIsRightWhenShownAgain) {
  window_.show();
  window_.hide();
  now_ = kNow + 100;
  letPass(50);
  EXPECT_EQ(timer_->text(), u"0:04"_s);
  window_.show();
  EXPECT_EQ(timer_->text(), u"1:40"_s);
}

TEST_F(TimerViewTest, TellsItsLayoutOnlyWhenItGrows) {
  const QSize sizeOfThree = timer_->sizeHint();  // 0:04
  now_ = kNow + 11;
  timer_->advance();
  EXPECT_EQ(timer_->sizeHint(), sizeOfThree) << "the narrowest digits";
  now_ = kNow + 599;
  timer_->advance();
  // The first digit has no cell.
  EXPECT_NEAR(timer_->sizeHint().width(), sizeOfThree.width(), 2);
  now_ = kNow + 671;  // 11:11
  timer_->advance();
  const QSize sizeOfFour = timer_->sizeHint();
  EXPECT_GT(sizeOfFour.width(), sizeOfThree.width());
  now_ = kNow + 1199;
  timer_->advance();
  EXPECT_EQ(timer_->sizeHint(), sizeOfFour);
}

TEST_F(TimerViewTest, OutlivesNeitherItsWindowNorATick) {
  window_.show();
  delete timer_;
  letPass(30);
}

TEST_F(TimerViewTest, IsReadInWordsAtTheMomentOfReading) {
  QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(timer_);
  ASSERT_NE(reader, nullptr);
  now_ = kNow + 3900;
  EXPECT_EQ(reader->text(QAccessible::Name), u"1 hour 5 minutes"_s);
  now_ = kNow + 60;
  EXPECT_EQ(reader->text(QAccessible::Name), u"1 minute"_s);
}

}  // namespace
}  // namespace brevant
