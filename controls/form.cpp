#include "controls/form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPushButton>
#include <QWindow>
#include <utility>
#include <vector>

namespace quernstoke {

namespace {

std::vector<Form*>& loadedForms() {
  static std::vector<Form*> forms;
  return forms;
}

bool isMinimised(Qt::WindowStates states) {
  return states.testFlag(Qt::WindowMinimized);
}

}  // namespace

// Between two windows of the program there may be none for a moment; Qt would end it there.
Form::Form(Qt::WindowFlags flags) : QDialog(nullptr, flags) {
  QGuiApplication::setQuitOnLastWindowClosed(false);
  afterEvents_.setSingleShot(true);
  connect(&afterEvents_, &QTimer::timeout, this, &Form::runOwed);
}

Form::~Form() {
  std::erase(loadedForms(), this);
  if (isUnloaded() && loadedForms().empty()) QCoreApplication::quit();
}

void Form::deleteAll() {
  while (!loadedForms().empty())
    delete loadedForms().back();
}

void Form::load() {
  if (phase_ != Phase::made) return;
  phase_ = Phase::loaded;
  loadedForms().push_back(this);
  // A dialog would else let Enter in a text field press one of its buttons.
  for (QPushButton* button : findChildren<QPushButton*>())
    button->setAutoDefault(false);
  Form_Load();
}

void Form::show() {
  load();
  if (phase_ != Phase::loaded) return;
  prepareShow();
  QDialog::show();
  raise();
  activateWindow();
}

void Form::showModal() {
  load();
  if (phase_ != Phase::loaded) return;
  if (const QWidget* owner = QApplication::activeWindow()) centreOver(*owner);
  prepareShow();
  exec();
}

void Form::prepareShow() {
  if (isVisible()) return;
  firstActivation_ = true;
  owe(activated);
}

void Form::centreOver(const QWidget& owner) {
  if (&owner == this) return;
  winId();  // Makes the window.
  windowHandle()->setTransientParent(owner.window()->windowHandle());
  move(owner.window()->geometry().center() - rect().center());
}

void Form::unload() {
  unloadFor(UnloadCause::program);
}

void Form::unloadFor(UnloadCause cause) {
  if (phase_ != Phase::loaded || !Form_QueryUnload(cause)) return;
  if (phase_ != Phase::loaded) return;  // The question itself unloaded it.
  phase_ = Phase::unloading;
  Form_Unload();
  phase_ = Phase::unloaded;
  std::erase(loadedForms(), this);
  hide();
  deleteLater();
}

void Form::refresh() {
  if (!isVisible()) return;
  Form_Paint();
  repaint();
  owed_ &= ~painted;
}

ShownState Form::shownState() const {
  if (isMinimized()) return ShownState::minimised;
  return isMaximized() ? ShownState::maximised : ShownState::normal;
}

void Form::setShownState(ShownState state) {
  if (state == ShownState::normal) setWindowState(Qt::WindowNoState);
  if (state == ShownState::minimised) setWindowState(windowState() | Qt::WindowMinimized);
  if (state == ShownState::maximised) setWindowState(Qt::WindowMaximized);
}

// Handlers that belong to events of the window run when the event is over: in the midst of it not
// all controls have their sizes yet, and a handler may show a message box.

void Form::owe(Handler handler) {
  owed_ |= handler;
  afterEvents_.start();
}

bool Form::takeOwed(Handler handler) {
  const bool isOwed = (owed_ & handler) != 0;
  owed_ &= ~handler;
  return isOwed && phase_ == Phase::loaded;
}

void Form::runOwed() {
  if (takeOwed(resized)) Form_Resize();
  if (takeOwed(activated)) Form_Activate();
  if (takeOwed(painted)) Form_Paint();
}

bool Form::event(QEvent* event) {
  const bool isActivation = event->type() == QEvent::WindowActivate;
  // The first activation is the one that show() has brought about.
  if (isActivation && isLoaded() && !std::exchange(firstActivation_, false)) owe(activated);
  return QDialog::event(event);
}

void Form::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  const Qt::WindowStates before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
  if (isMinimised(before) != isMinimised(windowState())) owe(resized);
}

void Form::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  owe(resized);
}

// Painting a control also paints the ground below it.
void Form::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  if (!event->region().subtracted(childrenRegion()).isEmpty()) owe(painted);
}

void Form::closeEvent(QCloseEvent* event) {
  unloadFor(UnloadCause::closeBox);
  event->setAccepted(isUnloaded());
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return event->ignore();  // A key held down chooses once.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    pressDefaultButton();
  else if (event->matches(QKeySequence::Cancel))
    reject();
  else
    event->ignore();
}

void Form::pressDefaultButton() {
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (!button) {
    for (QPushButton* candidate : findChildren<QPushButton*>())
      if (candidate->isDefault()) button = candidate;
  }
  if (button) button->click();
}

void Form::setCancelButton(QPushButton& button) {
  cancelButton_ = &button;
}

void Form::reject() {
  if (cancelButton_) cancelButton_->click();
}

}  // namespace quernstoke
