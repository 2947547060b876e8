#pragma once

#include "PomwickPlatformExport.h"

#include <QLineEdit>
#include <QPointer>
#include <utility>

namespace pomwick {

class TextField;

// A range of the text in UTF-16 code units, as the device counts them.
struct POMWICK_PLATFORM_EXPORT TextRange {
    int location = 0;
    int length = 0;
    friend bool operator==(const TextRange&, const TextRange&) = default;
};

// What a text field asks and tells the object that edits through it. The field does not own it
// and holds it weakly.
class POMWICK_PLATFORM_EXPORT TextFieldDelegate : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    // When the field takes the focus to edit, not when it gets it back from another window.
    virtual void textFieldDidBeginEditing(TextField*) {}
    // Asked before every edit (typing, deleting, pasting, input methods); false refuses it.
    virtual bool shouldChangeCharactersInRange(TextField*, TextRange,
                                               const QString& /*replacement*/) {
        return true;
    }
    virtual bool textFieldShouldReturn(TextField*) { return true; }
};

// A one-line text field with a clear background, a placeholder and an optional view on its
// right, that asks its delegate about each edit before it is shown. The delegate is held weakly.
// Text set from code, by whatever means, is no edit: the delegate is not asked about it.
// A text beyond displayedTextLimit shows only its start; edits there apply to the whole text.
// Escape stays in the field: it drops the selection and does not reach the page around it.
class POMWICK_PLATFORM_EXPORT TextField : public QLineEdit {
    Q_OBJECT
public:
    explicit TextField(QWidget* parent = nullptr);

    void setDelegate(TextFieldDelegate* delegate) { delegate_ = delegate; }
    TextFieldDelegate* delegate() const { return delegate_; }
    // The part of a text the field shows.
    static QString displayedPart(const QString& text);
    // Shown at the right at all times.
    void setRightView(QWidget* view);
    QWidget* rightView() const { return rightView_; }
    void resignFirstResponder();
    // The whole text as it stood after the last edit allowed, or as code last set it.
    QString acceptedText() const { return acceptedText_; }
    // Takes a whole text from code and lays out only the part shown; setText lays out all of it
    // first, which for a hostile text (a letter under 100,000 combining marks) takes seconds.
    void setAcceptedText(const QString& text);

    // The edit that turns the current text into `proposed`, as one range and its replacement.
    static std::pair<TextRange, QString> editBetween(const QString& current,
                                                     const QString& proposed);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeRightView();
    void askAboutEdit(const QString& proposed);
    void followText();
    void showPart(const QString& text);

    QPointer<TextFieldDelegate> delegate_;
    QPointer<QWidget> rightView_;
    bool editing_ = false;
    // The change the next textChanged reports was an edit, answered already.
    bool answered_ = false;
    bool showing_ = false;
    QString acceptedText_;
};

} // namespace pomwick
