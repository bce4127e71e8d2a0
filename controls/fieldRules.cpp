#include "controls/fieldRules.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTimer>
#include <QWindow>
#include <algorithm>

namespace quernstoke {

namespace {

// What would get the focus by a click there; null if the focus would stay where it is.
QWidget* focusTaker(QWidget* form, QPoint position) {
  for (QWidget* widget = form->childAt(position); widget != nullptr;
       widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
    if (!widget->isEnabled() || (widget->focusPolicy() & Qt::ClickFocus) == 0) continue;
    while (widget->focusProxy() != nullptr)
      widget = widget->focusProxy();
    return widget;
  }
  return nullptr;
}

bool hasDefaultButton(const QWidget* form) {
  const auto buttons = form->findChildren<QPushButton*>();
  return std::any_of(buttons.begin(), buttons.end(),
                     [](const QPushButton* button) { return button->isDefault(); });
}

void showPageOf(const QWidget& form, const QWidget* field) {
  for (QTabWidget* pages : form.findChildren<QTabWidget*>())
    for (int index = 0; index < pages->count(); ++index)
      if (pages->widget(index)->isAncestorOf(field)) pages->setCurrentIndex(index);
}

}  // namespace

FieldRules::FieldRules(QWidget* form) : form_(form) {
  qApp->installEventFilter(this);
}

FieldRules::~FieldRules() = default;

void FieldRules::add(QWidget* field, Rule rule) {
  rules_[field] = std::move(rule);
  field->setAcceptDrops(false);  // A drop changes a field that has no focus to lose.
}

bool FieldRules::ownsField(QWidget* field) const {
  return field != nullptr && rules_.contains(field) && field->isEnabled();
}

FieldRules::Verdict FieldRules::judge(QWidget* field) {
  const QScopedValueRollback guard(asking_, true);
  QGuiApplication::inputMethod()->commit();  // What is still being composed counts, too.
  const Verdict verdict = rules_.at(field)();
  if (verdict != Verdict::stay) allowed_ = field;
  return verdict;
}

// Clicks and keys are seen before they reach their target, so that a refused one has no effect at
// all: a button that was pressed under a message box would stay pressed. A click is taken from the
// window, since it moves the focus before its target learns of it.
bool FieldRules::eventFilter(QObject* watched, QEvent* event) {
  if (asking_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return watched == form_->windowHandle() &&
             refusesClick(static_cast<QMouseEvent*>(event)->position().toPoint());
    case QEvent::KeyPress:
      return watched == form_->focusWidget() && refusesKey(static_cast<QKeyEvent*>(event)->key());
    case QEvent::FocusOut:
      if (watched->isWidgetType())
        leftBehindOurBack(static_cast<QWidget*>(watched),
                          static_cast<QFocusEvent*>(event)->reason());
      return false;
    default:
      return false;
  }
}

bool FieldRules::refusesClick(QPoint position) {
  allowed_ = nullptr;
  QWidget* const field = form_->focusWidget();
  // The first click beside an open list only closes it.
  if (!ownsField(field) || QApplication::activePopupWidget() != nullptr) return false;
  QWidget* const target = focusTaker(form_, position);
  if (target == nullptr || target == field || field->isAncestorOf(target)) return false;
  const Verdict verdict = judge(field);
  // The box has swallowed the end of the click.
  if (verdict == Verdict::leaveAfterBox) target->setFocus(Qt::MouseFocusReason);
  return verdict != Verdict::leave;
}

bool FieldRules::refusesKey(int key) {
  allowed_ = nullptr;
  QWidget* const field = form_->focusWidget();
  if (!ownsField(field)) return false;
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
  const bool leaves =
      key == Qt::Key_Tab || key == Qt::Key_Backtab || (isEnter && hasDefaultButton(form_));
  return leaves && judge(field) == Verdict::stay;
}

// By a shortcut, or by the program.
void FieldRules::leftBehindOurBack(QWidget* field, int reason) {
  if (!ownsField(field) || !form_->isVisible()) return;
  const bool wasAllowed = allowed_ == field;
  allowed_ = nullptr;
  // An open list or menu is no other control.
  const bool staysInForm = reason != Qt::ActiveWindowFocusReason &&
                           reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason &&
                           QApplication::activePopupWidget() == nullptr;
  if (wasAllowed || !staysInForm) return;
  if (!field->isVisibleTo(form_)) {
    // Its page is being turned, and can be turned back only when that is done.
    QTimer::singleShot(0, field, [this, field] { takeBack(field); });
    return;
  }
  if (judge(field) == Verdict::stay) field->setFocus(Qt::OtherFocusReason);
  allowed_ = nullptr;
}

void FieldRules::takeBack(QWidget* field) {
  if (!ownsField(field) || !form_->isVisible()) return;
  const bool stays = judge(field) == Verdict::stay;
  allowed_ = nullptr;
  if (!stays) return;
  const QScopedValueRollback guard(asking_, true);
  showPageOf(*form_, field);
  field->setFocus(Qt::OtherFocusReason);
}

bool FieldRules::letsGo() {
  QWidget* const field = form_->focusWidget();
  if (!ownsField(field) || allowed_ == field) return true;
  const bool refused = judge(field) == Verdict::stay;
  allowed_ = nullptr;
  return !refused;
}

}  // namespace quernstoke
