#include "console/consoleDialogs.h"

#include "console/standardError.h"

namespace quernstoke {

namespace {

// Each line break, of whatever kind, as " | ".
std::string onOneLine(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      line += text[i];
      continue;
    }
    if (text.substr(i).starts_with("\r\n")) ++i;
    line += " | ";
  }
  return line;
}

bool tellsOfFailure(std::string_view text) {
  return text.starts_with("Procedure error ") || text.starts_with("Error ") ||
         text.starts_with("Internal error");
}

}  // namespace

Answer ConsoleDialogs::messageBox(std::string_view text, Buttons buttons,
                                  std::string_view /*title*/, Icon /*icon*/) {
  if (tellsOfFailure(text)) sawFailure_ = true;
  err_.line("message: " + onOneLine(text));
  const bool asksYesNo = buttons == Buttons::yesNo || buttons == Buttons::yesNoCancel;
  return asksYesNo ? Answer::yes : Answer::ok;
}

std::string ConsoleDialogs::inputBox(std::string_view /*prompt*/, std::string_view /*title*/,
                                     std::string_view /*preset*/) {
  return {};
}

}  // namespace quernstoke
