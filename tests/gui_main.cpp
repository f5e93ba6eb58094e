// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the window tests in one application, offscreen, with folders of their own for settings and state.
#include <QtWidgets/QtWidgets>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qputenv(name, home.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    // The web engine wants this said before the application exists, though it may never be loaded.
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
