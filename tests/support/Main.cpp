#include <QGuiApplication>

#include <gtest/gtest.h>

// One main for every test program: fonts and painters need a GUI application, and the offscreen
// platform gives one without a display.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
