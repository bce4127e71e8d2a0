#include "pictures/pictures.h"

#include <QByteArray>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include "platform/failure.h"
#include "platform/qt/qtText.h"

// Resources of a library are linked only if they are asked for, outside of any namespace.
static void linkPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace quernstoke {

namespace {

QByteArray drawing(std::string_view key) {
  linkPictures();
  QFile file(":/pictures/" + qtText(key) + ".svg");
  if (!file.open(QIODevice::ReadOnly)) fail(FailureNumber::invalidProcedureCall);
  return file.readAll();
}

QColor textColour() {
  return QGuiApplication::palette().color(QPalette::Active, QPalette::WindowText);
}

// Draws itself anew at each size, so that it is sharp on every screen.
class PictureEngine : public QIconEngine {
 public:
  explicit PictureEngine(const QByteArray& drawing) : drawing_(drawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override { return new PictureEngine(drawing_); }

 private:
  QSvgRenderer& drawnIn(const QColor& colour);

  QByteArray drawing_;
  QSvgRenderer renderer_;
  QColor loadedColour_;
};

QSvgRenderer& PictureEngine::drawnIn(const QColor& colour) {
  if (loadedColour_ != colour) {
    QByteArray coloured = drawing_;
    renderer_.load(coloured.replace("currentColor", colour.name().toLatin1()));
    loadedColour_ = colour;
  }
  return renderer_;
}

void PictureEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State /*state*/) {
  constexpr double faded = 0.4;
  painter->save();
  // Half a picture is the whole one, cut at its edge.
  painter->setClipRect(rect, Qt::IntersectClip);
  if (mode == QIcon::Disabled) painter->setOpacity(faded);
  drawnIn(textColour()).render(painter, rect);
  painter->restore();
}

QPixmap PictureEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap result(size);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  paint(&painter, result.rect(), mode, state);
  return result;
}

QSize PictureEngine::actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) {
  return drawnIn(textColour()).defaultSize().scaled(size, Qt::KeepAspectRatio);
}

}  // namespace

QIcon picture(std::string_view key) {
  return QIcon(new PictureEngine(drawing(key)));
}

QSize pictureSize(std::string_view key) {
  return QSvgRenderer(drawing(key)).defaultSize();
}

QIcon programIcon() {
  QIcon icon;
  // At small sizes the grooves of the stone would be a blur.
  for (const int size : {16, 22, 24, 32})
    icon.addPixmap(picture("quernstoke-small").pixmap(size, size));
  for (const int size : {48, 64, 128, 256})
    icon.addPixmap(picture("quernstoke").pixmap(size, size));
  return icon;
}

}  // namespace quernstoke
