#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/integers.h"

namespace quernstoke {

// The variable that a key stands for; its kind gives the type of the record.
using SettingField = std::variant<std::string*, bool*, Int16*, Int32*>;

struct Setting {
  std::string_view key;
  Int16 index;
  SettingField field;
};

// All settings with a fixed index, in the order in which they are written.
std::span<const Setting> profileSettingKeys();
std::span<const Setting> globalSettingKeys();

// The type letter and the text of a setting's record.
std::string typeOf(const SettingField& field);
std::string textOf(const SettingField& field);
// Takes a record's value into the variable: `number` into a numeric one, `value` into the others.
// Fails when a number does not fit or a text says neither true nor false.
void assign(const SettingField& field, const std::string& value, Int32 number);

}  // namespace quernstoke
