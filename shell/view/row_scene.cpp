#include "shell/view/row_scene.h"

#include <cmath>

namespace tarvelo {

int RowScene::X(int column) const {
  return margin + static_cast<int>(std::lround((column - leftColumn) * columnWidth));
}

int RowScene::Y(Offset row) const { return headerHeight + static_cast<int>(row - topRow) * rowHeight; }

int RowScene::ColumnAt(int x) const {
  return leftColumn + static_cast<int>(std::floor((x - margin) / columnWidth));
}

Offset RowScene::RowAt(int y) const {
  const int below = y - headerHeight;
  return topRow + (below < 0 ? -1 - (-1 - below) / rowHeight : below / rowHeight);
}

}  // namespace tarvelo
