// SPDX-License-Identifier: MIT
#include "desktop/control.h"

#include <QTest>
#include <gtest/gtest.h>
#include <vector>

#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// A button and a link beside a text that an intent makes out of date, and what they asked for.
class ControlTest : public testing::Test {
 protected:
  ControlTest() {
    DrawingContext context = drawingContext();
    context.runIntent = [this](const IntentCall& call) {
      asked_.push_back(call.name + u' ' + call.activityId + u' ' + call.operation);
    };
    context.openLink = [this](const QString& link) { asked_.push_back(link); };
    const QByteArray label = ",'label':" + box(40, 40, "'red':0.8,'green':0.8,'blue':0.8") + "}";
    const QByteArray button =
        "{'view':'Button','intent':{'name':'StopActivityIntent','activityId':'A',"
        "'operation':'pause'}" +
        label;
    const QByteArray link =
        "{'view':'Link','destination':'brevant:///widget?type=running&action=stop&activity=A'" +
        label;
    const QByteArray outdated = text("H", "{'font':{'size':40}},{'invalidatableContent':true}");
    view_ = viewOf(stack("HStack", {button, link, outdated}), context);
    const auto controls = view_->findChildren<Control*>();
    button_ = controls.at(0);
    link_ = controls.at(1);
    view_->show();
  }

  [[nodiscard]] int darknessAt(QPoint point) const {
    return qAlpha(drawn(*view_, view_->size()).pixel(point));
  }
  [[nodiscard]] int darknessOfText() const {
    return static_cast<int>(coverageOf(drawn(*view_, view_->size()).copy(80, 0, 99, 99)));
  }

  std::vector<QString> asked_;
  std::unique_ptr<QWidget> view_;
  Control *button_, *link_;
};

TEST_F(ControlTest, AsksOncePerClickForItsIntentOrLinkUnlessItIsBusy) {
  QTest::mouseClick(button_, Qt::LeftButton);
  QTest::mouseClick(link_, Qt::LeftButton);
  QTest::keyClick(button_, Qt::Key_Space);
  EXPECT_EQ(asked_,
            (std::vector<QString>{u"StopActivityIntent A pause"_s,
                                  u"brevant:///widget?type=running&action=stop&activity=A"_s,
                                  u"StopActivityIntent A pause"_s}));
  asked_.clear();
  button_->setState(Control::State::kBusy);
  QTest::mouseClick(button_, Qt::LeftButton);
  QTest::keyClick(button_, Qt::Key_Space);
  QTest::keyClick(button_, Qt::Key_Return);
  EXPECT_TRUE(asked_.empty());
  button_->setState(Control::State::kReady);
  QTest::mouseClick(button_, Qt::LeftButton);
  EXPECT_EQ(asked_.size(), 1U);
}

TEST_F(ControlTest, LooksPressedBusyAndFailed) {
  const QPoint middle(20, 20), edge(1, 20);
  const auto lightness = [&] {
    return drawn(*view_, view_->size()).pixelColor(middle).lightness();
  };
  const int ready = darknessAt(middle), light = lightness();
  button_->setAttribute(Qt::WA_UnderMouse);
  const int pointedAt = lightness();
  EXPECT_LT(pointedAt, light);
  QTest::mousePress(button_, Qt::LeftButton);
  EXPECT_LT(lightness(), pointedAt) << "darker, never lighter";
  QTest::mouseRelease(button_, Qt::LeftButton);
  button_->setEnabled(false);
  EXPECT_LT(darknessAt(middle), ready / 2) << "off";
  button_->setEnabled(true);
  button_->setAttribute(Qt::WA_UnderMouse, false);
  EXPECT_EQ(darknessAt(middle), ready);
  button_->setState(Control::State::kBusy);
  EXPECT_LT(darknessAt(middle), ready / 2);
  button_->setState(Control::State::kFailed);
  EXPECT_EQ(darknessAt(middle), ready);
  EXPECT_GT(drawn(*view_, view_->size()).pixelColor(edge).red(), 200);
}

TEST_F(ControlTest, DimsWhatItsIntentMakesOutOfDate) {
  const int fresh = darknessOfText();
  button_->setState(Control::State::kBusy);
  EXPECT_LT(darknessOfText(), fresh * 0.7);
  button_->setState(Control::State::kFailed);
  EXPECT_EQ(darknessOfText(), fresh);
}

TEST_F(ControlTest, ShowsARingOnlyToTheKeyboard) {
  const QPoint edge(1, 20);
  const auto blueness = [&] {
    const QColor color = drawn(*view_, view_->size()).pixelColor(edge);
    return color.blue() - color.red();
  };
  button_->setFocus(Qt::TabFocusReason);
  QApplication::setActiveWindow(view_.get());
  ASSERT_TRUE(button_->hasFocus());
  EXPECT_GT(blueness(), 150);
  link_->setFocus(Qt::TabFocusReason);
  EXPECT_LT(blueness(), 50);
  EXPECT_EQ(button_->accessibleName(), u"Pause"_s);
  EXPECT_EQ(link_->accessibleName(), u"Stop"_s);
}

}  // namespace
}  // namespace brevant
