#pragma once

#include <QColor>
#include <QWidget>

namespace pomwick {

// A round swatch of a colour with a thin black rim, as the colour rows show it.
class ColourSwatch : public QWidget {
    Q_OBJECT
public:
    ColourSwatch(const QColor& colour, QWidget* parent);
    QColor colour() const { return colour_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor colour_;
};

} // namespace pomwick
