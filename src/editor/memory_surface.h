// SPDX-License-Identifier: GPL-3.0-or-later
// EditorSurface in memory, for the command line and for tests.
#pragma once

#include "editor/surface.h"

namespace kevra {

class MemorySurface : public EditorSurface {
public:
    explicit MemorySurface(std::string_view text = {});

    [[nodiscard]] std::string_view Text() const override { return m_text; }
    [[nodiscard]] std::string_view Text(TextRange range) const override;
    [[nodiscard]] Offset TextLength() const override { return static_cast<Offset>(m_text.size()); }
    void LoadText(std::string_view text) override;
    void Replace(TextRange range, std::string_view text) override;
    [[nodiscard]] TextRange Selection() const override { return m_selection; }
    void Select(TextRange range) override;
    [[nodiscard]] Colour TypingColor() const override { return m_typing; }
    void SetTypingColor(Colour colour) override { m_typing = colour; }
    [[nodiscard]] Colour ColourAt(Offset position) const override;
    using EditorSurface::SetColours;
    void SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground) override;
    void SetPaint(Paint paint) override;
    [[nodiscard]] EditorFont Font() const override { return m_font; }
    void SetFont(const EditorFont &font) override { m_font = font; }
    [[nodiscard]] int RightMargin() const override { return m_rightMargin; }
    void SetRightMargin(int twips) override { m_rightMargin = twips; }
    void SetUnfinished(Offset position, bool on) override;
    [[nodiscard]] Offset NextUnfinished(TextRange range) const override;
    [[nodiscard]] Offset GetLineFromChar(Offset position) const override;
    [[nodiscard]] Offset FirstVisibleLine() const override { return m_firstVisibleLine; }
    void SetFirstVisibleLine(Offset line) override;
    void SetDisplay(bool on) override { m_displayed = on; }
    void SetMousePointer(MousePointer pointer) override { m_pointer = pointer; }
    void SetFocus() override { m_focused = true; }

    [[nodiscard]] bool isDisplayed() const { return m_displayed; }
    [[nodiscard]] MousePointer pointer() const { return m_pointer; }
    [[nodiscard]] bool hasFocus() const { return m_focused; }

private:
    [[nodiscard]] TextRange inside(TextRange range) const;

    std::string m_text;
    std::vector<Colour> m_colours; ///< one for each byte of the text
    std::vector<bool> m_unfinished; ///< by line
    TextRange m_selection;
    Colour m_typing = colours::black;
    EditorFont m_font{"Courier New", 10};
    int m_rightMargin = noWrapMargin;
    Offset m_firstVisibleLine = 0;
    MousePointer m_pointer = MousePointer::Default;
    bool m_displayed = true;
    bool m_focused = false;
};

} // namespace kevra
