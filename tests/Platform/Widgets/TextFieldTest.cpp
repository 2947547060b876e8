#include "TextField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

struct Edit {
    QString before;
    TextRange range;
    QString replacement;
};

class RecordingDelegate : public TextFieldDelegate {
public:
    std::vector<Edit> edits;
    bool allow = true;
    int returns = 0;
    int begins = 0;

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

TEST(TextField, AsksBeforeEveryEditWithItsRangeAndReplacement) {
    TextField field;
    RecordingDelegate delegate;
    field.setDelegate(&delegate);
    field.setText("Hello");
    field.show();
    QApplication::setActiveWindow(&field);
    field.setFocus();
    EXPECT_EQ(delegate.begins, 1);

    field.setCursorPosition(5);
    QTest::keyClicks(&field, "!");
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Delete);
    field.setSelection(1, 3);
    field.insert(QString::fromUtf8("\xF0\x9F\x98\x80"));
    ASSERT_EQ(delegate.edits.size(), 3u);
    EXPECT_EQ(delegate.edits[0].before, "Hello");
    EXPECT_EQ(delegate.edits[0].range, (TextRange{5, 0}));
    EXPECT_EQ(delegate.edits[0].replacement, "!");
    EXPECT_EQ(delegate.edits[1].range, (TextRange{0, 1}));
    EXPECT_EQ(delegate.edits[1].replacement, "");
    // UTF-16 units, as the device counts: the emoji is two.
    EXPECT_EQ(delegate.edits[2].range, (TextRange{1, 3}));
    EXPECT_EQ(delegate.edits[2].replacement.size(), 2);
    EXPECT_EQ(field.text(), QString::fromUtf8("e\xF0\x9F\x98\x80!"));

    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(delegate.returns, 1);
}

TEST(TextField, EditingBeginsOnceUntilTheFocusGoesElsewhereAndHasNoLengthLimit) {
    QWidget window;
    auto* field = new TextField(&window);
    auto* other = new QLineEdit(&window);
    RecordingDelegate delegate;
    field->setDelegate(&delegate);
    window.show();
    QApplication::setActiveWindow(&window);
    field->setFocus();
    // Another window in front and back again, or a menu, is no new beginning.
    for (Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(field, &out);
        QFocusEvent in(QEvent::FocusIn, reason);
        QApplication::sendEvent(field, &in);
    }
    EXPECT_EQ(delegate.begins, 1);
    other->setFocus();
    field->setFocus();
    EXPECT_EQ(delegate.begins, 2);

    const QString longText(40000, 'x');
    field->insert(longText);
    EXPECT_EQ(field->text(), longText);
}

TEST(TextField, ARefusedEditLeavesTheTextAsItWas) {
    TextField field;
    RecordingDelegate delegate;
    field.setDelegate(&delegate);
    field.setText("keep");
    field.show();
    QApplication::setActiveWindow(&field);
    field.setFocus();
    delegate.allow = false;
    QTest::keyClicks(&field, "xyz");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), "keep");
    EXPECT_EQ(delegate.edits.size(), 4u);
}
