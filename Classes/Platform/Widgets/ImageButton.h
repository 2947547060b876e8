#pragma once

#include "PomwickPlatformExport.h"

#include <QAbstractButton>
#include <QImage>

namespace pomwick {

// A button that is only its image, drawn at a size in points. Its accessible name is for the
// caller to give: the image says nothing to a screen reader.
class POMWICK_PLATFORM_EXPORT ImageButton : public QAbstractButton {
    Q_OBJECT
public:
    ImageButton(const QImage& image, QSize size, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

} // namespace pomwick
