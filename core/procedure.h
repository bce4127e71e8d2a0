#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "platform/failure.h"

namespace quernstoke {

// Shows the box in which every procedure reports a failure that it did not expect.
void showProcedureError(const char* name, const Failure& failure);

// Runs the steps of the procedure `name`. A failure in them is shown and ends the procedure with
// its default result; the caller goes on as if nothing had happened, and nothing is rolled back.
template <class Steps>
std::invoke_result_t<Steps> procedure(const char* name, Steps&& steps) {
  try {
    return std::forward<Steps>(steps)();
  } catch (const Failure& failure) {
    showProcedureError(name, failure);
  } catch (const std::bad_alloc&) {
    showProcedureError(name, Failure(FailureNumber::outOfMemory));
  }
  return std::invoke_result_t<Steps>();
}

// Runs the steps of the procedure `name`, which goes on with the next one after a failure is shown.
template <class... Steps>
void procedureGoingOn(const char* name, Steps&&... steps) {
  (procedure(name, std::forward<Steps>(steps)), ...);
}

// Runs one statement whose failure is of no concern. Returns the failure's number, 0 for none.
template <class Statement>
int ignoringFailure(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const Failure& failure) {
    return failure.number;
  } catch (const std::bad_alloc&) {
    return static_cast<int>(FailureNumber::outOfMemory);
  }
  return 0;
}

}  // namespace quernstoke
