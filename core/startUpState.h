#pragma once

namespace quernstoke {

// Puts every module-level table and variable back to what it is when the process starts. For
// tests, which each begin there.
void resetToStartUpState();

}  // namespace quernstoke
