// SPDX-License-Identifier: GPL-3.0-or-later
// The colour finder: a colour from the dialog or from a typed code, shown and copied as HTML writes it.
#pragma once

#include "desktop/clipboard.h"
#include "desktop/file_dialogs.h"
#include "desktop/messages.h"
#include "editor/surface.h"

#include <string>

namespace kevra {

/// The panel `frcol`.
class ColourFinderView {
public:
    virtual ~ColourFinderView() = default;
    virtual void showPanel(bool on) = 0;
    [[nodiscard]] virtual std::string typedCode() const = 0; ///< `tenter`
    [[nodiscard]] virtual Colour shownColour() const = 0; ///< of `pcol`; black when none
    virtual void showColour(Colour colour, const std::string &code) = 0; ///< `pcol` and `thex2`
    [[nodiscard]] virtual std::string shownCode() const = 0; ///< `thex2`
};

class ColourFinderCommands {
public:
    ColourFinderCommands(EditorSurface &surface, ColourDialog &dialog, Messages &messages,
        Clipboard &clipboard, ColourFinderView &view)
        : m_surface(surface)
        , m_dialog(dialog)
        , m_messages(messages)
        , m_clipboard(clipboard)
        , m_view(view)
    {
    }

    void ShowColourFinder() { m_view.showPanel(true); }
    void HideColourFinder();
    void ChooseColour();
    void ShowTypedColour();
    void CopyColourCode();

private:
    void TakeChosenColour(Colour colour);

    EditorSurface &m_surface;
    ColourDialog &m_dialog;
    Messages &m_messages;
    Clipboard &m_clipboard;
    ColourFinderView &m_view;
};

} // namespace kevra
