#include "testing/fakes.h"

#include <array>
#include <cstdio>

namespace quernstoke {

namespace {

// Takes the front of a script, or `otherwise` when it has run out.
template <class T>
T takeFront(std::vector<T>& script, T otherwise) {
  if (script.empty()) return otherwise;
  T front = script.front();
  script.erase(script.begin());
  return front;
}

template <class Map>
std::string mapped(std::string_view text, char first, char last, Map map) {
  std::string result(text);
  for (char& c : result)
    if (c >= first && c <= last) c = map(c);
  return result;
}

std::string replaced(std::string text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at))
    text.replace(at, what.size(), with);
  return text;
}

}  // namespace

void ScriptedDialogs::comeUp() {
  if (const auto happens = std::exchange(onBox, nullptr)) happens();
  if (const auto number = std::exchange(failNext, std::nullopt)) fail(*number);
}

Answer ScriptedDialogs::messageBox(std::string_view text, Buttons shown, std::string_view title,
                                   Icon icon) {
  comeUp();
  messages.emplace_back(text);
  titles.emplace_back(title);
  buttons.push_back(shown);
  icons.push_back(icon);
  const bool asks = shown == Buttons::yesNo || shown == Buttons::yesNoCancel;
  return takeFront(answers, asks ? Answer::yes : Answer::ok);
}

std::string ScriptedDialogs::inputBox(std::string_view prompt, std::string_view title,
                                      std::string_view preset) {
  comeUp();
  messages.emplace_back(prompt);
  titles.emplace_back(title);
  presets.emplace_back(preset);
  return takeFront(inputs, std::string());
}

std::int32_t ScriptedDesktop::shellExecute(const ShellRequest& request) {
  if (failure) fail(*failure);
  opened.push_back({std::string(request.operation), std::string(request.file),
                    std::string(request.parameters), std::string(request.directory),
                    request.showMode, request.window});
  return shellAnswer;
}

std::optional<std::string> ScriptedDesktop::specialFolder(std::int32_t id) {
  if (failure) fail(*failure);
  constexpr std::int32_t documentsFolder = 5;
  return id == documentsFolder ? documents : std::nullopt;
}

std::optional<DiskSpace> ScriptedDesktop::diskSpace(std::string_view rootPath) {
  if (failure) fail(*failure);
  askedDrive = rootPath;
  return space;
}

std::vector<std::string> ScriptedDesktop::drives() {
  if (failure) fail(*failure);
  return driveTexts;
}

void ScriptedEvents::yield() {
  ++yields;
  if (onYield) onYield();
}

DateTime ManualClock::now() {
  const DateTime answer = time;
  time.seconds += step;
  return answer;
}

std::string PlainLocale::lower(std::string_view text) {
  return replaced(mapped(text, 'A', 'Z', [](char c) { return static_cast<char>(c - 'A' + 'a'); }),
                  "\u00D6", "\u00F6");
}

std::string PlainLocale::upper(std::string_view text) {
  return replaced(mapped(text, 'a', 'z', [](char c) { return static_cast<char>(c - 'a' + 'A'); }),
                  "\u00F6", "\u00D6");
}

std::string PlainLocale::generalDate(DateTime when) {
  const CivilTime civil = civilTime(when);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", civil.year, civil.month,
                civil.day, civil.hour, civil.minute, civil.second);
  return text.data();
}

std::string PlainLocale::shortDate(DateTime when) {
  return generalDate(when).substr(0, 10);
}

}  // namespace quernstoke
