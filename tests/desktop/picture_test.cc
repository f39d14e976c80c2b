// SPDX-License-Identifier: MIT

// The real program, drawing what a played `brevant` says.
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/desktop/drawn.h"
#include "tests/desktop/fake_brevant.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

class PictureTest : public testing::Test {
 protected:
  FakeBrevant::HostRun draw(const QString& surface, const QStringList& more = {}) {
    return brevant_.runHost(
        QStringList{u"--picture"_s, surface, u"-o"_s, file(), u"--now"_s, u"1e9"_s} + more);
  }

  [[nodiscard]] QString file() const { return folder_.filePath(u"picture.png"_s); }

  [[nodiscard]] QByteArray bytes() const {
    QFile picture(file());
    return picture.open(QIODevice::ReadOnly) ? picture.readAll() : QByteArray();
  }

  FakeBrevant brevant_;
  QTemporaryDir folder_;
};

TEST_F(PictureTest, IsTheSameToTheByte) {
  brevant_.answer(u"live show"_s, presentationOf(u"1"_s, u"Reading"_s));
  for (const auto& surface : {u"small"_s, u"medium"_s, u"lock-screen"_s, u"island-compact"_s,
                              u"island-minimal"_s, u"island-expanded"_s}) {
    ASSERT_EQ(draw(surface).exitCode, 0) << surface.toStdString();
    const QByteArray first = bytes();
    EXPECT_FALSE(QImage::fromData(first).isNull());
    ASSERT_EQ(draw(surface).error, QString());
    EXPECT_EQ(bytes(), first) << surface.toStdString();
  }
  EXPECT_EQ(brevant_.calls(u"timeline"_s).size(), 4);
  EXPECT_EQ(brevant_.calls(u"live show"_s).size(), 8);
}

TEST_F(PictureTest, HasTheScaleAndTheColourSchemeAskedFor) {
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    ASSERT_EQ(draw(u"small"_s, {u"--scale"_s, QString::number(scale)}).exitCode, 0);
    EXPECT_EQ(QImage::fromData(bytes()).width(), qRound(206 * scale));
  }
  ASSERT_EQ(draw(u"small"_s, {u"--color-scheme"_s, u"dark"_s}).exitCode, 0);
  EXPECT_LT(QImage::fromData(bytes()).pixelColor(206, 80).lightness(), 40);
}

TEST_F(PictureTest, IsAnEmptyCardWhenThereIsNothingToShow) {
  brevant_.answer(u"timeline"_s, "null");
  ASSERT_EQ(draw(u"small"_s).exitCode, 0);
  EXPECT_EQ(QImage::fromData(bytes()).pixelColor(206, 206), QColor(Qt::white));
}

TEST_F(PictureTest, SaysInOneLineWhyThereIsNone) {
  const struct {
    const char* misbehaviour;
    int exitCode;
    const char* error;
  } cases[] = {
      {"echo 'no such Live Activity' >&2; exit 1", 1, "no such Live Activity"},
      {"echo 'log line' >&2; echo 'not a version: x' >&2; exit 2", 2, "not a version: x"},
      {"echo 'Fatal error: missing image' >&2; kill -ABRT $$", 1, "Fatal error: missing image"},
      {"echo garbage; exit 0", 1, "no JSON"},
      {"yes '[' | head -c 200; yes ']' | head -c 200; exit 0", 1, "no JSON"},
      {"exec cat /dev/zero", 1, "more than 16 MiB"},
      {"exec cat /dev/zero >&2", 1, "more than 16 MiB"},
  };
  for (const auto& [misbehaviour, exitCode, error] : cases) {
    brevant_.misbehave(misbehaviour);
    const auto outcome = draw(u"lock-screen"_s);
    EXPECT_EQ(outcome.exitCode, exitCode) << misbehaviour;
    EXPECT_TRUE(outcome.error.contains(QString::fromLatin1(error))) << outcome.error.toStdString();
    EXPECT_EQ(outcome.error.count(u'\n'), 1) << outcome.error.toStdString();
    EXPECT_FALSE(QFile::exists(file()));
  }
  brevant_.misbehave("");
  const auto unwritable = brevant_.runHost(
      {u"--picture"_s, u"small"_s, u"-o"_s, folder_.filePath(u"no/such/folder.png"_s)});
  EXPECT_EQ(unwritable.exitCode, 1);
  EXPECT_EQ(unwritable.error.count(u'\n'), 1);

  ::rlimit before;
  ::getrlimit(RLIMIT_FSIZE, &before);
  const ::rlimit tiny{400, before.rlim_max};  // a part of the picture fits
  ::setrlimit(RLIMIT_FSIZE, &tiny);
  std::signal(SIGXFSZ, SIG_DFL);
  const auto tooLarge = draw(u"small"_s);
  ::setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(tooLarge.exitCode, 1) << "a limit on files is an error, no death";
  EXPECT_EQ(tooLarge.error.count(u'\n'), 1);
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(PictureTest, TakesLittleMemoryForAnyAnswer) {
  QByteArray png;
  QBuffer buffer(&png);
  QImage(4096, 4096, QImage::Format_Mono).save(&buffer, "PNG");
  const QByteArray claim("\x40\0\0\0tEXta\0", 10);  // a gigabyte
  const auto image = [](const QByteArray& file) {
    return "{'view':'Image','image':{'png':'" + file.toBase64() + "'}}";
  };
  const QByteArray hostile[] = {
      stack("HStack", QByteArrayList(30, image(png))),
      image(QByteArray(png).insert(33, claim)),
      text("x", QByteArrayList(50'000, "{'padding':{'top':1}}").join(',')),
      "{'view':'Image','systemName':'pause.fill','modifiers':[{'resizable':true},"
      "{'frame':{'width':4096,'height':4096}}]}",
  };
  for (const QByteArray& view : hostile) {
    brevant_.answer(u"live show"_s, QByteArray("{'lockScreen':" + view + "}").replace('\'', '"'));
    EXPECT_EQ(draw(u"lock-screen"_s).exitCode, 0) << view.left(60).toStdString();
  }
#ifndef __SANITIZE_ADDRESS__
  ::rusage used;
  ::getrusage(RUSAGE_CHILDREN, &used);
  EXPECT_LT(used.ru_maxrss, 128 * 1024) << "of the hungriest";
#endif
}

}  // namespace
}  // namespace brevant
