#pragma once

#include "Color.h"

#include <QAbstractListModel>
#include <vector>

namespace pomwick {

// A palette as a list model: one row per color, the color itself as the row's background and its
// description as the text that assistive technology reads.
class ColorSwatchModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    void setColors(std::vector<Color> colors);
    const Color& color(int row) const { return colors_[size_t(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<Color> colors_;
};

} // namespace pomwick
