// The main of the benchmarks that measure widgets: an offscreen application, numbers read and
// written in the C locale as the programs do, then the registered benchmarks.
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
