// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/colour_finder_commands.h"

#include "images/colour_code.h"
#include "text/words.h"

namespace kevra {

void ColourFinderCommands::ChooseColour()
{
    const auto shown = m_view.shownColour();
    TakeChosenColour(m_dialog.choose(shown).value_or(shown));
}

void ColourFinderCommands::ShowTypedColour()
{
    const auto text = m_view.typedCode();
    if (text.empty())
        return;
    if (characterCount(text) != static_cast<Offset>(hexDigits))
        return m_messages.inform("The hex code must be 6 characters.");
    const auto colour = colourOfHex(text);
    if (!colour)
        return m_messages.inform("Error in hex code. All characters must be 0 thru 9 or A thru F.");
    m_view.showColour(*colour, "\"#" + text + "\"");
    TakeChosenColour(m_dialog.choose(*colour).value_or(*colour));
}

void ColourFinderCommands::TakeChosenColour(Colour colour)
{
    // Choosing black counts as choosing nothing; black can only be typed.
    if (colour == colours::black)
        return;
    m_view.showColour(colour, "\"" + ColourToHtml(colour) + "\"");
    m_surface.SetFocus();
}

void ColourFinderCommands::CopyColourCode()
{
    m_clipboard.clear();
    m_clipboard.setText(m_view.shownCode());
    m_surface.SetFocus();
}

void ColourFinderCommands::HideColourFinder()
{
    m_view.showPanel(false);
    m_surface.SetFocus(); // not to the next button, where what is typed would be lost
}

} // namespace kevra
