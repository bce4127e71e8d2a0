#pragma once

#include <QIcon>
#include <QSize>
#include <string_view>

namespace quernstoke {

// The picture with this key, which is the name of its file. It is drawn at the size of the place it
// is put in, and in the text colour of the desktop's palette where the drawing says currentColor. A
// key without a picture fails with an invalid procedure call.
QIcon picture(std::string_view key);

// The size that it is drawn for, in pixels of the layout.
QSize pictureSize(std::string_view key);

// The program's icon, from 16 to 256 pixels.
QIcon programIcon();

}  // namespace quernstoke
