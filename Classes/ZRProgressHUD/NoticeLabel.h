#pragma once

#include <QLabel>

namespace pomwick {

// A label of the notice: plain text centered in its frame, on one line cut with an ellipsis, or
// wrapped over as many lines as the frame holds.
class NoticeLabel : public QLabel {
    Q_OBJECT
public:
    NoticeLabel(bool wraps, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pomwick
