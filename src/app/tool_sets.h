// SPDX-License-Identifier: GPL-3.0-or-later
// The two tool sets, and the states that menus and toolbar show. What belongs to which set is one table.
#pragma once

#include "desktop/main_view.h"
#include "editor/document_state.h"
#include "editor/surface.h"
#include "settings/settings_persistence.h"

#include <functional>
#include <string_view>

namespace kevra {

/// The parts of the main window by name.
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
    ToolSets(EditedDocument document, EditorSurface &lineNumbers, ShellView &view, FontBoxes &fonts);

    void showScriptTools() override;
    void showWebTools() override;
    void hideTools();
    /// Always shows the first panel of the pair.
    void showTools();

    /// For this document and those opened later.
    void setLineDebugging(bool on);
    void showOption(Option option, bool on) override;
    void showProgramMenu(std::string_view text) override;

    /// Applies the face and size in the boxes to the document and the line numbers.
    void reapplyFont();
    /// Called after the document's font has changed, to restore its colours.
    void onFontChanged(std::function<void()> follow) { m_fontChanged = std::move(follow); }
    /// A face or size was chosen in a box.
    void fontChosen();

private:
    void show(bool scriptTools);
    void setDocumentFont();
    [[nodiscard]] EditorFont chosenFont() const;

    EditorSurface &m_surface;
    EditorSurface &m_lineNumbers;
    DocumentState &m_state;
    ShellView &m_view;
    FontBoxes &m_fonts;
    std::function<void()> m_fontChanged;
};

} // namespace kevra
