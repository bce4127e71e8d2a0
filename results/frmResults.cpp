#include "results/frmResults.h"

#include <QVBoxLayout>
#include <map>
#include <string>

#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "platform/platform.h"
#include "platform/qt/qtText.h"
#include "platform/windows.h"

namespace quernstoke::forms {

namespace {

std::string pathOf(Int32 file) {
  return basGetDirnameFromFilenum(file) + "\\" + std::string(FileTable.FileName[file]);
}

std::string setsAsText() {
  std::map<std::int32_t, std::string> sets;  // By match number.
  for (Int32 file = 1; file <= FileCount; ++file)
    sets[FileTable.FileStatus[statusMatch][file].raw()] += pathOf(file) + '\n';
  std::string text;
  for (const auto& [number, paths] : sets)
    text += paths + '\n';
  return text;
}

}  // namespace

frmResults::frmResults() : sets_(new QPlainTextEdit(this)) {
  constexpr QSize usualSize(800, 500);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(sets_);
  sets_->setReadOnly(true);
  sets_->setLineWrapMode(QPlainTextEdit::NoWrap);
  sets_->setAccessibleName(tr("Sets of duplicate files"));
  resize(usualSize);
}

void frmResults::Form_Load() {
  setWindowTitle(tr("%n duplicate(s)", nullptr, DuplicateCount.raw()));
  sets_->setPlainText(qtText(setsAsText()));
}

void frmResults::Form_Unload() {
  quernstoke::frmMain().show();
}

}  // namespace quernstoke::forms
