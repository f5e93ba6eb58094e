// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/find_commands.h"

#include "colour/recolouring.h"
#include "find/replacement.h"

namespace kevra {
namespace {

class Hourglass {
public:
    explicit Hourglass(EditorSurface &document)
        : m_document(document)
    {
        m_document.SetMousePointer(MousePointer::Hourglass);
    }
    ~Hourglass() { m_document.SetMousePointer(MousePointer::Default); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    EditorSurface &m_document;
};

} // namespace

Offset FindCommands::select(const FindRequest &request, Offset start)
{
    const auto hit = m_document.Find(request.text, {start, m_document.Length()}, request.options());
    if (!hit)
        return -1;
    m_document.Select({*hit, *hit + std::ssize(request.text)});
    m_view.hitSelected();
    return *hit;
}

void FindCommands::findFirst()
{
    const auto request = m_view.entered();
    if (!hasText(request, m_messages))
        return;
    const auto hit = select(request, 0);
    if (hit == -1)
        return m_messages.inform("No occurences.");
    m_nextStart = hit + 1;
}

void FindCommands::findNext()
{
    const auto request = m_view.entered();
    if (!hasText(request, m_messages))
        return;
    m_lastHit = select(request, m_nextStart);
    // After a miss this is the top, where the next search starts again.
    m_nextStart = m_lastHit + 1;
    if (m_lastHit == -1)
        m_messages.inform("No more occurences.");
}

void FindCommands::replaceOne()
{
    const auto request = m_view.entered();
    const auto selection = m_document.Selection();
    if (selection.empty())
        return m_messages.stop("There's nothing found yet to replace.");
    if (request.replacement.empty() && !m_messages.yes("No text entered. Delete \"" + request.text + "\"?"))
        return;
    replace(selection, request.replacement);
}

void FindCommands::replaceAll()
{
    const auto request = m_view.entered();
    if (!canReplaceAll(request, m_messages) || !wantsReplaceAll(request, m_messages))
        return;
    const Hourglass hourglass(m_document);
    m_nextStart = 0;
    m_lastHit = 0;
    const auto result = replacedAll(m_document.Text(), request.text, request.replacement, request.options());
    const auto *replaced = std::get_if<Replacement>(&result);
    if (!replaced)
        return refuseEndless(m_messages);
    if (replaced->count > 0)
        replace(replaced->range, replaced->text);
    m_view.showReplaced(replaced->count);
}

void FindCommands::replace(TextRange range, std::string_view text)
{
    m_document.Replace(range, text);
    m_state.unsaved = true;
    const auto caret = m_document.Selection();
    recolourInserted(m_document, {range.start, range.start + std::ssize(text)}, m_state);
    m_document.Select(caret);
}

void FindCommands::countOccurrences()
{
    const auto request = m_view.entered();
    if (!hasText(request, m_messages))
        return;
    const Hourglass hourglass(m_document);
    m_view.showCount(kevra::countOccurrences(m_document.Text(), request.text, request.letters));
}

} // namespace kevra
