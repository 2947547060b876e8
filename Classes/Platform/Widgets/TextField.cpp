#include "TextField.h"

#include "Appearance.h"

#include <QFocusEvent>
#include <QValidator>

namespace pomwick {
namespace {

// Every edit of a line edit passes its validator before it is applied: the place to ask.
class EditGate : public QValidator {
public:
    explicit EditGate(TextField* field) : QValidator(field), field_(field) {}

    // The line edit has already applied the edit when it asks: compare with the text as it
    // stood before, and a refusal makes it undo the edit.
    State validate(QString& proposed, int&) const override {
        const QString current = field_->acceptedText();
        if (proposed == current || field_->delegate() == nullptr || field_->isSettingText())
            return Acceptable;
        const auto [range, replacement] = TextField::editBetween(current, proposed);
        return field_->delegate()->shouldChangeCharactersInRange(field_, range, replacement)
                   ? Acceptable
                   : Invalid;
    }

private:
    TextField* field_;
};

} // namespace

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    setFont(Appearance::systemFont(17));
    QPalette clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
    setValidator(new EditGate(this));
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { acceptedText_ = text; });
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (delegate_ != nullptr)
            delegate_->textFieldShouldReturn(this);
    });
}

std::pair<TextRange, QString> TextField::editBetween(const QString& current,
                                                     const QString& proposed) {
    qsizetype prefix = 0;
    const qsizetype shorter = std::min(current.size(), proposed.size());
    while (prefix < shorter && current[prefix] == proposed[prefix])
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < shorter - prefix &&
           current[current.size() - 1 - suffix] == proposed[proposed.size() - 1 - suffix])
        ++suffix;
    const TextRange range{int(prefix), int(current.size() - prefix - suffix)};
    return {range, proposed.mid(prefix, proposed.size() - prefix - suffix)};
}

void TextField::setText(const QString& text) {
    settingText_ = true;
    QLineEdit::setText(text);
    settingText_ = false;
}

void TextField::setRightView(QWidget* view) {
    rightView_ = view;
    view->setParent(this);
    view->show();
    placeRightView();
}

void TextField::placeRightView() {
    if (!rightView_)
        return;
    rightView_->move(width() - rightView_->width(), (height() - rightView_->height()) / 2);
    setTextMargins(0, 0, rightView_->width() + 6, 0);
}

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (delegate_ != nullptr)
        delegate_->textFieldDidBeginEditing(this);
}

void TextField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    placeRightView();
}

} // namespace pomwick
