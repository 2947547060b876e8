#include "TextField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

// An edit asked for: the text before it, the range it replaces and what replaces it.
using Edit = std::tuple<QString, TextRange, QString>;

class RecordingDelegate : public TextFieldDelegate {
public:
    std::vector<Edit> edits;
    bool allow = true;
    int returns = 0, begins = 0;

    void textFieldDidBeginEditing(TextField*) override { ++begins; }
    bool shouldChangeCharactersInRange(TextField* field, TextRange range,
                                       const QString& replacement) override {
        edits.push_back({field->acceptedText(), range, replacement});
        return allow;
    }
    bool textFieldShouldReturn(TextField*) override {
        ++returns;
        return true;
    }
};

} // namespace

TEST(TextFieldTest, AsksBeforeEveryEditHonoursARefusalAndBeginsEditingOnceUntilTheFocusLeaves) {
    // A field and another focusable widget in a shown window; the field has the focus.
    RecordingDelegate delegate;
    QWidget window;
    auto* field = new TextField(&window);
    auto* other = new QLineEdit(&window);
    field->setDelegate(&delegate);
    window.show();
    QApplication::setActiveWindow(&window);
    field->setFocus();
    field->setText("Hello");

    field->setCursorPosition(5);
    QTest::keyClicks(field, "!");
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClick(field, Qt::Key_Delete);
    field->setSelection(1, 3);
    const QString emoji = QString::fromUtf8("\xF0\x9F\x98\x80");
    field->insert(emoji);
    // Ranges count UTF-16 units, as the device does: the emoji is two.
    EXPECT_EQ(delegate.edits,
              (std::vector<Edit>{
                  {"Hello", {5, 0}, "!"}, {"Hello!", {0, 1}, ""}, {"ello!", {1, 3}, emoji}}));
    EXPECT_EQ(field->text(), "e" + emoji + "!");

    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(delegate.returns, 1);

    // A refused edit leaves the text as it was.
    delegate.allow = false;
    QTest::keyClicks(field, "xyz");
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(field->text(), "e" + emoji + "!");
    EXPECT_EQ(delegate.edits.size(), 7u);

    // No length limit: a line edit's default would cut the text at 32,767 characters. A text
    // that long shows only its start, and an edit there keeps the rest.
    delegate.allow = true;
    field->setText("");
    field->insert(QString(40000, 'x'));
    EXPECT_EQ(field->acceptedText(), QString(40000, 'x'));
    static_cast<QLineEdit*>(field)->clear();
    EXPECT_EQ(field->acceptedText(), "");
    // Set from code, such a text never goes into the line edit whole, where laying it out
    // would take seconds.
    const QString marks = "a" + QString(100000, QChar(0x0301));
    qsizetype longest = 0;
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [&longest](const QString& text) { longest = std::max(longest, text.size()); });
    field->setAcceptedText(marks);
    EXPECT_EQ(std::tuple(field->acceptedText(), longest), std::tuple(marks, field->text().size()));
    EXPECT_EQ(field->text(), marks.left(field->text().size()));
    EXPECT_LE(field->text().size(), 1000);
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClicks(field, "b");
    EXPECT_EQ(field->acceptedText(), "b" + marks);
    EXPECT_EQ(field->text(), TextField::displayedPart("b" + marks));

    // Another window in front and back again, or a menu, is no new beginning.
    for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason})
        for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) {
            QFocusEvent event(type, reason);
            QApplication::sendEvent(field, &event);
        }
    EXPECT_EQ(delegate.begins, 1);
    other->setFocus();
    field->setFocus();
    EXPECT_EQ(delegate.begins, 2);
}
