// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/image_commands.h"

#include "images/colour_code.h"
#include "images/image_tags.h"
#include "text/paths.h"

namespace kevra {

void ImageCommands::ViewImage()
{
    m_ports.viewer.hideFindDialog();
    const auto path = choose({"Image Files(*.gif;*.jpg;*.bmp;*.ico)", "*.gif;*.jpg;*.bmp;*.ico"});
    if (path)
        view(*path);
    if (m_ports.viewer.viewerIsVisible())
        return m_ports.viewer.raiseViewer();
    m_ports.panel.showPanel(false);
    m_ports.viewer.hideViewer();
    m_ports.main.setInformation("");
}

void ImageCommands::view(const std::string &path)
{
    auto &viewer = m_ports.viewer;
    const auto type = imageType(path);
    if (type == ImageType::NotAccepted)
        return;
    // Loaded first: the tag and the panel must describe the picture that is shown.
    const auto stamp = m_ports.files.stamp(path);
    const auto size = stamp ? viewer.load(path) : std::nullopt;
    if (!size)
        return;
    m_name = fileName(path);
    m_size = *size;
    m_ports.panel.enableTag(type == ImageType::Web);
    m_ports.panel.showSizeAndPath(std::to_string(size->width) + " x " + std::to_string(size->height), path);
    viewer.showViewer(*size);
    m_ports.panel.showPanel(true);
    m_ports.main.setInformation(pictureInformation(m_name, stamp->size));
}

void ImageCommands::SampleImageColour(int x, int y)
{
    if (const auto colour = m_ports.viewer.pixelColour(x, y))
        m_ports.panel.showSample(*colour, ColourToHtml(*colour));
}

void ImageCommands::CloseImageViewer()
{
    m_ports.viewer.emptyPicture();
    m_ports.viewer.hideViewer();
    m_ports.panel.showPanel(false);
    m_ports.main.setInformation("");
    m_ports.document.surface.SetFocus();
}

void ImageCommands::copyText(const std::string &text)
{
    m_ports.clipboard.clear();
    m_ports.clipboard.setText(text);
    m_ports.document.surface.SetFocus(); // where it is pasted next
}

void ImageCommands::CopyViewedImageTag()
{
    copyText(imageTag(m_name, m_size));
}

void ImageCommands::CopySampledColour()
{
    copyText("\"" + m_ports.panel.sampleCode() + "\"");
}

std::optional<std::string> ImageCommands::choose(const FileFilter &filter)
{
    return m_ports.dialogs.openFile(
        {"", {filter}, std::string(parentFolder(m_ports.document.state.currentPath))});
}

std::optional<std::string> ImageCommands::chooseWebImage()
{
    return choose({"Web Files(*.gif;*.jpg;)", "*.gif;*.jpg;"});
}

void ImageCommands::copyTag(TagFunction tagFor)
{
    const auto path = chooseWebImage();
    if (!path)
        return;
    if (imageType(*path) != ImageType::Web) {
        m_ports.messages.show({"As this function auto-inserts code for webpage images, it only accepts .jpg "
                               "and .gif files.",
            Icon::Information, Buttons::Ok, "Wrong file type"});
        return;
    }
    if (const auto size = m_ports.sizes.sizeOf(*path))
        copyText(tagFor(fileName(*path), *size));
}

void ImageCommands::CopyImageTag()
{
    copyTag([](std::string_view name, PictureSize size) { return imageTag(name, size); });
}

void ImageCommands::CopyLinkedImageTag()
{
    copyTag(linkedImageTag);
}

void ImageCommands::CopyBodyBackgroundTag()
{
    if (const auto path = chooseWebImage())
        copyText(bodyBackgroundTag(fileName(*path)));
}

bool ImageCommands::takeDropped(const std::string &path)
{
    const auto size = imageType(path) == ImageType::Web ? m_ports.sizes.sizeOf(path) : std::nullopt;
    if (!size)
        return false;
    copyText(imageTag(fileName(path), *size));
    m_ports.main.setInformation("The image's tag is on the clipboard.");
    return true;
}

} // namespace kevra
