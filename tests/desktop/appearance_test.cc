// SPDX-License-Identifier: MIT
// What every card looks like, measured in what is drawn of the real program's answers: with short
// and long names, in three scripts, and for times from nothing to a hundred hours.
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "desktop/card.h"
#include "desktop/control.h"
#include "desktop/image_view.h"
#include "desktop/programs.h"
#include "desktop/surface.h"
#include "desktop/timer_view.h"
#include "tests/desktop/drawn.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kScale = 2;

// A drawn card; everything is told in points, from the card's own corner.
class Drawing {
 public:
  Drawing(Surface surface, const QJsonObject& answer, const DrawingContext& context)
      : card_(buildSurface(surface, answer, context)), image_(drawn(*card_, {}, kScale)) {}

  [[nodiscard]] QSize size() const {
    return card_->size().shrunkBy({kCardMargin, kCardMargin, kCardMargin, kCardMargin});
  }
  template <typename View>
  [[nodiscard]] std::vector<const View*> all() const {
    std::vector<const View*> found;
    for (const QWidget* each : card_->findChildren<QWidget*>())
      if (const auto* view = dynamic_cast<const View*>(each)) found.push_back(view);
    return found;
  }
  [[nodiscard]] const TextView* textStarting(const QString& letters) const {
    for (const auto* view : all<TextView>())
      if (view->text().startsWith(letters)) return view;
    ADD_FAILURE() << "no text " << letters.toStdString();
    return nullptr;
  }
  [[nodiscard]] QRectF place(const QWidget* view) const {
    if (!view) return {};
    return QRectF(QRect(view->mapTo(card_.get(), QPoint()), view->size()))
        .translated(-kCardMargin, -kCardMargin);
  }
  // What is drawn there: all that differs much from the ground at the place's corner.
  [[nodiscard]] QRectF ink(const QWidget* view) const {
    const QRect pixels = QRectF(place(view).topLeft() * kScale, place(view).size() * kScale)
                             .translated(kCardMargin * kScale, kCardMargin * kScale)
                             .toRect();
    const QColor ground = image_.pixelColor(pixels.topLeft());
    QRect found;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
      for (int x = pixels.left(); x <= pixels.right(); ++x)
        if (std::abs(image_.pixelColor(x, y).lightness() - ground.lightness()) > 30)
          found |= QRect(x, y, 1, 1);
    return QRectF(QPointF(found.topLeft()) / kScale, QSizeF(found.size()) / kScale)
        .translated(-kCardMargin, -kCardMargin);
  }

 private:
  std::unique_ptr<QWidget> card_;
  QImage image_;
};

class AppearanceTest : public testing::Test {
 protected:
  AppearanceTest() {
    run({u"sample"_s, folder_.filePath(u"log"_s)});
    entry_ = QJsonDocument::fromJson(run({u"timeline"_s}))["entries"_L1][0].toObject();
    run({u"live"_s, u"start"_s}, R"({"guid":"A","typeName":"Programming","icon":"cat_3",
                                     "color":255,"start":21692800,"message":""})");
    live_ = QJsonDocument::fromJson(run({u"live"_s, u"show"_s})).object();
  }

  QByteArray run(const QStringList& arguments, const QByteArray& input = {}) const {
    QProcess brevant;
    brevant.start(findBrevant(), QStringList{u"--container"_s, folder_.filePath(u"log"_s)} +
                                     QStringList{u"--now"_s, u"1e9"_s, u"--json"_s} + arguments);
    brevant.write(input);
    brevant.closeWriteChannel();
    brevant.waitForFinished();
    return brevant.readAllStandardOutput();
  }

  static QJsonObject named(const QJsonObject& answer, const QString& name) {
    const QByteArray json = QJsonDocument(answer).toJson();
    return QJsonDocument::fromJson(QByteArray(json).replace("Programming", name.toUtf8())).object();
  }
  static double above(const Drawing& medium) {
    return medium.place(medium.all<ImageView>().front()).top();
  }
  static double below(const Drawing& medium) {
    return medium.size().height() - medium.ink(medium.all<TimerView>().back()).bottom();
  }
  // So long after the start.
  [[nodiscard]] DrawingContext after(double seconds, const char* locale = "en_US") const {
    DrawingContext context = drawingContext(locale);
    context.now = [at = entry_["start"_L1].toDouble() + seconds] { return at; };
    return context;
  }

  QTemporaryDir folder_;
  QJsonObject entry_, live_;
};

constexpr double kTimes[] = {0, 3599, 35999, 36000, 360000};

TEST_F(AppearanceTest, WidgetsAreFlushAndBalanced) {
  for (const double seconds : kTimes) {
    SCOPED_TRACE(seconds);
    const Drawing small(Surface::kSmall, entry_, after(seconds));
    const Drawing medium(Surface::kMedium, entry_, after(seconds));
    for (const Drawing* drawing : {&small, &medium})
      for (const auto* timer : drawing->all<TimerView>())
        EXPECT_NEAR(drawing->ink(timer).left(), 16, 1) << timer->text().toStdString();
    EXPECT_NEAR(small.ink(small.textStarting(u"Prog"_s)).left(), 16, 0.5);
    const auto timers = medium.all<TimerView>();
    const auto discs = medium.all<Control>();
    ASSERT_EQ(discs.size(), 2U);
    for (const auto* disc : discs)
      EXPECT_NEAR(medium.place(disc).center().y(), medium.ink(timers.front()).center().y(), 1.5);
    EXPECT_NEAR(medium.size().width() - medium.place(discs.back()).right(), 16, 0.5);
    EXPECT_NEAR(above(medium), below(medium), 2);
  }
  run({u"stop"_s});
  const QJsonValue nothing = QJsonDocument::fromJson(run({u"timeline"_s}))["entries"_L1][0];
  const Drawing alone(Surface::kMedium, nothing.toObject(), after(0));
  EXPECT_EQ(alone.all<TimerView>().size(), 1U);
  EXPECT_NEAR(above(alone), below(alone), 2) << "one timer stands in the middle as two do";
}

TEST_F(AppearanceTest, EveryNameOfTheSmallWidgetIsEquallyLarge) {
  const auto heightOf = [&](const QString& name) {
    const Drawing drawing(Surface::kSmall, named(entry_, name), after(3599));
    return drawing.ink(drawing.textStarting(name)).height();
  };
  EXPECT_NEAR(heightOf(u"Prg"_s), heightOf(u"Programming"_s), 0.5);
  for (const auto& name : {u"Ausarbeitung der Unterlagen"_s, u"مراجعة الترجمة العربية"_s,
                           u"日本語の資料を翻訳する"_s}) {
    const Drawing drawing(Surface::kSmall, named(entry_, name), after(360000));
    const auto timers = drawing.all<TimerView>();
    const QRectF text = drawing.place(drawing.textStarting(name));
    EXPECT_GT(text.height(), 34) << "two lines: " << name.toStdString();
    EXPECT_LE(text.bottom(), drawing.place(timers.front()).top());
    EXPECT_LE(drawing.place(timers.back()).bottom(), 142.5);
    EXPECT_GE(drawing.place(drawing.all<ImageView>().front()).top(), 15.5);
  }
}

TEST_F(AppearanceTest, LiveActivitiesHaveEqualInsets) {
  for (const double seconds : kTimes) {
    SCOPED_TRACE(seconds);
    const Drawing lock(Surface::kLockScreen, live_, after(seconds));
    const auto discs = lock.all<Control>();
    const QRectF name = lock.ink(lock.textStarting(u"Prog"_s));
    EXPECT_NEAR(lock.place(discs.back()).top(), lock.size().height() - name.bottom(), 1);
    const QRectF time = lock.ink(lock.all<TimerView>().back());
    EXPECT_NEAR(lock.place(discs.back()).right(), time.right(), 1);
    EXPECT_NEAR(lock.place(discs.back()).right(), lock.size().width() - 16, 0.5);

    const Drawing compact(Surface::kIslandCompact, live_, after(seconds));
    const double left = compact.place(compact.all<ImageView>().front()).left();
    const double right =
        compact.size().width() - compact.ink(compact.all<TimerView>().front()).right();
    EXPECT_NEAR(left, right, 2);
    EXPECT_TRUE(compact.textStarting(u"Programming"_s)->width() >=
                compact.textStarting(u"Programming"_s)->sizeHint().width());

    const Drawing expanded(Surface::kIslandExpanded, live_, after(seconds));
    const double start = expanded.ink(expanded.all<TimerView>().front()).left();
    EXPECT_NEAR(
        start, expanded.size().width() - expanded.place(expanded.all<Control>().back()).right(), 1);
  }
  const Drawing minimal(Surface::kIslandMinimal, live_, after(0));
  const QPointF off = minimal.place(minimal.all<ImageView>().front()).center() -
                      QPointF(minimal.size().width(), minimal.size().height()) / 2;
  EXPECT_LE(off.manhattanLength(), 0.25);
}

TEST_F(AppearanceTest, WhatNoLongerRunsSaysSoAndCountsNoFurther) {
  QJsonObject told = live_;
  const double start = entry_["start"_L1].toDouble();
  for (const auto& state : {u"paused"_s, u"stopped"_s}) {
    told[kHalt] = QJsonObject{{u"state"_s, state}, {u"at"_s, 21692800 + 978307200 + 65}};
    for (const Surface surface : {Surface::kLockScreen, Surface::kIslandExpanded}) {
      const Drawing drawing(surface, told, after(5000));
      EXPECT_EQ(drawing.all<TimerView>().front()->text(), u"1:05"_s);
      QStringList names;
      for (const auto* control : drawing.all<Control>()) names << control->accessibleName();
      const QStringList paused{u"Resume Programming"_s, u"Dismiss Programming"_s};
      EXPECT_EQ(names, state == "paused"_L1 ? paused : paused.mid(1));
    }
  }
  const Drawing lock(Surface::kLockScreen, told, after(start));
  EXPECT_TRUE(lock.textStarting(u"Stopped"_s));
  told[kHalt] = QJsonObject{{u"state"_s, u"paused"_s}};
  const Drawing unknown(Surface::kIslandCompact, told, after(start));
  EXPECT_TRUE(unknown.all<TimerView>().empty()) << "nobody knows when it was paused";
  EXPECT_TRUE(unknown.textStarting(u"Paused"_s));
}

}  // namespace
}  // namespace brevant
