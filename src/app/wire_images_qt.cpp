// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "images/colour_finder_panel.h"
#include "images/image_commands.h"
#include "images/image_panel.h"
#include "images/image_viewer_window.h"
#include "images/picture_decoder_qt.h"

#include <QtWidgets/QFrame>

#include <array>

namespace kevra {

namespace {

/// The viewer window and its panel in the main window.
class ImagesWiring : private PictureViewer, private PicturePanel {
public:
    ImagesWiring(Application &app, WindowDocument &shown)
        : m_app(app)
        , m_control(shown.control)
        , m_frame(app.mainWindow().frame("fr1"))
        , m_commands({shown.document, app.mainWindow(), app.files, app.fileDialogs, app.messages,
              app.clipboard, m_decoder, *this, *this})
        , m_panel(m_frame,
              {[this] { m_commands.CopySampledColour(); }, [this] { m_commands.CopyViewedImageTag(); }})
        , m_finder(app.mainWindow().frame("frcol"), m_control, app.colourDialog, app.messages, app.clipboard)
    {
    }

    [[nodiscard]] ImageCommands &commands() { return m_commands; }
    [[nodiscard]] ColourFinderCommands &finder() { return m_finder.commands(); }

    QWidget *makeViewer()
    {
        auto *viewer = new ImageViewerWindow(&m_app.mainWindow());
        QObject::connect(
            viewer, &ImageViewerWindow::closeRequested, viewer, [this] { m_commands.CloseImageViewer(); });
        QObject::connect(&viewer->picture(), &PictureView::clicked, viewer,
            [this](int x, int y) { m_commands.SampleImageColour(x, y); });
        shareShortcuts(m_app, *viewer, {"mfind", "msample"});
        return viewer;
    }

private:
    [[nodiscard]] ImageViewerWindow &viewer() const
    {
        return dynamic_cast<ImageViewerWindow &>(m_app.window(SecondaryWindow::ImageViewer));
    }
    void hideFindDialog() override
    {
        if (auto *dialog = m_app.visibleWindow(SecondaryWindow::Find)) {
            dialog->hide();
            dialog->lower();
        }
    }
    std::optional<PictureSize> load(const std::string &path) override
    {
        auto picture = m_decoder.decode(path);
        if (!picture)
            return std::nullopt;
        const PictureSize size{picture->width(), picture->height()};
        viewer().picture().setPicture(std::move(*picture));
        return size;
    }
    void emptyPicture() override { viewer().picture().setPicture({}); }
    void enableTag(bool on) override { m_panel.enableTag(on); }
    void showSizeAndPath(const std::string &size, const std::string &path) override
    {
        m_panel.showSizeAndPath(size, path);
    }
    void showViewer(PictureSize size) override
    {
        QRect room(m_control.mapToGlobal(QPoint()), m_control.size());
        room.setRight(m_app.mainWindow().geometry().right());
        viewer().showFor(size, room);
    }
    bool viewerIsVisible() const override
    {
        return m_app.visibleWindow(SecondaryWindow::ImageViewer) != nullptr;
    }
    void raiseViewer() override
    {
        viewer().raise();
        viewer().activateWindow();
    }
    void hideViewer() override
    {
        viewer().hide();
        viewer().lower();
    }
    void showPanel(bool on) override
    {
        m_frame.setVisible(on);
        if (on)
            m_frame.raise();
    }
    std::optional<Colour> pixelColour(int x, int y) const override
    {
        const auto &picture = viewer().picture().picture();
        if (!picture.valid(x, y))
            return std::nullopt;
        const auto pixel = picture.pixel(x, y);
        return Colour{static_cast<std::uint32_t>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16)};
    }
    void showSample(Colour colour, const std::string &code) override { m_panel.showSample(colour, code); }
    std::string sampleCode() const override { return m_panel.sampleCode(); }

    Application &m_app;
    EditorControl &m_control;
    QFrame &m_frame;
    PictureDecoderQt m_decoder;
    ImageCommands m_commands;
    ImagePanel m_panel;
    ColourFinderPanel m_finder;
};

struct ImageItem {
    const char *item;
    void (ImageCommands::*command)();
};

constexpr std::array imageItems{
    ImageItem{"msample", &ImageCommands::ViewImage},
    ImageItem{"bim", &ImageCommands::CopyImageTag},
    ImageItem{"bai", &ImageCommands::CopyLinkedImageTag},
    ImageItem{"bbi", &ImageCommands::CopyBodyBackgroundTag},
};

} // namespace

void wireImages(Application &app, WindowDocument &shown)
{
    auto &images = app.keep<ImagesWiring>(app, shown);
    app.makesWindow(SecondaryWindow::ImageViewer, [&images] { return images.makeViewer(); });
    for (const auto &row : imageItems)
        app.commands.bind(row.item, [&images, row] { (images.commands().*row.command)(); });
    app.commands.bind("mcolorfind", [&images] { images.finder().ShowColourFinder(); });
    app.takesDroppedFile = [&images](const std::string &path) { return images.commands().takeDropped(path); };
}

} // namespace kevra
