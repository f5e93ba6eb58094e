// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/svg_icon_qt.h"

#include "desktop/text_qt.h"

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtSvg/QSvgRenderer>

// Resources of a static library must be initialised explicitly, outside any namespace.
static void registerIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace kevra {

namespace {

/// The placeholder in the drawings for the theme's text colour.
constexpr const char *inkInDrawing = "#123456";
constexpr qreal disabledOpacity = 0.35;

class SvgIconEngine : public QIconEngine {
public:
    explicit SvgIconEngine(QByteArray drawing)
        : m_drawing(std::move(drawing))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        const auto ink = QGuiApplication::palette().color(QPalette::Active, role).name().toLatin1();
        QSvgRenderer renderer(QByteArray(m_drawing).replace(inkInDrawing, ink));
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(disabledOpacity);
        renderer.render(painter, QRectF(rect));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine *clone() const override { return new SvgIconEngine(m_drawing); }

private:
    QByteArray m_drawing;
};

} // namespace

QIcon svgIcon(std::string_view name)
{
    registerIcons();
    QFile file(":/icons/" + textOf(name) + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new SvgIconEngine(file.readAll()));
}

} // namespace kevra
