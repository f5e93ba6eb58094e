// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/external_program.h"

#include "editor/words.h"
#include "files/paths.h"
#include "settings/setting_access.h"

namespace kevra {
namespace {

constexpr std::string_view noProgram = "none";
constexpr std::string_view defaultMenuText = "EXE";
constexpr Offset longestMenuText = 8;

} // namespace

std::string programMenuCaption(std::string_view text)
{
    std::string caption = "&";
    for (const char c : text)
        caption.append(c == '&' ? 2 : 1, c);
    return caption;
}

bool ExternalProgram::isProgram(const std::string &path) const
{
    const auto type = extension(path);
    return equalIgnoringCase(type, "exe") || (type.empty() && m.processes.runsWithoutExtension(path));
}

void ExternalProgram::RunExternalProgram()
{
    if (equalIgnoringCase(m.state.programPath, noProgram))
        return m.messages.inform("There is no program set to run. Go to Options > Settings to choose one.");
    if (!m.processes.start(m.state.programPath))
        m.messages.inform("Failure opening the specified program. Check to make sure it hasn't been moved.");
}

void ExternalProgram::SetExternalProgram(const std::string &path)
{
    if (path.empty())
        return;
    if (!m.files.fileExists(path))
        return m.messages.inform("The file doesn't exist or the path is wrong.");
    if (!isProgram(path))
        return m.messages.inform("That file is not an executable program.");
    writeSetting(m.settings, keys::programPath, path);
    m.state.programPath = path;
}

void ExternalProgram::RemoveExternalProgram()
{
    writeSetting(m.settings, keys::programPath, noProgram);
    writeSetting(m.settings, keys::programMenu, defaultMenuText);
    m.state.programPath = noProgram;
    m.state.programMenuText = defaultMenuText;
    m.tools.showProgramMenu(defaultMenuText);
}

void ExternalProgram::SetExternalMenuText(const std::string &text)
{
    if (text.empty())
        return;
    if (characterCount(text) > longestMenuText)
        return m.messages.inform("Maximum 8 letters.");
    writeSetting(m.settings, keys::programMenu, text);
    m.state.programMenuText = text;
    m.tools.showProgramMenu(text);
}

} // namespace kevra
