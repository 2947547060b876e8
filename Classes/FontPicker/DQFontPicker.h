#pragma once

#include "Color.h"
#include "Font.h"
#include "PickerView.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace pomwick {

class FontPickerRows;
class PickerWheel;

// A three-wheel picker of font face, font size and color. It owns the picker view that shows its
// wheels (view()), so that its own font() and setFont() leave the widget's alone. Each list is
// built on first use (at the latest when the view is first shown) and kept until its setter is
// given an empty list. A value set before a list is built always gets a row of its own; one set
// later only selects the nearest row (sizes, colors) or an equal one (fonts).
class DQFontPicker : public QObject {
    Q_OBJECT
public:
    // What every index lookup answers when nothing matches.
    static constexpr qsizetype notFound = std::numeric_limits<qsizetype>::max();
    static constexpr qreal rowHeight = 30;

    // The view is made in the parent widget, the picker a child of it; both go together.
    explicit DQFontPicker(QWidget* parent = nullptr);
    ~DQFontPicker() override;

    PickerView* view() const { return view_; }

    // Whether color rows are solid blocks; fixed on here, as on current systems.
    static bool modernStyle() { return true; }

    std::optional<Font> font() const;
    void setFont(const Font& font);
    std::optional<Color> color() const { return color_; }
    void setColor(std::optional<Color> color);
    QString fontName() const { return fontName_; }
    double fontSize() const { return fontSize_; }

    void selectFontName(const QString& name, bool animated);
    void selectFontSize(double size, bool animated);
    void selectColor(std::optional<Color> color, bool animated);

    qsizetype indexForFontName(const QString& name);
    qsizetype indexForFontSize(double size);
    qsizetype indexForNearestFontSize(double size);
    qsizetype indexForColor(std::optional<Color> color);
    qsizetype indexForNearestColor(std::optional<Color> color);

    // The rows under the band, or nothing (the size falls back to minFontSize).
    QString selectedFontName();
    double selectedFontSize();
    std::optional<Color> selectedColor();

    const QStringList& fontList();
    void setFontList(QStringList list) { fontList_ = std::move(list); }
    const std::vector<float>& sizeList();
    void setSizeList(std::vector<float> list) { sizeList_ = std::move(list); }
    const std::vector<Color>& colorList();
    void setColorList(std::vector<Color> list) { colorList_ = std::move(list); }

    QString text() const { return text_; }
    void setText(const QString& text);
    double minFontSize() const { return minFontSize_; }
    void setMinFontSize(double size) { minFontSize_ = size; }
    double maxFontSize() const { return maxFontSize_; }
    void setMaxFontSize(double size) { maxFontSize_ = size; }
    double stepFontSize() const { return stepFontSize_; }
    void setStepFontSize(double step) { stepFontSize_ = step; }
    qint64 colorVariants() const { return colorVariants_; }
    void setColorVariants(qint64 count) { colorVariants_ = count; }
    qint64 grayVariants() const { return grayVariants_; }
    void setGrayVariants(qint64 count) { grayVariants_ = count; }
    qint64 fontComponentIndex() const { return fontComponentIndex_; }
    void setFontComponentIndex(qint64 index) { fontComponentIndex_ = index; }
    qint64 sizeComponentIndex() const { return sizeComponentIndex_; }
    void setSizeComponentIndex(qint64 index) { sizeComponentIndex_ = index; }
    qint64 colorComponentIndex() const { return colorComponentIndex_; }
    void setColorComponentIndex(qint64 index) { colorComponentIndex_ = index; }
    // Called after every pick, after changed().
    std::function<void()> changeHandler() const { return changeHandler_; }
    void setChangeHandler(std::function<void()> handler) { changeHandler_ = std::move(handler); }

    // Where the installed faces come from: the font catalogue's families and their faces unless
    // a caller (a test, a benchmark) gives its own.
    using FaceSource = std::function<QStringList()>;
    void setFaceSource(FaceSource source) { faceSource_ = std::move(source); }

    // The picker view's operations on the picker's own wheels. Reloading shows the lists as they
    // are now, on the wheels their component indexes name.
    void selectRow(int row, int component, bool animated);
    int selectedRowInComponent(int component);
    int numberOfRowsInComponent(int component);
    void reloadAllComponents();
    PickerWheel* wheel(int component);

    // What the wheels are made of, asked for by name.
    int numberOfComponentsInPickerView(PickerView* picker);
    int numberOfRowsInComponent(PickerView* picker, int component);
    qreal widthForComponent(PickerView* picker, int component);
    qreal rowHeightForComponent(PickerView* picker, int component);
    // A new label showing the row as its wheel does; the caller owns it. Null past the end.
    QWidget* viewForRow(PickerView* picker, int row, int component, QWidget* reusingView);
    // The user has brought a wheel to rest: the value follows the row.
    void didSelectRow(PickerView* picker, int row, int component);

signals:
    // The user has picked a row; the value has followed it.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Wheel { Font, Size, Color, None };
    Wheel wheelOf(qint64 component) const;
    FontPickerRows* rowsOf(Wheel wheel) const;
    void arrangeWheels();
    // The view with the lists on its wheels, built first if need be; null once the view is gone.
    PickerView* loadedView();
    int selectedRowOf(qint64 component);
    QStringList installedFaceNames() const;

    QPointer<PickerView> view_;
    FontPickerRows* fontRows_;
    FontPickerRows* sizeRows_;
    FontPickerRows* colorRows_;
    FontPickerRows* noRows_;
    bool loaded_ = false;

    QString fontName_;
    double fontSize_ = 0;
    std::optional<Color> color_;
    QStringList fontList_;
    std::vector<float> sizeList_;
    std::vector<Color> colorList_;
    QString text_;
    double minFontSize_ = 0;
    double maxFontSize_ = 0;
    double stepFontSize_ = 0;
    qint64 colorVariants_ = 0;
    qint64 grayVariants_ = 0;
    qint64 fontComponentIndex_ = 0;
    qint64 sizeComponentIndex_ = 1;
    qint64 colorComponentIndex_ = 2;
    std::function<void()> changeHandler_;
    FaceSource faceSource_;
};

} // namespace pomwick
