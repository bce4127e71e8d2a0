#pragma once

#include <functional>

class QAbstractItemView;

namespace quernstoke {

// Calls `click` whenever the selection of a list or tree has changed, whoever has changed it, and
// when the person clicks what is selected already. The view's model must be the one it stays with.
void watchClicks(QAbstractItemView& view, std::function<void()> click);

}  // namespace quernstoke
