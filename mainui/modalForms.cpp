#include "mainui/modalForms.h"

namespace quernstoke {

std::string DialogText;
Int32 DialogValue;
Int32 DialogValue2;
ModalForms modalForms;

}  // namespace quernstoke
