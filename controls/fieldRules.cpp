#include "controls/fieldRules.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

namespace quernstoke {

FieldRules::FieldRules(QWidget* form) : form_(form) {
  qApp->installEventFilter(this);
}

FieldRules::~FieldRules() = default;

void FieldRules::add(QWidget* field, Rule rule) {
  rules_[field] = std::move(rule);
}

bool FieldRules::ownsField(QWidget* field) const {
  return field != nullptr && rules_.contains(field) && field->isEnabled();
}

FieldRules::Verdict FieldRules::judge(QWidget* field) {
  const QScopedValueRollback guard(asking_, true);
  const Verdict verdict = rules_.at(field)();
  if (verdict != Verdict::stay) allowed_ = field;
  return verdict;
}

// Clicks and keys are seen before they reach their target, so that a refused one has no effect at
// all: a button that was pressed under a message box would stay pressed.
bool FieldRules::eventFilter(QObject* watched, QEvent* event) {
  if (asking_ || !watched->isWidgetType()) return false;
  auto* const target = static_cast<QWidget*>(watched);
  if (target->window() != form_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return refusesClick(target);
    case QEvent::KeyPress:
      return refusesKey(static_cast<QKeyEvent*>(event)->key());
    case QEvent::FocusOut:
      leftBehindOurBack(target, static_cast<QFocusEvent*>(event)->reason());
      return false;
    default:
      return false;
  }
}

bool FieldRules::refusesClick(QWidget* target) {
  QWidget* const field = form_->focusWidget();
  if (!ownsField(field) || target == field || field->isAncestorOf(target)) return false;
  if ((target->focusPolicy() & Qt::ClickFocus) == 0) return false;
  const Verdict verdict = judge(field);
  // The box has swallowed the end of the click.
  if (verdict == Verdict::leaveAfterBox) target->setFocus(Qt::MouseFocusReason);
  return verdict != Verdict::leave;
}

bool FieldRules::refusesKey(int key) {
  QWidget* const field = form_->focusWidget();
  if (!ownsField(field)) return false;
  const bool leaves =
      key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Return || key == Qt::Key_Enter;
  return leaves && judge(field) == Verdict::stay;
}

// By a shortcut, or by the program.
void FieldRules::leftBehindOurBack(QWidget* field, int reason) {
  if (!ownsField(field) || !form_->isVisible()) return;
  const bool wasAllowed = allowed_ == field;
  allowed_ = nullptr;
  const bool staysInForm = reason != Qt::ActiveWindowFocusReason &&
                           reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
  if (wasAllowed || !staysInForm) return;
  if (judge(field) == Verdict::stay) field->setFocus(Qt::OtherFocusReason);
  allowed_ = nullptr;
}

}  // namespace quernstoke
