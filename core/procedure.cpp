#include "core/procedure.h"

#include <string>

#include "platform/dialogs.h"
#include "platform/platform.h"

namespace quernstoke {

void showProcedureError(const char* name, const Failure& failure) {
  dialogs().messageBox("Procedure error in '" + std::string(name) + "'.  Reason: " +
                       failure.description + "(" + std::to_string(failure.number) + ").");
}

}  // namespace quernstoke
