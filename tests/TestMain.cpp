#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Every transition lands at once: no test waits for an animation in real time.
    if (!qEnvironmentVariableIsSet("POMWICK_ANIMATION_SCALE"))
        qputenv("POMWICK_ANIMATION_SCALE", "0");
    QApplication app(argc, argv);
    // Qt installs the environment's locale; numbers in files are always read and written in "C".
    std::setlocale(LC_NUMERIC, "C");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
