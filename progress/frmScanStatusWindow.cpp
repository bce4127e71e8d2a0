#include "progress/frmScanStatusWindow.h"

#include "controls/tag.h"
#include "controls/units.h"
#include "platform/qt/qtText.h"
#include "progress/ui_frmScanStatus.h"

namespace quernstoke {

bool FormsScanStatusWindow::minimised() const {
  return form().shownState() == ShownState::minimised;
}

void FormsScanStatusWindow::setCaption(std::string_view caption) {
  form().setWindowTitle(qtText(caption));
}

void FormsScanStatusWindow::setTag(std::string_view tag) {
  quernstoke::setTag(form(), tag);
}

void FormsScanStatusWindow::labFile1(std::string_view text) {
  form().controls().labFile1->setText(qtText(text));
}
void FormsScanStatusWindow::labElapsedTime(std::string_view text) {
  form().controls().labElapsedTime->setText(qtText(text));
}
void FormsScanStatusWindow::labRemainingTime(std::string_view text) {
  form().controls().labRemainingTime->setText(qtText(text));
}
void FormsScanStatusWindow::labEstimatedTime(std::string_view text) {
  form().controls().labEstimatedTime->setText(qtText(text));
}
void FormsScanStatusWindow::labBufferReads(std::string_view text) {
  form().controls().labBufferReads->setText(qtText(text));
}
void FormsScanStatusWindow::labLocalFileReads(std::string_view text) {
  form().controls().labLocalFileReads->setText(qtText(text));
}
void FormsScanStatusWindow::labRemoteFileReads(std::string_view text) {
  form().controls().labRemoteFileReads->setText(qtText(text));
}

std::int32_t FormsScanStatusWindow::labFile1Width() const {
  return twipsFromPixels(form().controls().labFile1->width());
}

const TextRuler& FormsScanStatusWindow::labSizer() const {
  return *form().controls().labSizer;
}

}  // namespace quernstoke
