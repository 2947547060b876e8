#pragma once

#include <QColor>
#include <QWidget>

namespace pomwick {

// A round swatch of a color with a thin black rim, as the color rows show it.
class ColorSwatch : public QWidget {
    Q_OBJECT
public:
    ColorSwatch(const QColor& color, QWidget* parent);
    QColor color() const { return color_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color_;
};

} // namespace pomwick
