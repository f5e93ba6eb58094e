// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/encoding_commands.h"

#include "encoding/declared_charset.h"
#include "encoding/text_codec.h"
#include "text/utf8.h"

#include <algorithm>

namespace kevra {
namespace {

constexpr Offset declarationBytes = 4096;

std::string described(std::string_view character)
{
    const auto value = firstCharacter(character).value;
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string number;
    for (auto rest = value; rest != 0 || number.size() < 4; rest /= 16)
        number.insert(number.begin(), digits[rest % 16]);
    // Invisible characters are shown by their number only.
    const bool visible = value > 0xA0 && (value < 0x2000 || value > 0x206F) && value < 0xE000;
    return visible ? "\u201C" + std::string(character) + "\u201D (U+" + number + ")" : "U+" + number;
}

/// The declarations that name another encoding than `encoding`.
std::vector<Declaration> conflictingDeclarations(std::string_view text, TextKind kind, Encoding encoding)
{
    auto all = declarations(text, kind);
    std::erase_if(
        all, [&](const auto &d) { return d.agreesWith(encoding) || labelFor(d, encoding).empty(); });
    return all;
}

} // namespace

EncodingCommands::EncodingCommands(FileCommandPorts ports, OpenCommands &opening, Replace replace)
    : m_ports(ports)
    , m_opening(opening)
    , m_replace(std::move(replace))
    , m_watch(m_ports.document.surface)
{
}

TextKind EncodingCommands::kind() const
{
    return m_ports.document.file.form(m_ports.document.state.currentPath, m_ports.document.state.scriptTools)
        .kind;
}

std::string_view EncodingCommands::head() const
{
    return m_ports.document.surface.Text(
        {0, std::min(declarationBytes, m_ports.document.surface.TextLength())});
}

TextFormat EncodingCommands::target() const
{
    return formatToWrite(head(),
        m_ports.document.file.form(m_ports.document.state.currentPath, m_ports.document.state.scriptTools));
}

TextFormat EncodingCommands::afterSave(const TextFormat &target, bool fits) const
{
    return fits ? target : widerFormat(target, kind());
}

void EncodingCommands::documentReplaced()
{
    m_watchedFormat.reset();
}

void EncodingCommands::watch(const TextFormat &format)
{
    // Text read from a file can be encoded as that file is; other text has to be checked.
    if (!m_watchedFormat && canReopen())
        m_watch.textRead(format);
    else if (m_watchedFormat != format)
        m_watch.restart(format);
    m_watchedFormat = format;
}

void EncodingCommands::textChanged(Offset position, Offset removed, Offset added)
{
    if (m_watchedFormat)
        m_watch.textChanged(position, removed, added);
}

EncodingStatus EncodingCommands::status()
{
    const auto format = target();
    watch(format);
    const auto misfit = m_watch.misfit();
    const auto written = afterSave(format, misfit.empty());
    EncodingStatus status{format, {}, {}};
    const auto declared = conflictingDeclarations(head(), kind(), written.encoding);
    if (!misfit.empty())
        status.notice = described(misfit) + " is not in " + std::string(characterSet(format.encoding).name)
            + ": saving makes the file " + encodingName(written);
    else if (!declared.empty())
        status.notice = "The text declares " + std::string(characterSet(declared.front().named).name);
    else if (format.rawBytes)
        status.notice = "Some bytes mean nothing in " + std::string(characterSet(format.encoding).name);
    if (!declared.empty())
        status.offer = "Declare " + std::string(characterSet(written.encoding).name);
    return status;
}

void EncodingCommands::reopenAs(Encoding encoding)
{
    const auto path = m_ports.document.state.currentPath;
    const bool changed = !m_ports.document.file.holds(m_ports.document.surface.Text());
    if (changed
        && !m_ports.messages.yes("Open the file again as " + std::string(characterSet(encoding).name)
            + "? What was changed since it was saved is lost."))
        return;
    if (!m_opening.reload(encoding))
        m_ports.messages.stop(path + " cannot be read.");
}

void EncodingCommands::saveAs(Encoding encoding)
{
    auto format = target();
    format.rawBytes = format.rawBytes && format.encoding == encoding;
    // UTF-16 and UTF-32 cannot be recognised without a mark.
    format.mark = unitSize(encoding) > 1 || (format.mark && encoding == Encoding::Utf8);
    format.encoding = encoding;
    requestFormat(format);
}

void EncodingCommands::setMark(bool on)
{
    auto format = target();
    if (format.encoding != Encoding::Utf8)
        return;
    format.mark = on;
    requestFormat(format);
}

void EncodingCommands::setLineEnds(LineEnds ends)
{
    auto format = m_ports.document.file.format();
    format.lineEnds = ends;
    m_ports.document.file.setFormat(format);
    m_ports.document.state.unsaved = true;
    m_ports.main.refreshDocumentStatus();
}

void EncodingCommands::requestFormat(const TextFormat &format)
{
    auto wanted = format;
    wanted.guessed = false;
    wanted.named = true;
    // The current declaration does not override this choice; one that is written later does.
    wanted.declared = declaredCharset(head(), kind());
    m_ports.document.file.setFormat(wanted);
    m_ports.document.state.unsaved = true;
    m_ports.main.refreshDocumentStatus();
}

void EncodingCommands::declareEncoding()
{
    const auto format = target();
    watch(format);
    const auto encoding = afterSave(format, m_watch.misfit().empty()).encoding;
    const auto text = head();
    auto changed = conflictingDeclarations(text, kind(), encoding);
    if (changed.empty())
        return;
    std::ranges::sort(changed, {}, [](const auto &d) { return d.label.start; });
    const TextRange range{changed.front().label.start, changed.back().label.end};
    std::string replacement;
    auto from = range.start;
    for (const auto &declaration : changed) {
        const auto between = static_cast<std::size_t>(declaration.label.start - from);
        replacement.append(text.substr(static_cast<std::size_t>(from), between));
        replacement += labelFor(declaration, encoding);
        from = declaration.label.end;
    }
    m_replace(range, replacement);
    m_ports.main.refreshDocumentStatus();
}

} // namespace kevra
