#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quernstoke {

// Text for the screen. Bytes that are not valid UTF-8 are shown as replacement characters, and come
// back as they were by engineText.
QString qtText(std::string_view text);

// Text from the screen.
std::string engineText(QStringView text);

// The same from a field of one line. A paste can bring control characters along, which would break
// a record of settings.
std::string enteredText(QString text);

}  // namespace quernstoke
