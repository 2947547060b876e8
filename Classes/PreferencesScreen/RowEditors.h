#pragma once

#include "BadgePositionViewController.h"
#include "Color.h"
#include "LJColorPickerView.h"

#include <QObject>
#include <optional>
#include <vector>

namespace pomwick {

class PomwickPreferencesViewController;

// The editors a row pushes over the page: the two color grids, whose choices it stores, and the
// position editor, to which it gives the page's size, icon side and last preview.
class RowEditors : public QObject, public BadgePositionSender {
    Q_OBJECT
public:
    static constexpr int backgroundGridTag = 0;
    static constexpr int borderGridTag = 1;

    explicit RowEditors(PomwickPreferencesViewController* page);

    void pushColorGrid(int gridTag);
    void pushPositionEditor();
    void didSelectColor(LJColorPickerView* picker, const Color& color);

    QRectF viewBounds() override;
    float iconSize() const override;
    QImage finalBadgeImage() const override;

signals:
    // A color was stored.
    void colorChosen();

private:
    PomwickPreferencesViewController* page_;
    // Loaded on the first grid and kept, an empty palette included.
    std::optional<std::vector<Color>> masterColorsArray_;
};

} // namespace pomwick
