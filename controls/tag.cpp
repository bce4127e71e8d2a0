#include "controls/tag.h"

#include <QVariant>

#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

constexpr const char* property = "Tag";

}  // namespace

std::string tagOf(const QObject& object) {
  return object.property(property).toString().toStdString();
}

void setTag(QObject& object, std::string_view tag) {
  object.setProperty(property, qtText(tag));
}

bool takeIgnoreTag(QObject& object) {
  if (tagOf(object) != ignoreTag) return false;
  setTag(object, "");
  return true;
}

}  // namespace quernstoke
