// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <memory>

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
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLabel failure_;
  QPushButton sample_, choose_;
  QCheckBox atLogin_;
};

// Lets people choose a folder. Not yet open; once it is, it deletes itself when it is closed.
[[nodiscard]] std::unique_ptr<QFileDialog> makeFolderDialog();

}  // namespace brevant
