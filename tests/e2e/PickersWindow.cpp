// The two pickers in one window, for driving them with real input: the font picker on top, a
// color grid below. Every pick is printed on its own line.
#include "DQFontPicker.h"
#include "LJColorPickerView.h"

#include <QApplication>
#include <QVBoxLayout>
#include <cstdio>

using namespace pomwick;

namespace {

class Printer : public QObject {
public:
    void didSelectColor(LJColorPickerView*, const Color& c) {
        std::printf("color %.3f %.3f %.3f\n", double(c.red), double(c.green), double(c.blue));
    }
};

std::vector<Color> palette() {
    std::vector<Color> colors;
    for (int i = 0; i < 48; ++i) {
        const QColor color = QColor::fromHsvF(float(i % 12) / 12, 0.35f + float(i / 12) * 0.2f,
                                              1.0f - float(i / 12) * 0.15f);
        colors.push_back({color.redF(), color.greenF(), color.blueF(), 1});
    }
    return colors;
}

} // namespace

int main(int argc, char** argv) {
    // Each pick reaches the driver as it is made.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Pickers"));
    window.setStyleSheet(QStringLiteral("QWidget#window { background: #f2f2f7; }"));
    window.setObjectName(QStringLiteral("window"));
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    auto* fonts = new DQFontPicker(&window);
    fonts->view()->setFixedSize(320, 216);
    fonts->setFont(Font{"DejaVuSans", 14, {}, {}, {}});
    fonts->setColor(Color{1, 0, 0, 1});
    QObject::connect(fonts, &DQFontPicker::changed, fonts, [fonts] {
        std::printf("changed %s %g\n", qPrintable(fonts->fontName()), fonts->fontSize());
    });
    auto* grid = new LJColorPickerView;
    grid->setFixedSize(320, 248);
    Printer printer;
    grid->setDelegate(&printer);
    grid->setColors(palette());
    layout->addWidget(fonts->view());
    layout->addWidget(grid);
    window.show();
    return app.exec();
}
