// SPDX-License-Identifier: GPL-3.0-or-later
// The two tool sets of the document and the states that menus and toolbar show. What belongs to which set
// is one table.
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "settings/stored_settings.h"

#include <functional>
#include <string_view>

namespace kevra {

/// The parts of the main window by their names.
class ShellView {
public:
    virtual ~ShellView() = default;
    virtual void setControlVisible(std::string_view control, bool visible) = 0;
    virtual void setItemVisible(std::string_view item, bool visible) = 0;
    virtual void setItemChecked(std::string_view item, bool checked) = 0;
    virtual void setItemCaption(std::string_view item, std::string_view caption) = 0;
    virtual void setButtonVisible(int number, bool visible) = 0; ///< toolbar, from 1
    virtual void setButtonImage(int number, int image) = 0;
};

class ToolSets : public ToolView {
public:
    ToolSets(EditorSurface &document, EditorSurface &lineNumbers, DocumentState &state, ShellView &view,
        FontBoxes &fonts);

    void showScriptTools() override;
    void showWebTools() override;
    void hideTools();
    /// Always the first panel of the pair, whichever was swapped in before.
    void showTools();

    /// For this document and those to come.
    void setLineDebugging(bool on);
    void showOption(Option option, bool on) override;
    void showProgramMenu(std::string_view text) override;

    /// The face and size in the boxes, on the document and the line numbers.
    void reapplyFont();
    /// What has to follow a change of the document's font, such as colours.
    void onFontChanged(std::function<void()> follow) { m_fontChanged = std::move(follow); }
    /// A face or size was chosen in a box.
    void fontChosen();

private:
    void show(bool scriptTools);
    void setDocumentFont();
    [[nodiscard]] EditorFont chosenFont() const;

    EditorSurface &m_document;
    EditorSurface &m_lineNumbers;
    DocumentState &m_state;
    ShellView &m_view;
    FontBoxes &m_fonts;
    std::function<void()> m_fontChanged;
};

} // namespace kevra
