// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/open_commands.h"

#include "document/leave_text.h"
#include "text/flag_guard.h"
#include "text/paths.h"

#include <cstdint>
#include <cstdlib>
#include <new>
#include <utility>

namespace kevra {
namespace {

constexpr bool isColoured(TypeGroup group)
{
    return group == TypeGroup::WebPage || group == TypeGroup::Script;
}

/// Throws std::bad_alloc when a file of this size may not fit into memory. It is held as bytes, as text, and
/// in the control with a style per byte, which the control copies when it grows.
void requireMemory(std::int64_t fileSize)
{
    constexpr std::size_t times = 6;
    const auto size = static_cast<std::size_t>(fileSize);
    if (size > PTRDIFF_MAX / times)
        throw std::bad_alloc();
    void *volatile probe = std::malloc(times * size); // volatile, or the compiler removes it
    if (!probe && size > 0)
        throw std::bad_alloc();
    std::free(probe);
}

} // namespace

OpenCommands::OpenCommands(FileCommandPorts ports, SaveCommands &saving, DocumentColouring &colouring)
    : m_ports(ports)
    , m_saving(saving)
    , m_colouring(colouring)
{
}

void OpenCommands::openFromCommandLine(const std::string &commandLine)
{
    if (commandLine.empty() || !m_ports.files.fileExists(commandLine))
        return;
    m_ports.main.setInformation("");
    if (!fileType(commandLine))
        return refuse(commandLine);
    m_ports.document.state.currentPath = absolutePath(commandLine);
    loadAccepted(m_ports.document.state.currentPath);
}

void OpenCommands::openWithDialog()
{
    m_beforeOpening();
    const auto old = askAboutText();
    const auto path = m_ports.dialogs.openFile(
        {"Open a File", openFilters(), std::string(parentFolder(m_ports.document.state.currentPath))});
    if (path && !path->empty())
        openChosen(*path, old);
}

void OpenCommands::openDropped(const std::string &path)
{
    if (m_takesDropped(path))
        return;
    m_beforeOpening();
    if (!path.empty())
        openChosen(path, askAboutText());
}

void OpenCommands::openListed(const std::string &path)
{
    m_beforeOpening();
    if (!path.empty())
        openChosen(path, askAboutText(), Types::Any);
}

bool OpenCommands::loadAccepted(const std::string &path)
{
    return load(path, OldText::Keep) == Load::Done;
}

bool OpenCommands::reload(std::optional<Encoding> encoding)
{
    // An encoding that the user chose is kept when the file changes.
    const auto &format = m_ports.document.file.format();
    if (!encoding && format.named)
        encoding = format.encoding;
    return load(m_ports.document.file.path(), OldText::GiveUp, encoding) == Load::Done;
}

void OpenCommands::newFile()
{
    m_beforeOpening();
    std::ignore = startNew({}, askAboutText()); // the user chose to stay
}

void OpenCommands::startWithTemplate(const std::string &templatePath)
{
    m_beforeOpening();
    const auto bytes = m_ports.files.read(templatePath);
    if (!bytes)
        return m_ports.messages.stop("The template, " + templatePath + ", is missing or cannot be read.");
    const auto old = askAboutText();
    auto content = decodeFile(*bytes, TextKind::Page);
    content.format.lineEnds = LineEnds::None; // as in any new document
    if (!startNew(content, old))
        return;
    showTools(TypeGroup::WebPage);
    colour(TypeGroup::WebPage, paintOf(content.text, TypeGroup::WebPage));
    m_ports.document.state.unsaved = true;
}

OpenCommands::OldText OpenCommands::askAboutText()
{
    if (m_ports.document.surface.TextLength() == 0 || !m_ports.document.state.unsaved)
        return OldText::Keep;
    if (!m_ports.messages.yes("Save the current text?"))
        return OldText::GiveUp;
    m_saving.saveAs();
    return OldText::Keep;
}

void OpenCommands::openChosen(const std::string &path, OldText old, Types types)
{
    const auto before = std::exchange(m_ports.document.state.currentPath, path);
    m_ports.main.setInformation("");
    const FlagGuard busy(m_ports.document.state.busyLoadingOrSaving);
    if (types == Types::Accepted && !fileType(path))
        refuse(path);
    else if (load(path, old) == Load::OldTextStays)
        m_ports.document.state.currentPath = before;
}

void OpenCommands::refuse(std::string_view path)
{
    m_ports.messages.inform("KEVRA does not open " + std::string(extension(path)) + " type files.");
}

OpenCommands::Load OpenCommands::load(const std::string &path, OldText old, std::optional<Encoding> encoding)
{
    try {
        return loadWithinMemory(path, old, encoding);
    } catch (const std::bad_alloc &) {
        m_ports.messages.stop("There is not enough memory to open " + path + '.');
        return Load::OldTextStays;
    }
}

OpenCommands::Load OpenCommands::loadWithinMemory(
    const std::string &path, OldText old, std::optional<Encoding> encoding)
{
    if (const auto stamp = m_ports.files.stamp(path))
        requireMemory(stamp->size);
    auto file = m_ports.document.file.read(path, encoding);
    if (!file)
        return Load::Unreadable;
    if (!releaseText(old))
        return Load::OldTextStays;
    present(std::move(*file), textType(path).group);
    m_ports.document.state.currentExtension = upperAscii(extension(path));
    // An opened file counts as unsaved, so quitting straight away still asks.
    m_ports.document.state.unsaved = true;
    m_ports.main.setTitlePath(m_ports.document.state.currentPath);
    m_ports.main.refreshDocumentStatus();
    return Load::Done;
}

void OpenCommands::showRecovered(const RecoveryRecord &record)
{
    m_ports.document.state.currentPath.clear();
    m_ports.document.state.currentExtension = upperAscii(extension(record.path));
    DecodedFile decoded{decodeFile(record.bytes, record.format), record.format};
    const auto group = record.path.empty() ? groupOfNewWork(decoded.text) : textType(record.path).group;
    present({{}, {}, record.bytes, std::move(decoded)}, group);
    m_ports.main.setTitlePath(record.path);
}

TypeGroup OpenCommands::groupOfNewWork(std::string_view text) const
{
    const auto start = text.find_first_not_of(" \t\r\n");
    const bool markup = start != std::string_view::npos && text[start] == '<';
    return m_ports.document.state.scriptTools && !markup ? TypeGroup::Script : TypeGroup::WebPage;
}

void OpenCommands::present(OpenedFile &&file, TypeGroup group)
{
    // Runs in parallel with loading the text.
    auto paint = paintOf(file.decoded.text, group);
    setText(file.decoded.text);
    m_ports.document.file.take(std::move(file)); // except the text, which the paint refers to
    m_ports.main.redrawAndFocus();
    showTools(group);
    colour(group, std::move(paint));
}

bool OpenCommands::releaseText(OldText old)
{
    if (old == OldText::Keep)
        return mayLeaveText(m_ports.document.keeper, m_ports.messages, [this] { return m_saving.saveAs(); });
    m_ports.document.keeper.textGivenUp();
    return true;
}

void OpenCommands::setText(std::string_view text)
{
    const FlagGuard busy(m_ports.document.state.busyLoadingOrSaving);
    const FlagGuard programmatic(m_ports.document.state.programmaticChange);
    m_ports.document.surface.LoadText(text);
}

bool OpenCommands::startNew(const DecodedFile &content, OldText old)
{
    if (!releaseText(old))
        return false;
    setText(content.text);
    m_ports.document.file.startNew(content.format);
    m_ports.document.state.currentPath.clear();
    m_ports.document.state.currentExtension.clear();
    m_ports.document.state.colourApplies = true;
    m_ports.document.state.unsaved = false;
    m_ports.main.setInformation("");
    m_ports.main.setTitlePath("");
    m_ports.main.redrawAndFocus();
    m_ports.main.refreshDocumentStatus();
    return true;
}

void OpenCommands::showTools(TypeGroup group)
{
    auto &state = m_ports.document.state;
    const bool script = group == TypeGroup::Script || group == TypeGroup::ScriptLike;
    if (group == TypeGroup::WebPage && state.scriptTools)
        m_ports.tools.showWebTools();
    if (script && !state.scriptTools)
        m_ports.tools.showScriptTools();
    if (!state.scriptTools || group == TypeGroup::WebPage)
        return;
    state.lineDebugOn = group == TypeGroup::Script && state.options.lineDebug;
    m_ports.tools.showOption(Option::LineDebug, state.lineDebugOn);
}

PendingPaint OpenCommands::paintOf(std::string_view text, TypeGroup group) const
{
    if (!m_ports.document.state.options.colourCoding || !isColoured(group))
        return {};
    return group == TypeGroup::WebPage ? m_colouring.tagsOf(text) : m_colouring.scriptOf(text);
}

void OpenCommands::colour(TypeGroup group, PendingPaint paint)
{
    auto &state = m_ports.document.state;
    if (!state.options.colourCoding)
        return;
    state.colourApplies = isColoured(group);
    if (!state.colourApplies)
        return;
    const BusySurface busy(m_ports.document.surface);
    try {
        if (group == TypeGroup::WebPage)
            m_colouring.colourTags(std::move(paint));
        else
            m_colouring.ColourText(std::move(paint));
    } catch (const std::bad_alloc &) {
        m_ports.main.showNote("Not colored: there is not enough memory.");
    }
}

} // namespace kevra
