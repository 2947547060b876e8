// The main of every benchmark: an offscreen application (enough for widgets, images and the
// bus), numbers read and written in the C locale as the programs do, then the registered
// benchmarks.
#include <QApplication>
#include <benchmark/benchmark.h>
#include <clocale>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
