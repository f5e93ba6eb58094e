// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/external_program.h"

#include "text/paths.h"
#include "text/words.h"
#include "tools/program_keys.h"

namespace kevra {
namespace {

constexpr std::string_view noProgram = "none";
constexpr std::string_view defaultMenuText = "EXE";
constexpr Offset maxMenuTextLength = 8;

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
    return equalIgnoringCase(type, "exe") || (type.empty() && m_parts.processes.runsWithoutExtension(path));
}

void ExternalProgram::RunExternalProgram()
{
    if (equalIgnoringCase(m_parts.application.programPath, noProgram))
        return m_parts.messages.inform(
            "There is no program set to run. Go to Options > Settings to choose one.");
    if (!m_parts.processes.start(m_parts.application.programPath))
        m_parts.messages.inform(
            "Failure opening the specified program. Check to make sure it hasn't been moved.");
}

void ExternalProgram::SetExternalProgram(const std::string &path)
{
    if (path.empty())
        return;
    if (!m_parts.files.fileExists(path))
        return m_parts.messages.inform("The file doesn't exist or the path is wrong.");
    if (!isProgram(path))
        return m_parts.messages.inform("That file is not an executable program.");
    writeSetting(m_parts.settings, keys::programPath, path);
    m_parts.application.programPath = path;
}

void ExternalProgram::RemoveExternalProgram()
{
    writeSetting(m_parts.settings, keys::programPath, noProgram);
    writeSetting(m_parts.settings, keys::programMenu, defaultMenuText);
    m_parts.application.programPath = noProgram;
    m_parts.application.programMenuText = defaultMenuText;
    m_parts.tools.showProgramMenu(defaultMenuText);
}

void ExternalProgram::SetExternalMenuText(const std::string &text)
{
    if (text.empty())
        return;
    if (characterCount(text) > maxMenuTextLength)
        return m_parts.messages.inform("Maximum 8 letters.");
    writeSetting(m_parts.settings, keys::programMenu, text);
    m_parts.application.programMenuText = text;
    m_parts.tools.showProgramMenu(text);
}

} // namespace kevra
