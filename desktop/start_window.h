#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>

namespace brevant {

// What is seen first where no log is found: says where it was looked for, and offers to make one to
// try everything on, or to choose the folder that has one.
class StartWindow : public QWidget {
  Q_OBJECT
 public:
  explicit StartWindow(const QString& container);

  // Says why the last try did not work.
  void sayFailure(const QString& why);

 Q_SIGNALS:
  void sampleAsked();
  void folderAsked();
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel failure_;
  QPushButton sample_, choose_;
};

// Lets people choose a folder; the call returns at once, and nothing is told when they think better
// of it.
void askForFolder(QObject* receiver, std::function<void(const QString& folder)> chosen);

}  // namespace brevant
