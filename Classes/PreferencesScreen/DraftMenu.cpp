#include "DraftMenu.h"

#include "Appearance.h"

#include <QStyleOptionMenuItem>

namespace pomwick {
namespace {

constexpr const char* destructive = "destructive";

} // namespace

DraftMenu::DraftMenu(QWidget* parent) : QMenu(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setFont(Appearance::systemFont(17));
    Appearance::follow(this, [this] {
        setStyleSheet(QString("QMenu { background: %1; border: 1px solid %2; border-radius: 12px;"
                              " padding: 6px 0; }"
                              "QMenu::item { padding: 10px 28px; background: transparent; }"
                              "QMenu::item:selected { background: %3; }")
                          .arg(Appearance::cellBackground().name(), Appearance::menuBorder().name(),
                               Appearance::menuSelection().name()));
    });
}

QAction* DraftMenu::addDestructiveAction(const QString& text) {
    QAction* action = addAction(text);
    action->setProperty(destructive, true);
    return action;
}

// The text's colour goes in the option: style sheets cannot tell one item from another.
void DraftMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    const QColor color =
        action->property(destructive).toBool() ? Appearance::destructive() : Appearance::tint();
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
        option->palette.setColor(role, color);
}

} // namespace pomwick
