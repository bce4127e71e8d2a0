#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <cstdint>

class QPushButton;

namespace quernstoke {

enum class UnloadCause { program, closeBox };

// The numbers are told to handlers of a form's size.
enum class ShownState : std::int16_t { normal = 0, minimised = 1, maximised = 2 };

// A window with the life of a form:
//
// 1. It is loaded once, before it is first shown. Form_Load then runs; the form can't be seen yet.
// 2. After each show, Form_Resize, Form_Activate and Form_Paint run in this order, from the event
//    loop, when the controls have their sizes. Form_Activate runs again whenever the window becomes
//    the active one, Form_Resize when its size changes or it is minimised or restored, Form_Paint
//    when ground of the form itself was painted, not a control alone.
// 3. Unloading asks Form_QueryUnload, runs Form_Unload while the form can still be seen, and hides
//    it. The object is done with, but it is deleted only when control has returned to the outermost
//    event loop, from all handlers.
//
// A form belongs to itself and must be made with new. When the last one that is loaded is gone, the
// event loop ends.
//
// Enter presses the push or tool button that has the focus, else the default button; Escape presses
// the cancel button, if there is one. The close box unloads.
//
// A form is shown no larger than the screen. Where its layout needs more room, the controls scroll.
// Its fields of one line take no control characters.
class Form : public QDialog {
  Q_OBJECT

 public:
  explicit Form(Qt::WindowFlags flags = Qt::Window);
  ~Form() override;

  void load();
  void show();       // Modelessly; loads if need be. In front of the other windows.
  void showModal();  // The same, and returns when the form is hidden or unloaded.
  void unload();
  bool isLoaded() const { return phase_ == Phase::loaded || phase_ == Phase::unloading; }
  bool isUnloaded() const { return phase_ == Phase::unloaded; }

  void refresh();  // Runs Form_Paint and paints at once.
  ShownState shownState() const;
  void setShownState(ShownState state);
  void setCancelButton(QPushButton& button);
  // What the controls of the layout lie on: the form itself, or what scrolls in it.
  const QWidget* ground() const { return ground_; }

  // Deletes all forms that were loaded, at the end of the program; no handler runs.
  static void deleteAll();

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_Paint() {}
  // Returns whether the form may be unloaded.
  virtual bool Form_QueryUnload(UnloadCause /*cause*/) { return true; }
  virtual void Form_Unload() {}

  // What the screen has for a window inside the frame that the desktop puts round it.
  QSize roomOnScreen() const;

  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void reject() override;

 private:
  enum class Phase { made, loaded, unloading, unloaded };
  enum Handler : unsigned { resized = 1, activated = 2, painted = 4 };

  void prepareShow();
  void fitToScreen();
  void letControlsScroll();
  void unloadFor(UnloadCause cause);
  void deleteWhenIdle();
  void owe(Handler handler);
  bool takeOwed(Handler handler);
  void runOwed();
  void centreOver(const QWidget& owner);
  void pressDefaultButton();

  Phase phase_ = Phase::made;
  QWidget* ground_ = this;
  unsigned owed_ = 0;  // The handlers that are to run from the event loop.
  QTimer afterEvents_;
  bool firstActivation_ = false;  // The window has yet to become active since it was shown.
  QPointer<QPushButton> cancelButton_;
};

// The one instance of a form that the program names. It is made anew when it is touched for the
// first time, or again after it was unloaded.
template <class F>
class FormInstance {
 public:
  // Loads it if need be.
  F& get() {
    if (!form_ || form_->isUnloaded()) form_ = new F;
    F& form = *form_;
    form.load();
    return form;
  }
  F* operator->() { return &get(); }

  bool isLoaded() const { return form_ && form_->isLoaded(); }
  // Unloading what isn't loaded does nothing, and makes nothing.
  void unload() {
    if (isLoaded()) form_->unload();
  }

 private:
  QPointer<F> form_;
};

}  // namespace quernstoke
