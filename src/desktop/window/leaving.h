// The question before results are lost that are in no report.
#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace tvx {

class CTVXView;

class Leaving : public QObject {
  Q_OBJECT

 public:
  // The settings file keeps the answer "don't ask again"; without one it lasts for the run.
  Leaving(const QString& settingsFile, QWidget* window);

  // False if the user wants to stay. Asks only if the view has such results.
  bool MayClose(const CTVXView& view);

 private:
  QString settingsFile_;
  QWidget* window_;
  bool asks_ = true;
};

}  // namespace tvx
