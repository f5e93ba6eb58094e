// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_commands.h"

#include "settings/fonts.h"
#include "settings/keys.h"
#include "text/paths.h"

#include <algorithm>
#include <charconv>

namespace kevra {
namespace {

int wholeMinutes(std::string_view text)
{
    int minutes = 0;
    std::from_chars(text.data(), text.data() + text.size(), minutes);
    return std::max(minutes, 0);
}

} // namespace

void SettingsCommands::setOption(Option option, bool on)
{
    if (option == Option::Autosave && on && refuseAutosave())
        return;
    storeOption(m_parts.store, option, on);
    if (const auto flag = rowOf(option).flag)
        m_parts.editorOptions.*flag = on;
    m_parts.optionsShown.lamps[option] = on;
    m_parts.views.tools().showOption(option, on);

    if (option == Option::Autosave)
        runAutosave(on);
    else if (option == Option::LineDebug)
        m_parts.document.state.lineDebugOn = on;
    else if (option == Option::ColourCoding)
        switchColours(on);
}

bool SettingsCommands::refuseAutosave()
{
    if (m_parts.application.autosaveMinutes > 0)
        return false;
    m_parts.messages.inform(
        "The time interval for Autosave must be set above zero before default Autosave can be set.");
    return true;
}

void SettingsCommands::runAutosave(bool on)
{
    m_parts.application.autosaveOn = on;
    if (on)
        m_parts.views.autosaveTimer().start(m_parts.application.autosaveMinutes);
    else
        m_parts.views.autosaveTimer().stop();
    m_parts.views.tools().showOption(Option::Autosave, on);
}

void SettingsCommands::toggleAutosave()
{
    const bool on = !m_parts.application.autosaveOn;
    if (!on || !refuseAutosave())
        runAutosave(on);
}

void SettingsCommands::toggleFsoMenu()
{
    setOption(Option::FsoMenu, !m_parts.editorOptions.fsoMenu);
}

void SettingsCommands::switchColours(bool on)
{
    if (m_parts.document.surface.TextLength() == 0)
        return;
    if (on)
        colourDocument();
    else
        m_parts.effects.removeColours();
}

void SettingsCommands::colourDocument()
{
    const BusySurface busy(m_parts.document.surface);
    m_parts.effects.colourForTools();
}

void SettingsCommands::setTempFolder(const std::string &folder)
{
    if (folder.empty())
        return;
    const std::string path(withoutTrailingSeparator(folder));
    if (!m_parts.files.folderExists(path))
        return m_parts.messages.stop("The path is wrong. There's no such folder.");
    writeSetting(m_parts.store, keys::tempFolder, path);
    m_parts.application.tempFolder = path;
}

void SettingsCommands::setInterval(const std::string &minutes)
{
    writeSetting(m_parts.store, keys::autosaveMinutes, minutes);
    m_parts.application.autosaveMinutes = m_parts.optionsShown.autosaveMinutes = wholeMinutes(minutes);
    // A running timer takes the new interval; zero stops it.
    if (m_parts.application.autosaveOn)
        runAutosave(m_parts.application.autosaveMinutes > 0);
}

void SettingsCommands::setFontFace(const std::string &face)
{
    writeSetting(m_parts.store, keys::fontFace, face);
    m_parts.optionsShown.fontFace = face;
    m_parts.views.fonts().selectFace(chosenFace(face).position);
    m_parts.application.fontFaceChanged = true;
}

void SettingsCommands::setFontSize(const std::string &size)
{
    writeSetting(m_parts.store, keys::fontSize, size);
    m_parts.optionsShown.fontSize = size;
    m_parts.views.fonts().selectSize(chosenSize(size).position);
    m_parts.application.fontFaceChanged = true;
}

void SettingsCommands::chooseCodeColour()
{
    const auto colour = m_parts.colourDialog.choose(shownColour());
    // Black counts as nothing chosen.
    if (colour && *colour != colours::black)
        m_chosenColour = colour;
}

void SettingsCommands::applyColour()
{
    if (!m_chosenColour)
        return;
    m_parts.editorOptions.codeColour = *m_chosenColour;
    m_chosenColour.reset();
    writeSetting(m_parts.store, keys::codeColour, std::to_string(m_parts.editorOptions.codeColour.value));
    if (m_parts.document.state.takesColour() && m_parts.document.surface.TextLength() > 0)
        colourDocument();
}

Colour SettingsCommands::shownColour() const
{
    return m_chosenColour.value_or(m_parts.editorOptions.codeColour);
}

std::optional<std::string> SettingsCommands::browseProgram()
{
    auto path = m_parts.fileDialogs.openFile(
        {"Program For EXE Menu", {{"Programs", m_parts.program.namePattern()}, {"All Files", "*"}}});
    return path && m_parts.program.isProgram(*path) ? path : std::nullopt;
}

void SettingsCommands::dialogClosed()
{
    m_chosenColour.reset();
    if (!m_parts.application.fontFaceChanged)
        return;
    m_parts.application.fontFaceChanged = false;
    m_parts.effects.reapplyFont();
}

} // namespace kevra
