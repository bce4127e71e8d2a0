#pragma once

namespace quernstoke {

// Puts every module-level table and variable back to what it is when the process starts.
void resetToStartUpState();

}  // namespace quernstoke
