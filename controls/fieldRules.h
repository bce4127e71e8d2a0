#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>

class QPoint;
class QWidget;

namespace quernstoke {

// Holds the focus in a field whose content its rule refuses, whichever way the person tries to
// leave it: by key, by a click, by the default button, by a shortcut or a screen reader that goes
// elsewhere or turns the page. A rule is asked once for each attempt. Where the focus stays though
// something is done, as by the shortcut of a button, whoever does it asks letsGo().
class FieldRules : public QObject {
  Q_OBJECT

 public:
  enum class Verdict { leave, leaveAfterBox, stay };
  // Judges the field, and tells the person in a box what is wrong.
  using Rule = std::function<Verdict()>;

  explicit FieldRules(QWidget* form);
  ~FieldRules() override;

  void add(QWidget* field, Rule rule);
  // Whether something may be done that counts on the fields. Asks the rule of the one that has the
  // focus, if it has not just been asked.
  bool letsGo();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool ownsField(QWidget* field) const;
  Verdict judge(QWidget* field);
  bool refusesClick(QPoint position);
  bool refusesKey(int key);
  void leftBehindOurBack(QWidget* field, int reason);
  void takeBack(QWidget* field);

  QWidget* form_;
  std::map<QWidget*, Rule> rules_;
  bool asking_ = false;
  QPointer<QWidget> allowed_;  // The field whose rule has just let the focus go.
};

}  // namespace quernstoke
