#include "ColorSwatchModel.h"

#include "ColorDescription.h"
#include "QtConversions.h"

#include <algorithm>
#include <climits>

namespace pomwick {

void ColorSwatchModel::setColors(std::vector<Color> colors) {
    beginResetModel();
    colors_ = std::move(colors);
    endResetModel();
}

int ColorSwatchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(std::min<size_t>(colors_.size(), INT_MAX));
}

QVariant ColorSwatchModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    switch (role) {
    case Qt::BackgroundRole:
        return toQColor(color(index.row()));
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return describeColor(color(index.row()));
    default:
        return {};
    }
}

} // namespace pomwick
