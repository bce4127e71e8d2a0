#pragma once

#include <QObject>
#include <string>
#include <string_view>

namespace quernstoke {

// A text that a form or a control carries along for the program; empty at first. In Designer it is
// the dynamic property Tag.
std::string tagOf(const QObject& object);
void setTag(QObject& object, std::string_view tag);

// Marks a change that the program itself makes to a control.
inline constexpr std::string_view ignoreTag = "IGNORE";
// Whether the control is so marked; takes the mark off. A handler that finds it does nothing else.
bool takeIgnoreTag(QObject& object);

}  // namespace quernstoke
