#include "controls/form.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QThread>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValidator>
#include <QWindow>
#include <algorithm>
#include <utility>
#include <vector>

namespace quernstoke {

namespace {

std::vector<Form*>& loadedForms() {
  static std::vector<Form*> forms;
  return forms;
}

// Those that are still to be deleted.
std::vector<Form*>& unloadedForms() {
  static std::vector<Form*> forms;
  return forms;
}

bool isMinimised(Qt::WindowStates states) {
  return states.testFlag(Qt::WindowMinimized);
}

bool isControlCharacter(QChar c) {
  return c.category() == QChar::Other_Control;
}

// A paste can bring control characters along, which no setting holds. The field takes the rest of
// it, and shows that.
class OneLine : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& cursor) const override {
    const auto begin = text.cbegin();
    cursor -= static_cast<int>(std::count_if(begin, begin + cursor, isControlCharacter));
    text.removeIf(isControlCharacter);
    return Acceptable;
  }
};

bool fitsInto(QSize size, QSize room) {
  return size.boundedTo(room) == size;
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
  std::erase(unloadedForms(), this);
  if (isUnloaded() && loadedForms().empty()) QCoreApplication::quit();
}

void Form::deleteAll() {
  for (std::vector<Form*>* forms : {&loadedForms(), &unloadedForms()})
    while (!forms->empty())
      delete forms->back();
}

void Form::load() {
  if (phase_ != Phase::made) return;
  phase_ = Phase::loaded;
  loadedForms().push_back(this);
  // A dialog would else let Enter in a text field press one of its buttons.
  for (QPushButton* button : findChildren<QPushButton*>())
    button->setAutoDefault(false);
  for (QLineEdit* field : findChildren<QLineEdit*>())
    if (field->validator() == nullptr) field->setValidator(new OneLine(field));
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
  fitToScreen();
  firstActivation_ = true;
  owe(activated);
}

QSize Form::roomOnScreen() const {
  const int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, this);
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
  return screen()->availableGeometry().size() - QSize(2 * frame, title + frame);
}

void Form::fitToScreen() {
  ensurePolished();
  const QSize room = roomOnScreen();
  if (layout() != nullptr && !fitsInto(layout()->totalMinimumSize(), room)) letControlsScroll();
  if (testAttribute(Qt::WA_Resized) && !fitsInto(size(), room)) resize(size().boundedTo(room));
}

void Form::letControlsScroll() {
  const QPointer<QWidget> focused = focusWidget();
  auto* const area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  ground_ = new QWidget;
  area->setWidget(ground_);
  ground_->setLayout(layout());  // Which takes the controls along.
  auto* const frame = new QVBoxLayout(this);
  frame->setContentsMargins({});
  frame->addWidget(area);
  // Moves over the ground are still moves over the form.
  for (QWidget* widget : {static_cast<QWidget*>(area), area->viewport(), ground_})
    widget->setMouseTracking(hasMouseTracking());
  if (focused) focused->setFocus();
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
  deleteWhenIdle();
}

// Not with deleteLater() alone: where a handler of this form yields, the loop would delete it as
// soon as the handler that came in meanwhile, and has unloaded it, has returned.
void Form::deleteWhenIdle() {
  unloadedForms().push_back(this);
  if (thread()->loopLevel() == 0) return deleteLater();
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] {
            if (thread()->loopLevel() == 1) delete this;
          });
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
  QAbstractButton* button = qobject_cast<QPushButton*>(focusWidget());
  if (!button) button = qobject_cast<QToolButton*>(focusWidget());
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
