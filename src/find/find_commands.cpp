// SPDX-License-Identifier: GPL-3.0-or-later
#include "find/find_commands.h"

#include "colour/recolouring.h"
#include "find/hit_finder.h"

namespace kevra {
namespace {

class Hourglass {
public:
    explicit Hourglass(EditorSurface &surface)
        : m_surface(surface)
    {
        m_surface.SetMousePointer(MousePointer::Hourglass);
    }
    ~Hourglass() { m_surface.SetMousePointer(MousePointer::Default); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    EditorSurface &m_surface;
};

} // namespace

std::optional<FindRequest> FindCommands::usableRequest()
{
    auto request = m_view.entered();
    if (!hasText(request, m_messages) || !isUsable(HitFinder(request), m_messages))
        return std::nullopt;
    return request;
}

void FindCommands::show(const FindRequest &request, TextRange hit)
{
    m_surface.Select(hit);
    m_view.hitSelected();
    m_lastHit = hit.start;
    m_reachedEnd = false;
    // Hits of plain text may overlap.
    m_nextStart = request.pattern == Pattern::Text ? hit.start + 1 : hit.end;
}

void FindCommands::findFirst()
{
    const auto request = usableRequest();
    if (!request)
        return;
    m_view.showWrapped({});
    const auto hit = HitFinder(*request).first(m_surface.Text(), 0);
    if (!hit)
        return m_messages.inform("No occurences.");
    show(*request, *hit);
}

void FindCommands::findNext()
{
    const auto request = usableRequest();
    if (!request)
        return;
    const bool wrapped = m_reachedEnd && m_nextStart == 0;
    if (const auto hit = HitFinder(*request).first(m_surface.Text(), m_nextStart)) {
        show(*request, *hit);
        return m_view.showWrapped(wrapped ? "The search continued from the top." : "");
    }
    // The next search starts again from the top.
    m_nextStart = 0;
    m_lastHit.reset();
    m_reachedEnd = true;
    m_view.showWrapped({});
    m_messages.inform("No more occurences.");
}

void FindCommands::findPrevious()
{
    const auto request = usableRequest();
    if (!request)
        return;
    const bool wrapped = m_reachedEnd && !m_lastHit;
    const auto text = m_surface.Text();
    if (const auto hit = HitFinder(*request).last(text, m_lastHit.value_or(std::ssize(text)))) {
        show(*request, *hit);
        return m_view.showWrapped(wrapped ? "The search continued from the end." : "");
    }
    m_lastHit.reset();
    m_nextStart = 0;
    m_reachedEnd = true;
    m_view.showWrapped({});
    m_messages.inform("No more occurences.");
}

bool FindCommands::replaceSelection(const FindRequest &request)
{
    const HitFinder finder(request);
    if (!isUsable(finder, m_messages))
        return false;
    if (request.replacement.empty() && !m_messages.yes("No text entered. Delete \"" + request.text + "\"?"))
        return false;
    const auto selection = m_surface.Selection();
    replaceRange(selection, finder.replacementOf(m_surface.Text(), selection));
    return true;
}

void FindCommands::replaceOne()
{
    if (m_surface.Selection().empty())
        return m_messages.stop("There's nothing found yet to replace.");
    replaceSelection(m_view.entered());
}

void FindCommands::replaceAndFind()
{
    const auto request = usableRequest();
    if (!request)
        return;
    if (!m_surface.Selection().empty()) {
        if (!replaceSelection(*request))
            return;
        m_nextStart = m_surface.Selection().end;
    }
    findNext();
}

void FindCommands::replaceAll()
{
    const auto request = m_view.entered();
    const HitFinder finder(request);
    if (!canReplaceAll(request, m_messages) || !isUsable(finder, m_messages)
        || !wantsReplaceAll(request, m_messages))
        return;
    const Hourglass hourglass(m_surface);
    m_nextStart = 0;
    m_lastHit.reset();
    const auto result = finder.replacedAll(m_surface.Text());
    const auto *replaced = std::get_if<Replacement>(&result);
    if (!replaced)
        return reportEndless(m_messages);
    if (replaced->count > 0)
        replaceRange(replaced->range, replaced->text);
    m_view.showReplaced(replaced->count);
}

void FindCommands::replaceRange(TextRange range, std::string_view text)
{
    m_surface.Replace(range, text);
    if (m_surface.TextLength() > 0)
        m_state.unsaved = true; // an empty text cannot be lost
    const auto caret = m_surface.Selection();
    recolourInserted({m_surface, m_state}, {range.start, range.start + std::ssize(text)});
    m_surface.Select(caret);
}

void FindCommands::countOccurrences()
{
    const auto request = usableRequest();
    if (!request)
        return;
    const Hourglass hourglass(m_surface);
    const auto text = m_surface.Text();
    m_view.showCount(request->pattern == Pattern::Text
            ? kevra::countOccurrences(text, request->text, request->letters)
            : std::ssize(HitFinder(*request).all(text)));
}

} // namespace kevra
