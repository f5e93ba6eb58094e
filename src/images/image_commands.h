// SPDX-License-Identifier: GPL-3.0-or-later
// The commands to view a picture, to sample a colour in it, and to copy tags for pictures. Tags go to the
// clipboard; the document is not changed.
#pragma once

#include "desktop/clipboard.h"
#include "desktop/file_dialogs.h"
#include "desktop/main_view.h"
#include "desktop/messages.h"
#include "editor/document_state.h"
#include "images/viewer_rules.h"
#include "storage/file_store.h"

#include <optional>
#include <string>

namespace kevra {

/// The size of a picture file; nothing if it is not a picture or is too large.
class PictureSizes {
public:
    virtual ~PictureSizes() = default;
    [[nodiscard]] virtual std::optional<PictureSize> sizeOf(const std::string &path) const = 0;
};

/// The window `fbitmap`.
class PictureViewer {
public:
    virtual ~PictureViewer() = default;
    virtual void hideFindDialog() = 0;
    /// Loads the picture at its natural size; nothing when it cannot be decoded.
    virtual std::optional<PictureSize> load(const std::string &path) = 0;
    virtual void emptyPicture() = 0;
    /// Sized and captioned for the picture, not modal.
    virtual void showViewer(PictureSize size) = 0;
    [[nodiscard]] virtual bool viewerIsVisible() const = 0;
    virtual void raiseViewer() = 0; ///< above the program's other windows
    virtual void hideViewer() = 0; ///< and lower it below the other windows
    /// At a position in the picture's own pixels.
    [[nodiscard]] virtual std::optional<Colour> pixelColour(int x, int y) const = 0;
};

/// The panel `fr1`.
class PicturePanel {
public:
    virtual ~PicturePanel() = default;
    virtual void showPanel(bool on) = 0;
    virtual void enableTag(bool on) = 0; ///< `bspec`
    virtual void showSizeAndPath(const std::string &size, const std::string &path) = 0;
    virtual void showSample(Colour colour, const std::string &code) = 0;
    [[nodiscard]] virtual std::string sampleCode() const = 0; ///< `thex`
};

struct ImagePorts {
    EditedDocument document;
    MainView &main;
    const FileReader &files;
    FileDialogs &dialogs;
    Messages &messages;
    Clipboard &clipboard;
    PictureSizes &sizes;
    PictureViewer &viewer;
    PicturePanel &panel;
};

class ImageCommands {
public:
    explicit ImageCommands(ImagePorts ports)
        : m_ports(ports)
    {
    }

    void ViewImage();
    void SampleImageColour(int x, int y);
    void CloseImageViewer();
    void CopyViewedImageTag();
    void CopySampledColour();
    void CopyImageTag();
    void CopyLinkedImageTag();
    void CopyBodyBackgroundTag();
    /// Puts the tag of a dropped picture on the clipboard; false if it is not a picture for web pages.
    bool takeDropped(const std::string &path);

private:
    using TagFunction = std::string (*)(std::string_view name, PictureSize size);

    void view(const std::string &path);
    void copyTag(TagFunction tagFor);
    void copyText(const std::string &text);
    /// The dialog starts in the folder of the document.
    [[nodiscard]] std::optional<std::string> choose(const FileFilter &filter);
    [[nodiscard]] std::optional<std::string> chooseWebImage();

    ImagePorts m_ports;
    std::string m_name; ///< of the viewed picture's file, without its folder
    PictureSize m_size; ///< of the viewed picture
};

} // namespace kevra
