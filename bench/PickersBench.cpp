// The pickers' budgets: the font list of 2,000 faces built and sorted; the font picker created to
// its first painted frame; a grid of 10,000 swatches created to its first painted frame.
#include "DQFontPicker.h"
#include "LJColorPickerView.h"

#include <QApplication>
#include <QLocale>
#include <QRandomGenerator>
#include <benchmark/benchmark.h>

using namespace pomwick;

namespace {

// The user's locale decides the font order: measure with a real collation, not "C"'s. Set
// before the shared main starts the application.
[[maybe_unused]] const bool englishCollation = [] {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    return true;
}();

// Face names as a large collection has them: families of a few styles, mixed case, some with
// letters beyond ASCII, in no particular order.
QStringList generatedFaces(int count) {
    static const QStringList styles{"Regular", "Bold",   "Italic", "BoldItalic",
                                    "Light",   "Medium", "Black",  "Condensed"};
    static const QStringList stems{"Noto", "source", "Libération", "DejaVu",    "ubuntu",
                                   "Fira", "Ärztin", "Overpass",   "cantarell", "Œuvre"};
    QStringList faces;
    QRandomGenerator random(7);
    for (int i = 0; i < count; ++i)
        faces.append(QStringLiteral("%1%2-%3")
                         .arg(stems[random.bounded(int(stems.size()))])
                         .arg(random.bounded(1000))
                         .arg(styles[random.bounded(int(styles.size()))]));
    return faces;
}

void FontListOf2000Faces(benchmark::State& state) {
    DQFontPicker picker;
    const QStringList faces = generatedFaces(2000);
    picker.setFaceSource([&faces] { return faces; });
    picker.selectFontName(QStringLiteral("Verdana"), false);
    for (auto _ : state) {
        picker.setFontList({});
        benchmark::DoNotOptimize(picker.fontList().size());
    }
    state.counters["faces"] = double(picker.fontList().size());
}

void FontListOfInstalledFaces(benchmark::State& state) {
    DQFontPicker picker;
    for (auto _ : state) {
        picker.setFontList({});
        benchmark::DoNotOptimize(picker.fontList().size());
    }
    state.counters["faces"] = double(picker.fontList().size());
}

// In a window already on screen, as the font sheet shows it: made, laid out and painted once.
void FontPickerToFirstFrame(benchmark::State& state) {
    QWidget window;
    window.resize(320, 480);
    window.show();
    QApplication::processEvents();
    Font font;
    font.name = "DejaVuSans";
    font.size = 16;
    for (auto _ : state) {
        DQFontPicker picker(&window);
        picker.setFont(font);
        picker.setColor(Color{0.2f, 0.4f, 0.6f, 1});
        picker.view()->resize(320, 216);
        picker.view()->show();
        picker.view()->repaint();
    }
}

void SwatchGridOf10000ToFirstFrame(benchmark::State& state) {
    QWidget window;
    window.resize(320, 480);
    window.show();
    QApplication::processEvents();
    std::vector<Color> colors;
    for (int i = 0; i < 10000; ++i)
        colors.push_back({float(i % 100) / 99, float(i / 100) / 99, 0.5f, 1});
    for (auto _ : state) {
        LJColorPickerView grid(&window);
        grid.setColors(colors);
        grid.resize(320, 480);
        grid.show();
        grid.repaint();
    }
}

BENCHMARK(FontListOf2000Faces)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(FontListOfInstalledFaces)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(FontPickerToFirstFrame)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(SwatchGridOf10000ToFirstFrame)->Unit(benchmark::kMillisecond)->MinTime(1.0);

} // namespace
