#include <QApplication>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <iostream>

// A plugin for tests of a whole program, which nobody is there to answer: it writes the text of
// each message box to standard error and closes it by its default button.
class BoxPresser : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "boxPresser.json")

 public:
  QObject* create(const QString& /*name*/, const QString& /*options*/) override {
    auto* const timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      std::cerr << box->text().toStdString() << '\n';
      box->defaultButton()->click();
    });
    constexpr int milliseconds = 20;
    timer->start(milliseconds);
    return timer;
  }
};

#include "boxPresser.moc"
