// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/engine_loader_qt.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QPluginLoader>
#include <QtGui/QOpenGLContext>

// Exported by Qt for its own modules, which create the shared context the same way when they come late.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);
Q_GUI_EXPORT QOpenGLContext *qt_gl_global_share_context();

namespace kevra {

namespace {

constexpr auto pluginFile = "libkevra_preview.so";

/// Beside the program, where it is built or carried about; else where it is installed.
QString pluginPath()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *folder : {"./", "../lib/kevra/plugins/"}) {
        if (auto path = program.filePath(QString(folder) + pluginFile); QFileInfo::exists(path))
            return path;
    }
    return program.filePath(pluginFile);
}

/// What AA_ShareOpenGLContexts has an application do when it starts. The web engine cannot do without it, and
/// it costs as much as the whole start of a program that may never show a page.
void shareGraphicsContexts()
{
    if (qt_gl_global_share_context())
        return;
    auto *context = new QOpenGLContext;
    context->setFormat(QSurfaceFormat::defaultFormat());
    context->create();
    qt_gl_set_global_share_context(context);
    // Runs after the engine's own routine, which is registered later and called first.
    qAddPostRoutine([] {
        delete qt_gl_global_share_context();
        qt_gl_set_global_share_context(nullptr);
    });
}

} // namespace

std::unique_ptr<BrowserEngine> makeEngine(QWidget *parent, const BrowserClient &client, EngineUse use)
{
    // The plugin stays loaded when its engines go: the web engine cannot be started twice.
    shareGraphicsContexts();
    const auto path = pluginPath();
    QPluginLoader loader(path);
    auto *plugin = qobject_cast<BrowserEnginePlugin *>(loader.instance());
    return plugin ? plugin->create(parent, client, use, QFileInfo(path).absolutePath()) : nullptr;
}

} // namespace kevra
