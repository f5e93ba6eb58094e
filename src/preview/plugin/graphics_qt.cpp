// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/plugin/graphics_qt.h"

#include <QtGui/QOffscreenSurface>
#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtQuick/QQuickWindow>

#include <algorithm>
#include <array>

namespace kevra {

namespace {

/// Parts of the names that Mesa and others give to their emulations.
constexpr std::array emulations{"llvmpipe", "softpipe", "swrast", "Software Rasterizer", "SwiftShader"};

bool isEmulated()
{
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface))
        return true;
    const QByteArray name(reinterpret_cast<const char *>(context.functions()->glGetString(GL_RENDERER)));
    context.doneCurrent();
    return std::ranges::any_of(emulations, [&](const char *part) { return name.contains(part); });
}

} // namespace

void avoidEmulatedGraphics()
{
    static const bool emulated = isEmulated();
    if (emulated && QQuickWindow::graphicsApi() != QSGRendererInterface::Software)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace kevra
