// Entry of the core test program: a GUI application object (offscreen) so that core code that
// touches the clipboard, images or the event loop can run, with every emulator's launch adapter.
#include "adapters/Adapters.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    tv::RegisterAdapters();
    return RUN_ALL_TESTS();
}
