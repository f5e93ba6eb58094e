// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_commands.h"

#include "files/paths.h"
#include "settings/fonts.h"
#include "settings/setting_access.h"

#include <algorithm>
#include <charconv>

namespace kevra {
namespace {

const YesNoGroup &groupOf(Option option)
{
    return *std::ranges::find(yesNoGroups, option, &YesNoGroup::option);
}

int wholeMinutes(std::string_view text)
{
    int minutes = 0;
    std::from_chars(text.data(), text.data() + text.size(), minutes);
    return std::max(minutes, 0);
}

} // namespace

void SettingsCommands::setOption(Option option, bool on)
{
    const auto &group = groupOf(option);
    if (option == Option::Autosave && on && refuseAutosave())
        return;
    writeSetting(m.store, group.key, on ? "yes" : "no");
    if (group.flag)
        m.document.*group.flag = on;
    m.options.*group.lampOn = on;
    if (group.show)
        (m.views.tools().*group.show)(on);

    if (option == Option::Autosave)
        runAutosave(on);
    else if (option == Option::LineDebug)
        m.document.lineDebugPreferred = on;
    else if (option == Option::ColourCoding)
        switchColours(on);
}

bool SettingsCommands::refuseAutosave()
{
    if (m.application.autosaveMinutes > 0)
        return false;
    m.messages.inform(
        "The time interval for Autosave must be set above zero before default Autosave can be set.");
    return true;
}

void SettingsCommands::runAutosave(bool on)
{
    m.application.autosaveOn = on;
    if (on)
        m.views.autosaveTimer().start(m.application.autosaveMinutes);
    else
        m.views.autosaveTimer().stop();
    m.views.tools().showAutosave(on);
}

void SettingsCommands::toggleAutosave()
{
    const bool on = !m.application.autosaveOn;
    if (!on || !refuseAutosave())
        runAutosave(on);
}

void SettingsCommands::toggleFsoMenu()
{
    setOption(Option::FsoMenu, !m.document.fsoMenu);
}

void SettingsCommands::switchColours(bool on)
{
    if (m.text.Length() == 0)
        return;
    if (on)
        colourDocument();
    else
        m.effects.removeColours();
}

void SettingsCommands::colourDocument()
{
    const BusySurface busy(m.text);
    m.effects.colourForTools();
}

void SettingsCommands::setTempFolder(const std::string &folder)
{
    if (folder.empty())
        return;
    const std::string path(withoutTrailingSeparator(folder));
    if (!m.files.folderExists(path))
        return m.messages.stop("The path is wrong. There's no such folder.");
    writeSetting(m.store, keys::tempFolder, path);
    m.application.tempFolder = path;
}

void SettingsCommands::setInterval(const std::string &minutes)
{
    writeSetting(m.store, keys::autosaveMinutes, minutes);
    m.application.autosaveMinutes = m.options.autosaveMinutes = wholeMinutes(minutes);
    // The running timer takes the new period; without one it has nothing to run by.
    if (m.application.autosaveOn)
        runAutosave(m.application.autosaveMinutes > 0);
}

void SettingsCommands::setFontFace(const std::string &face)
{
    writeSetting(m.store, keys::fontFace, face);
    m.document.fontFace = m.options.fontFace = face;
    m.views.fonts().selectFace(chosenFace(face).position);
    m.application.fontFaceChanged = true;
}

void SettingsCommands::setFontSize(const std::string &size)
{
    writeSetting(m.store, keys::fontSize, size);
    m.document.fontSize = m.options.fontSize = size;
    m.views.fonts().selectSize(chosenSize(size).position);
    m.application.fontFaceChanged = true;
}

void SettingsCommands::chooseColour()
{
    const auto colour = m.colourDialog.choose(shownColour());
    // Black counts as nothing chosen; the colour it was opened with is what a cancelled dialog answers.
    if (colour != colours::black && colour != shownColour())
        m_chosenColour = colour;
}

void SettingsCommands::applyColour()
{
    if (!m_chosenColour)
        return;
    m.document.codeColour = *m_chosenColour;
    m_chosenColour.reset();
    writeSetting(m.store, keys::codeColour, std::to_string(m.document.codeColour.value));
    if (m.document.takesColour() && m.text.Length() > 0)
        colourDocument();
}

Colour SettingsCommands::shownColour() const
{
    return m_chosenColour.value_or(m.document.codeColour);
}

std::optional<std::string> SettingsCommands::browseProgram()
{
    auto path = m.fileDialogs.openFile({"Program For EXE Menu", {{"Programs", "*.exe"}, {"All Files", "*"}}});
    return path && m.program.isProgram(*path) ? path : std::nullopt;
}

void SettingsCommands::dialogClosed()
{
    m_chosenColour.reset();
    if (!m.application.fontFaceChanged)
        return;
    m.application.fontFaceChanged = false;
    m.effects.reapplyFont();
}

} // namespace kevra
