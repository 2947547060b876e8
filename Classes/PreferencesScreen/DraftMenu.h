#pragma once

#include <QMenu>

namespace pomwick {

// The choice the mail composer's Cancel offers, in the page's look: white, rounded, the bar's
// type and tint, and a destructive choice in red. It deletes itself when closed; Escape closes it
// and leaves the composer as it was.
class DraftMenu : public QMenu {
public:
    explicit DraftMenu(QWidget* parent);

    QAction* addDestructiveAction(const QString& text);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

} // namespace pomwick
